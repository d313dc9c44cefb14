// SPDX-License-Identifier: MIT
// A session of some hundred steps with a range display. After each of the events and notifications that it causes, one
// at a time, the display, its axis, their parent, its caption or one of its four values is deleted, and the session
// goes on with what is left. Where Qt itself is on its way through a widget, the widget goes right afterwards. Then
// displays of every size and density, while their window is minimised, and thousands that come and go.

#include "rangescene.h"

#include "guicentral.h"
#include "testmain.h"
#include "valueselection.h"
#include "vccaption.h"

#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QProcess>

#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

enum ETarget
{
    eDisplay,
    eAxis,
    eParent,
    eCaption,
    eRuler1,
    eRuler2,
    eDifference,
    eCenter,
    eTargets
};

constexpr std::array<char const *, eTargets> Names{ { "display", "axis", "parent", "caption", "ruler1", "ruler2",
                                                      "difference", "center" } };

constexpr int Steps = 28;
constexpr int Rounds = 3;
constexpr int Widest = 16777215; // QWIDGETSIZE_MAX

#ifdef __OPTIMIZE__
constexpr int ChurnTurns = 5000;
constexpr int Updates = 100000;
constexpr int Stride = 24; // of the events after which something is deleted
#else
constexpr int ChurnTurns = 400;
constexpr int Updates = 5000;
constexpr int Stride = 80;
#endif

//! Memory of this process that is in use, KiB, without what is free and kept for later.
long long ResidentSize()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

QString PathOf(int target)
{
    return QStringLiteral("/session/") + QLatin1String(Names[static_cast<std::size_t>(target)]);
}

Number * ValueOf(int target) { return Tree::Instance()->FindAs<Number>(PathOf(target)); }

class Session : public QObject
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(unsigned int style, int target, int when)
        : m_target(target)
        , m_when(when)
        , m_pParent(new QWidget)
        , m_pCaption(new VCCaption(m_pParent, "caption", VCCaption::StyleStopButton, 20))
    {
        bool const isTime = (style & 6U) != 0;
        m_scale = isTime ? Second : 1.0;
        m_pParent->resize(600, 80);
        m_pAxis = new AxisProbe(isTime ? AcrossTime : Across, 600, 40);
        m_pAxis->setParent(m_pParent);
        m_pAxis->SetRange(0.0, 1000.0 * m_scale);
        for (int target = eRuler1; target < eTargets; ++target)
            Tree::Instance()->Insert(QStringLiteral("/session"),
                                     new Number(QLatin1String(Names[static_cast<std::size_t>(target)])));
        Listen();
        m_pDisplay = new AxisRangeDisplay(m_pAxis, "display", style);
        m_pDisplay->SetCaption(m_pCaption);
        m_pDisplay->SetRuler1_ValuePath(PathOf(eRuler1));
        m_pDisplay->SetRuler2_ValuePath(PathOf(eRuler2));
        m_pDisplay->SetExportDifference_ValuePath(PathOf(eDifference));
        m_pDisplay->SetCenter_ValuePath(PathOf(eCenter));
        Listen();
        for (QWidget * const widget : m_pParent->findChildren<QWidget *>())
            widget->installEventFilter(this);
        m_pParent->show();
    }

    ~Session() override
    {
        m_when = -1;
        delete m_pParent.data();
        m_listeners.clear();
        Tree::Instance()->RemoveFolder(QStringLiteral("/session"));
        GuiBase::Instance().GetTimeZone()->Select(0L, nullptr);
        GuiBase::Instance().UndoStack()->clear();
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < Rounds; ++round)
            for (int step = 0; step < Steps; ++step) {
                Step(step, round);
                Due();
                QCoreApplication::sendPostedEvents();
                Due();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        return m_count;
    }

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count(true);
        return false;
    }

