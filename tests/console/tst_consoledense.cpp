// SPDX-License-Identifier: MIT
#include "agescale.h"
#include "colorset.h"
#include "consolewindow.h"
#include "frequencyaxis.h"
#include "guicentral.h"
#include "lineplayer.h"
#include "panecolors.h"
#include "panetools.h"
#include "persistencepane.h"
#include "shadingbar.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "timeaxis.h"
#include "waterfallpane.h"

#include <QPixmap>

using namespace PaneTools;

//! The console on a screen with two device pixels a pixel.
class tst_ConsoleDense : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void picturesHaveThePixelsOfTheScreen();
    void persistenceHasThePixelsOfTheScreen();
    void gridContinuesTheTics_data();
    void gridContinuesTheTics();
    void labelsAreSharp();
    void barHasAColourARow();
    void markerLineStandsOnItsColumn();

private:
    std::unique_ptr<ConsoleWindow> m_window;
};

void tst_ConsoleDense::init()
{
    ColorSet::Instance().Load(0);
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 4096);
    m_window->resize(901, 703);
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(m_window->Figures().painted > 0);
    m_window->Player().Stop();
    QCOMPARE(m_window->devicePixelRatioF(), 2.0);
}

void tst_ConsoleDense::cleanup() { m_window.reset(); }

void tst_ConsoleDense::picturesHaveThePixelsOfTheScreen()
{
    m_window->grab();
    for (ScaleAxis * const axis : m_window->findChildren<ScaleAxis *>()) {
        if (!axis->isVisible())
            continue; // it has no picture
        QVERIFY(axis->GetPicture());
        QCOMPARE(axis->GetPicture()->size(), axis->size() * 2);
        QCOMPARE(axis->GetPicture()->devicePixelRatio(), 2.0);
        QCOMPARE(axis->GetTicWidth(), 2);
    }
    QCOMPARE(m_window->Spectrum().GetPicture().size(), m_window->Spectrum().size() * 2);
    QCOMPARE(m_window->Waterfall().GetImage().Columns(), m_window->Waterfall().GetPictureRect().width());
    QCOMPARE(m_window->Waterfall().GetPictureRect().left() % 2, 0);
}

void tst_ConsoleDense::persistenceHasThePixelsOfTheScreen()
{
    ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
    m_window->resize(901, 1003);
    PersistencePane & pane = m_window->Persistence();
    QTRY_VERIFY(pane.GetPictureRect().height() > 50 && pane.isVisible());
    pane.grab();
    pane.SetLevelRange(-100.0, 0.0);
    pane.Clear();
    FrequencyRange const view = pane.GetFrequencyRange();
    auto const line = std::make_shared<SpectrumLine>();
    line->centre = view.start + view.span / 2.0;
    line->span = view.span;
    line->levels.assign(32, -50.0);
    line->levels.resize(64, -20.0);
    pane.AppendLines({ line });
    QImage const & pixels = *pane.GetImage().GetImage();
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(pixels.size(), picture.size());
    QCOMPARE(pane.GetAgeScale().GetBarRect().size(), QSize(2 * AgeScale::BarWidth, picture.height()));
    QImage const image = Rendered(pane);
    QColor const newest(pane.GetAgeScale().GetAges()[0][0]);
    int lit = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            bool const isLit = pixels.pixelIndex(x, y) < 254;
            lit += isLit ? 1 : 0;
            QCOMPARE(image.pixelColor(picture.left() + x, picture.top() + y) == newest, isLit);
        }
    }
    QCOMPARE(lit, picture.width());
}

void tst_ConsoleDense::gridContinuesTheTics_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(qPrintable(ColorSet::GetSetName(set))) << set;
}

