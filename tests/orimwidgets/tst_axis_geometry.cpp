// SPDX-License-Identifier: MIT
// Axes of every size, with any margins, on screens of any density, with odd fonts and with none. What needs another
// environment runs in a child process of this program.

#include "axisprobe.h"

#include "coloryrulerleft.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <climits>
#include <cstdio>
#include <cstring>

namespace {

constexpr int Widest = 16777215; // QWIDGETSIZE_MAX

//! An axis as an application derives it: paints ground, tics and a shading bar.
class Scale : public AxisBase
{
public:
    explicit Scale(QWidget * parent = nullptr, int fontPointSize = 8, unsigned int more = 0)
        : AxisBase(parent, nullptr, AxisHorizontal | AxisShading | AxisInnerFrame | AxisWinPanel | more, 20, 5,
                   fontPointSize)
    {}

    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        ++m_paints;
        if (!m_pPixmap)
            m_pPixmap = std::make_unique<QPixmap>(1, 1);
        QPainter painter(this);
        painter.setFont(m_fontBold);
        drawBackground(painter);
        painter.setPen(m_textPen);
        QString label;
        for (int i = 0; i < m_ticCount; ++i) {
            int const x = ValueToPixel(GetTicValue(i));
            BuildFormatString(label, GetTicValue(i), nullptr);
            painter.drawLine(x, 0, x, m_ticLength);
            painter.drawText(x, height(), label);
        }
        drawShadeRect(painter, 0, 0, width(), height(), false);
        drawAgeingScale(painter, 0, 0, width(), height(), 7);
    }
};

class Ruler : public ColorYRulerLeft
{
public:
    using ColorYRulerLeft::ColorYRulerLeft;
    using ColorYRulerLeft::m_font;
    using ColorYRulerLeft::m_pPixmap;
    QString m_label;

    void BuildFormatString(QString & out, double value, Marker * marker) override
    {
        if (m_label.isEmpty())
            ColorYRulerLeft::BuildFormatString(out, value, marker);
        else
            out = m_label;
    }
};

int failures = 0;
int warnings = 0;
int cases = 0;
qint64 longest = 0; // ms

void Check(bool holds, char const * what)
{
    if (holds)
        return;
    ++failures;
    std::printf("failed: %s\n", what);
}

void Handle(QtMsgType /*type*/, QMessageLogContext const & /*context*/, QString const & text)
{
    if (text.startsWith(QLatin1String("This plugin does not support ")))
        return;
    ++warnings;
    std::printf("warning: %s\n", qPrintable(text));
}

QImage PictureOf(QWidget & widget, QSize const & most)
{
    QImage image(widget.size().boundedTo(most).expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QElapsedTimer clock;
    clock.start();
    widget.render(&image, QPoint(), QRegion(QRect(QPoint(0, 0), image.size())));
    longest = std::max(longest, clock.elapsed());
    ++cases;
    return image;
}

struct Margins
{
    int leftTop;
    int rightBottom;
};

//! Through all sizes and margins; the picture at the end is the one of the start.
void RunGeometry()
{
    QSize const sizes[] = { { 0, 0 },      { 1, 1 },          { 1, 300 },     { 300, 1 },     { 2, 2 },
                            { 60, 9 },     { 60, 200 },       { 0, 200 },     { 200, 0 },     { 3000, 2000 },
                            { 40000, 20 }, { 20, 40000 },     { Widest, 20 }, { 20, Widest }, { Widest, 1 },
                            { 1, Widest }, { Widest, Widest } };
    Margins const margins[] = { { 0, 0 },
                                { 10, 10 },
                                { -50, -50 },
                                { 500, 500 },
                                { INT_MIN, INT_MAX },
                                { INT_MAX, INT_MIN },
                                { INT_MIN, INT_MIN },
                                { INT_MAX, INT_MAX } };
    QSize const most(400, 400);
    QWidget window;
    window.resize(300, 300);
    Scale across(&window);
    Scale up(&window, 8, AxisBase::AxisVertical);
    Ruler ruler(&window);
    window.show();
    AxisBase * const axes[] = { &across, &up, &ruler };
    for (AxisBase * const axis : axes) {
        axis->SetRange(0.0, 100.0);
        axis->resize(60, 200);
        QImage const before = PictureOf(*axis, most);
        for (Margins const & margin : margins)
            for (QSize const & size : sizes) {
                if (margin.leftTop != 0 && 1.0 * size.width() * size.height() > 1e6)
                    continue; // a large picture takes its time
                axis->SetPixOffset(margin.leftTop, margin.rightBottom);
                axis->resize(size);
                axis->show();
                PictureOf(*axis, most);
                axis->hide();
                QCoreApplication::sendPostedEvents();
                PictureOf(*axis, most);
                bool ok = false;
                axis->ValueToPixel(50.0, &ok, true);
                axis->PixelToValue(50, &ok, true);
                axis->IsPixelValid(50);
            }
        axis->resize(0, 0);
        PictureOf(*axis, most);
        axis->SetPixOffset(0, 0);
        axis->resize(60, 200);
        Check(PictureOf(*axis, most) == before, "the picture is back");
    }
    double const ratio = window.devicePixelRatioF();
    ruler.BuildPixMap();
    Check(ruler.m_pPixmap && ruler.m_pPixmap->devicePixelRatio() == ratio, "the picture is as sharp as the screen");
    QSize const wanted(static_cast<int>(std::ceil(60 * ratio)), static_cast<int>(std::ceil(200 * ratio)));
    Check(ruler.m_pPixmap && ruler.m_pPixmap->size() == wanted, "the picture is as large as the widget");
}

//! Fonts that there are not, and sizes that no font has.
void RunFonts()
{
    QSize const most(400, 400);
    for (int const size : { 0, -1, 1, 8, 400, 1000000, INT_MAX, INT_MIN }) {
        Scale scale(nullptr, size);
        scale.resize(300, 60);
        scale.SetRange(0.0, 100.0);
        PictureOf(scale, most);
    }
    for (QFont const & font :
         { QFont(QStringLiteral("No such family"), 9), QFont(QString(), -1), QFont(QStringLiteral("DejaVu Sans"), 0),
           QFont(QStringLiteral("DejaVu Sans"), 1000000) }) {
        Ruler ruler;
        ruler.m_font = font;
        ruler.resize(80, 300);
        ruler.SetRange(0.0, 100.0);
        PictureOf(ruler, most);
        for (QString const & label :
             { QStringLiteral("\u200b\u200b\u200b"), QString(5000, QLatin1Char('8')), QStringLiteral("a\nb") }) {
            ruler.m_label = label;
            PictureOf(ruler, most);
        }
    }
}

//! \return the exit code: 0 when nothing failed and nobody warned.
int Child(QByteArray const & what)
{
    qInstallMessageHandler(Handle);
    if (what == "fonts")
        RunFonts();
    else
        RunGeometry();
    std::printf("%d pictures, longest %lld ms\n", cases, static_cast<long long>(longest));
    Check(longest < 5000, "a picture takes too long");
    return failures + warnings == 0 ? 0 : 1;
}

} // namespace