private:
    void Listen()
    {
        for (int target = eRuler1; target < eTargets; ++target)
            m_listeners.push_back(std::make_unique<Listener>(ValueOf(target), [this](TChangeCode) { Count(false); }));
    }

    //! \param isInQt  a widget cannot go before Qt is back from it.
    void Count(bool isInQt)
    {
        if (m_count++ != m_when)
            return;
        m_isDue = true;
        if (!isInQt || m_target >= eRuler1)
            Due();
    }

    void Due()
    {
        if (!m_isDue)
            return;
        m_isDue = false;
        if (m_target >= eRuler1)
            Tree::Instance()->Remove(PathOf(m_target));
        else if (m_target == eDisplay)
            delete m_pDisplay.data();
        else if (m_target == eAxis)
            delete m_pAxis.data();
        else if (m_target == eCaption)
            delete m_pCaption.data();
        else
            delete m_pParent.data();
    }

    void Set(int target, double value) const
    {
        if (Number * const number = ValueOf(target))
            number->SetValue(value * m_scale, nullptr);
    }

    void Step(int step, int round)
    {
        if (step < 10)
            StepOfValues(step, round);
        else if (m_pDisplay && step < 20)
            StepOfDisplay(step, round);
        else if (m_pDisplay)
            StepOfEntry(step, round);
    }

    void StepOfValues(int step, int round) const
    {
        switch (step) {
        case 0:
            return m_pAxis ? void(m_pAxis->slotShowAxisRangeDisplay(true)) : void();
        case 1:
            return Set(eRuler1, 100.0 + round);
        case 2:
            return Set(eRuler2, 50.0 + round); // crossed
        case 3:
            return Set(eDifference, 40.0 + round);
        case 4:
            return Set(eCenter, 400.0 + round);
        case 5:
            if (Number * const number = ValueOf(eRuler2))
                number->SetInterimValue((500.0 + round) * m_scale, nullptr);
            return;
        case 6:
            if (Number * const number = ValueOf(eRuler2))
                number->CommitInterimValue(nullptr);
            return;
        case 7:
            return m_pAxis ? m_pAxis->resize(500 + round, 40) : void();
        case 8:
            return m_pAxis ? m_pAxis->SetRange(0.0, (2000.0 - 900.0 * round) * m_scale) : void();
        default:
            GuiBase::Instance().GetTimeZone()->Select(round % 2 == 0 ? 7200L : 0L, nullptr);
        }
    }

    void StepOfDisplay(int step, int round)
    {
        switch (step) {
        case 10:
            return m_pDisplay->SetFormatString(round % 2 == 0 ? QStringLiteral("hh:mm:ss") : QStringLiteral("ss"));
        case 11:
            return m_pDisplay->SetFormat(round, 2 * round);
        case 12:
            return m_pDisplay->SetCaption(round % 2 == 0 ? m_pCaption.data() : nullptr);
        case 13:
            return m_pDisplay->SetConverter(round % 2 == 0 ? &m_converter : nullptr);
        case 14:
            m_pDisplay->SetRuler1_ValuePath(PathOf(round % 2 == 0 ? eRuler2 : eRuler1));
            return;
        case 15:
            m_pDisplay->SetRuler1_ValuePath(PathOf(eRuler1));
            return;
        case 16:
            return m_pDisplay->SetPixelToValueServer(round % 2 == 0 ? nullptr : m_pAxis.data());
        case 17:
            m_pDisplay->SetFormatStringForFixedSize(QStringLiteral("hh:mm"));
            return;
        case 18:
            return GuiBase::Instance().emit_signalColorsChanged();
        default:
            (void)m_pDisplay->grab();
        }
    }

    void StepOfEntry(int step, int round)
    {
        QPointer<QPushButton> const button(m_pDisplay->findChild<QPushButton *>());
        QPointer<QLineEdit> const entry(m_pDisplay->findChild<QLineEdit *>());
        bool const isCenter = step == 23 || step == 25;
        QPointer<VCLabel> const label(
            m_pDisplay->findChild<VCLabel *>(QLatin1String(isCenter ? "Center" : "Difference")));
        if (step == 20 || step == 21)
            return button->click();
        if (step == 26)
            return Q_EMIT GuiCentral::Instance().signalRestoreDefaultPersistant();
        if (step == 27)
            return m_pAxis ? void(m_pAxis->slotShowAxisRangeDisplay(round % 2 == 0)) : void();
        QTest::keyClick(label, Qt::Key_F2);
        Due();
        if (!entry || !entry->isVisible())
            return;
        QTest::keyClick(entry, Qt::Key_A, Qt::ControlModifier);
        Due();
        if (entry)
            QTest::keyClick(entry, Qt::Key_7);
        Due();
        if (entry && step < 24)
            QTest::keyClick(entry, Qt::Key_Return);
        else if (entry && step == 24)
            QTest::keyClick(entry, Qt::Key_Escape);
        else if (entry)
            entry->clearFocus();
    }

    int m_target;
    int m_when;
    int m_count = 0;
    bool m_isDue = false;
    double m_scale = 1.0;
    SuffixedDouble m_converter{ SuffixedDouble::eSuffixKilo };
    QPointer<QWidget> m_pParent;
    QPointer<VCCaption> m_pCaption;
    QPointer<AxisProbe> m_pAxis;
    QPointer<AxisRangeDisplay> m_pDisplay;
    std::vector<std::unique_ptr<Listener>> m_listeners; // before the display, and after it
};