void tst_ConsoleDense::gridContinuesTheTics()
{
    QFETCH(int, set);
    ColorSet::Instance().Load(set);
    ConsoleValues::Set(ConsolePaths::LevelMax, 60.0); // the signal stands far below the first line
    SpectrumPane & pane = m_window->Spectrum();
    QImage const image = Rendered(pane);
    PaneColors const colors = CurrentPaneColors();
    QRect const picture = pane.GetPictureRect();
    std::vector<int> const columns = pane.GetFrequencyAxis().GetGridPixels();
    std::vector<int> const rows = pane.GetLevelScale().GetGridPixels();
    QVERIFY(columns.size() >= 4 && rows.size() >= 4);
    int const blank = picture.top() + rows.front() + 4;
    for (int const column : columns) {
        int const x = picture.left() + column;
        for (int const wide : { x, x + 1 }) {
            QCOMPARE(image.pixelColor(wide, blank), colors.grid);
            QCOMPARE(image.pixelColor(wide, picture.bottom() + 9), colors.text);
        }
        QVERIFY(image.pixelColor(x - 1, blank) != colors.grid);
        QVERIFY(image.pixelColor(x + 2, blank) != colors.grid);
        QCOMPARE(image.pixelColor(x - 1, picture.bottom() + 9), colors.frame);
        QCOMPARE(image.pixelColor(x + 2, picture.bottom() + 9), colors.frame);
    }
    for (int const row : rows) {
        int const y = picture.top() + row;
        QCOMPARE(image.pixelColor(picture.left() - 9, y), colors.text);
        QCOMPARE(image.pixelColor(picture.left() - 9, y - 1), colors.frame);
    }
}

//! Scaled up, each pixel would stand twice beside itself.
void tst_ConsoleDense::labelsAreSharp()
{
    for (ScaleAxis * const axis : m_window->findChildren<ScaleAxis *>()) {
        if (qobject_cast<TimeAxis *>(axis) || !axis->isVisible())
            continue; // the one has labels once a second has passed, the other once it is shown
        QImage const image = axis->grab().toImage().convertToFormat(QImage::Format_RGB32);
        std::vector<QRect> const labels = axis->GetLabelRects();
        QVERIFY(labels.size() >= 3);
        int single = 0;
        for (QRect const & label : labels) {
            QVERIFY(image.rect().contains(label));
            for (int y = label.top() & ~1; y + 1 <= label.bottom(); y += 2) {
                for (int x = label.left() & ~1; x + 1 <= label.right(); x += 2)
                    single += image.pixel(x, y) != image.pixel(x + 1, y) ? 1 : 0;
            }
        }
        QVERIFY2(single > 20, qPrintable(axis->objectName()));
    }
}

void tst_ConsoleDense::barHasAColourARow()
{
    ConsoleValues::Set(ConsolePaths::LevelMin, -120.0);
    ConsoleValues::Set(ConsolePaths::LevelMax, 0.0);
    ShadingBar & bar = m_window->Waterfall().GetShadingBar();
    QImage const image = bar.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QRect const rect = bar.GetBarRect();
    QCOMPARE(rect.height(), m_window->Waterfall().GetPictureRect().height());
    QCOMPARE(rect.width(), 2 * ShadingBar::BarWidth);
    int changes = 0;
    for (int row = 0; row < rect.height(); ++row) {
        double const level = -120.0 * row / (rect.height() - 1);
        QColor const wanted = GuiCentral::Instance().GetShadingRGB(level, VC::eShadingLevel, -120.0, 0.0, true);
        QColor const shown = image.pixelColor(rect.center().x(), rect.top() + row);
        QVERIFY2(std::abs(wanted.red() - shown.red()) <= 1 && std::abs(wanted.green() - shown.green()) <= 1 &&
                     std::abs(wanted.blue() - shown.blue()) <= 1,
                 qPrintable(QString::number(row)));
        changes += row % 2 == 1 && shown != image.pixelColor(rect.center().x(), rect.top() + row - 1) ? 1 : 0;
    }
    QVERIFY(changes > rect.height() / 4);
    QColor const ground = CurrentPaneColors().frame;
    QCOMPARE(image.pixelColor(rect.left() - 1, rect.top() + 9), ground);
    QCOMPARE(image.pixelColor(rect.right() + 1, rect.top() + 9), ground);
}

void tst_ConsoleDense::markerLineStandsOnItsColumn()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    SpectrumPane & pane = m_window->Spectrum();
    QRect const picture = pane.GetPictureRect();
    double const start = ConsoleValues::Get(ConsolePaths::Start);
    double const span = ConsoleValues::Get(ConsolePaths::Span);
    for (int const column : { 101, 300, picture.width() - 1 }) {
        ConsoleValues::Set(ConsolePaths::Marker1, start + span * (column + 0.5) / picture.width());
        QImage const image = Rendered(pane);
        QCOMPARE(pane.GetRulers().front().line, picture.left() + column);
        QColor const ink = pane.GetRulers().front().color;
        QCOMPARE(image.pixelColor(picture.left() + column, picture.bottom() - 3), ink);
        QVERIFY(image.pixelColor(picture.left() + column - 1, picture.bottom() - 3) != ink);
    }
}

int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    tst_ConsoleDense test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_consoledense.moc"