class tst_axis_geometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDensity_data();
    void everyDensity();
    void oddFonts_data();
    void oddFonts();
    void hiddenAxesPaintNothing();
    void cleanupTestCase();

private:
    void Run(QString const & what, QProcessEnvironment const & environment);

    int m_pictures = 0;
    int m_longest = 0; // ms
};

void tst_axis_geometry::Run(QString const & what, QProcessEnvironment const & environment)
{
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--child"), what });
    QVERIFY(child.waitForFinished(100000));
    QByteArray const said = child.readAllStandardOutput();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, said.constData());
    int pictures = 0;
    int most = 0;
    QCOMPARE(std::sscanf(said.constData(), "%d pictures, longest %d ms", &pictures, &most), 2);
    m_pictures += pictures;
    m_longest = std::max(m_longest, most);
}

void tst_axis_geometry::everyDensity_data()
{
    QTest::addColumn<QString>("factor");
    for (char const * const factor : { "1", "1.25", "1.5", "2", "3", "3.1416" })
        QTest::newRow(factor) << QString::fromLatin1(factor);
}

void tst_axis_geometry::everyDensity()
{
    QFETCH(QString, factor);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), factor);
    environment.insert(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"), QStringLiteral("PassThrough"));
    Run(QStringLiteral("geometry"), environment);
}

void tst_axis_geometry::oddFonts_data()
{
    QTest::addColumn<bool>("any");
    QTest::newRow("fonts of the system") << true;
    QTest::newRow("no font at all") << false;
}

void tst_axis_geometry::oddFonts()
{
    QFETCH(bool, any);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QTemporaryDir folder;
    if (!any) {
        QFile configuration(folder.filePath(QStringLiteral("fonts.conf")));
        QVERIFY(configuration.open(QIODevice::WriteOnly));
        configuration.write("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig><dir>" +
                            folder.path().toUtf8() + "/none</dir><cachedir>" + folder.path().toUtf8() +
                            "/cache</cachedir></fontconfig>\n");
        configuration.close();
        environment.insert(QStringLiteral("FONTCONFIG_FILE"), configuration.fileName());
    }
    Run(QStringLiteral("fonts"), environment);
}

void tst_axis_geometry::hiddenAxesPaintNothing()
{
    Scale axis;
    axis.resize(200, 40);
    axis.SetRepairDelay(0);
    axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&axis));
    QTRY_VERIFY(axis.m_paints > 0);
    axis.hide();
    QCoreApplication::processEvents();
    axis.m_paints = 0;
    for (int i = 0; i < 10000; ++i) {
        axis.SetStopValue(i);
        axis.RepairDrawing();
        if (i % 1000 == 0)
            QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    QCOMPARE(axis.m_paints, 0);
    axis.show();
    QTRY_VERIFY(axis.m_paints > 0);
}

void tst_axis_geometry::cleanupTestCase()
{
    std::printf("figures: %d pictures of axes, longest %d ms\n", m_pictures, m_longest);
}

int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    if (argc > 2 && std::strcmp(argv[1], "--child") == 0)
        return Child(argv[2]);
    tst_axis_geometry test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_axis_geometry.moc"