//! Counts what is painted of a widget and its children.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget & widget)
    {
        widget.installEventFilter(this);
        for (QWidget * const part : widget.findChildren<QWidget *>())
            part->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent * event) override
    {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int m_paints = 0;
};

int warnings = 0;

void Handle(QtMsgType /*type*/, QMessageLogContext const & /*context*/, QString const & text)
{
    if (text.startsWith(QLatin1String("This plugin does not support ")))
        return;
    ++warnings;
    std::printf("warning: %s\n", qPrintable(text));
}

QImage PictureOf(QWidget & widget)
{
    QImage image(widget.size().boundedTo(QSize(400, 400)).expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image, QPoint(), QRegion(QRect(QPoint(), image.size())));
    if (auto const * const button = widget.findChild<QPushButton *>())
        QPainter(&image).fillRect(button->geometry(), Qt::black); // the style paints it as it likes
    return image;
}

//! Displays of every style through all sizes; the picture at the end is the one of the start.
//! \return the exit code.
int RunGeometry()
{
    qInstallMessageHandler(Handle);
    int cases = 0;
    int lost = 0;
    for (unsigned int style = 0; style < 16; ++style) {
        QWidget window; // a window itself is never that large
        window.resize(300, 300);
        window.show();
        Stage stage(style, (style & 6U) != 0 ? AcrossTime : Across);
        stage.axis.setParent(&window);
        stage.Rulers(1234567.0, 987654321.0);
        stage.Show();
        stage.axis.resize(390, 200);
        QImage const before = PictureOf(*stage.display);
        for (QSize const & size : { QSize(0, 0), QSize(1, 1), QSize(1, 300), QSize(300, 1), QSize(7, 7), QSize(0, 200),
                                    QSize(Widest, 20), QSize(20, Widest), QSize(Widest, Widest) })
            for (bool const isShown : { true, false }) {
                stage.axis.resize(size);
                stage.display->setVisible(isShown);
                stage.display->AdaptFontSize();
                QCoreApplication::sendPostedEvents();
                PictureOf(*stage.display);
                stage.ruler1->SetValue(cases, nullptr);
                ++cases;
            }
        stage.Rulers(1234567.0, 987654321.0);
        stage.display->show();
        stage.axis.resize(390, 200);
        QCoreApplication::sendPostedEvents();
        lost += PictureOf(*stage.display) == before ? 0 : 1;
    }
    std::printf("%d pictures, %d not back\n", cases, lost);
    return lost + warnings == 0 ? 0 : 1;
}

} // namespace

class tst_axisrangedisplay_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void everyDensity_data();
    void everyDensity();
    void minimisedPaintsNothing();
    void leavesNothingBehind();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
    int const m_updates = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 10000 : Updates, 1000000));
    int m_pictures = 0;
    int m_churned = 0;
    long long m_grown = 0; // KiB
};

void tst_axisrangedisplay_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<int>("target");
    for (unsigned int const style : { 1U, 5U })
        for (int target = 0; target < eTargets; ++target)
            QTest::addRow("%s: %s", style == 1U ? "numbers" : "times", Names[static_cast<std::size_t>(target)])
                << style << target;
}

void tst_axisrangedisplay_session::deletedAfterEachEvent()
{
    QFETCH(unsigned int, style);
    QFETCH(int, target);
    QStringList const before = Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float"));
    int const events = Session(style, target, -1).Run();
    QVERIFY2(events > 300, QByteArray::number(events).constData());
    int const stride = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 60 : Stride, 1));
    for (int when = target % stride; when < events; when += stride) {
        Session(style, target, when).Run();
        ++m_sessions;
        QCOMPARE(Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float")), before);
    }
}

void tst_axisrangedisplay_session::everyDensity_data()
{
    QTest::addColumn<QString>("factor");
    for (char const * const factor : { "1", "1.5", "2", "3.1416" })
        QTest::newRow(factor) << QString::fromLatin1(factor);
}

void tst_axisrangedisplay_session::everyDensity()
{
    QFETCH(QString, factor);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), factor);
    environment.insert(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"), QStringLiteral("PassThrough"));
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--child") });
    QVERIFY(child.waitForFinished(100000));
    QByteArray const said = child.readAllStandardOutput();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, said.constData());
    int pictures = 0;
    QCOMPARE(std::sscanf(said.constData(), "%d pictures", &pictures), 1);
    m_pictures += pictures;
}

//! The platform of the tests goes on painting windows that are minimised; others do not.
void tst_axisrangedisplay_session::minimisedPaintsNothing()
{
    Stage stage(5U, AcrossTime);
    VCCaption caption;
    stage.display->SetCaption(&caption);
    stage.Rulers(Today, Today + Second);
    stage.Show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.axis));
    stage.axis.setWindowState(Qt::WindowMinimized);
    stage.axis.setUpdatesEnabled(false);
    QCoreApplication::processEvents();
    PaintCounter const minimised(stage.axis);
    long long warm = 0;
    for (int i = 0; i < m_updates; ++i) {
        stage.ruler2->SetValue(Today + i * 1e3, nullptr);
        if (i % 1000 == 0)
            QCoreApplication::processEvents();
        if (i == m_updates / 4)
            warm = ResidentSize();
    }
    QCoreApplication::processEvents();
    QCOMPARE(minimised.m_paints, 0);
    if (!TestStage::Sanitized())
        QVERIFY(ResidentSize() - warm <= 256);
    stage.axis.setUpdatesEnabled(true);
    stage.axis.setWindowState(Qt::WindowNoState);
    QTRY_VERIFY(minimised.m_paints > 0);
    QCOMPARE(stage.difference->GetValue(), (m_updates - 1) * 1e3);
}

void tst_axisrangedisplay_session::leavesNothingBehind()
{
    int const turns = static_cast<int>(TestStage::Turns(TestStage::Sanitized() ? 200 : ChurnTurns, 2000000));
    QStringList const before = Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float"));
    QPixmapCache::setCacheLimit(0); // the style keeps a picture of every button under a name of its own
    long long warm = 0;
    for (int turn = 0; turn < turns; ++turn) {
        Stage stage(static_cast<unsigned int>(turn % 16), turn % 16 < 2 ? Across : AcrossTime);
        VCCaption caption;
        stage.display->SetCaption(&caption);
        stage.Rulers(turn, turn + 1e6);
        stage.Show();
        stage.display->slotShowDiffRuler(true);
        GuiBase::Instance().UndoStack()->clear();
        if (turn == turns / 4)
            warm = ResidentSize();
    }
    m_grown = ResidentSize() - warm;
    m_churned = turns;
    QPixmapCache::setCacheLimit(10240);
    QCOMPARE(Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique/float")), before);
    if (!TestStage::Sanitized())
        QVERIFY2(m_grown <= 256, qPrintable(QStringLiteral("%1 KiB in %2 turns").arg(m_grown).arg(turns)));
}

void tst_axisrangedisplay_session::cleanupTestCase()
{
    std::printf("figures: %lld sessions with a range display, each with one deletion; %d pictures of every density; "
                "%d updates while minimised; "
                "%d displays came and went, %lld KiB more\n",
                m_sessions, m_pictures, m_updates, m_churned, m_grown);
}

int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    if (argc > 1 && std::strcmp(argv[1], "--child") == 0)
        return RunGeometry();
    tst_axisrangedisplay_session test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_axisrangedisplay_session.moc"
