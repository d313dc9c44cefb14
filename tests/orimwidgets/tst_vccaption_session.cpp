// SPDX-License-Identifier: MIT
// A session with a caption of every style. After each of the events that it causes, one at a time, the caption, its
// parent, a bound value, the time zone, the wheel consumer, the popup or a button is deleted or the colours change, and
// the session goes on. Where Qt itself is on its way through a widget, and does not outlive its end, the widget goes
// right afterwards. Then captions of every size on screens of any density, captions that nobody sees, and captions that
// come and go, and leave nothing behind.

#include "captionprobe.h"

#include "colorset.h"
#include "guibase.h"
#include "iwheelconsumer.h"
#include "testmain.h"
#include "valueselection.h"
#include "vcselectionpopup.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QProcess>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

enum ETarget
{
    eCaption,
    eParent,
    eLeftValue,
    eCenterValue,
    eZone,
    eConsumer,
    ePopup,
    eButton,
    eColors,
    eTargets
};

constexpr int Steps = 24;
constexpr int Rounds = 2;
constexpr unsigned int Styles[] = { 0x31, 0x32, 0x34, 0x38 }; // each with popup and data stream
constexpr unsigned int ChurnStyles[] = { 0x01, 0x32, 0x24, 0x08 };
constexpr int Widest = 16777215; // QWIDGETSIZE_MAX

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

class Consumer : public IWheelConsumer
{
public:
    void WheelDown() override { ++m_turns; }

    void WheelUp() override { ++m_turns; }

    int m_turns = 0;
};

class Session : public QObject
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(unsigned int style, ETarget target, int when) : m_target(target), m_when(when)
    {
        NewText("left", QStringLiteral("left"));
        NewText("center", QStringLiteral("center"));
        m_pParent = new QWidget;
        m_pBar = new CaptionProbe(m_pParent, "bar", style, 28, 9);
        m_pConsumer = std::make_unique<Consumer>();
        m_pBar->SetWheelConsumer(m_pConsumer.get());
        m_pBar->SetCaptionLeft_ValuePath(QStringLiteral("/caption/left"));
        m_pBar->SetCaptionRight_ValuePath(QStringLiteral("/caption/left"));
        m_pBar->SetCaptionCenter_ValuePath(QStringLiteral("/caption/center"));
        m_pBar->installEventFilter(this);
        Hear();
        m_pParent->resize(300, 40);
        m_pBar->resize(300, 28);
        m_pParent->show();
    }

    ~Session() override
    {
        m_when = -1;
        delete m_pParent;
        for (QString const & path : Tree::Instance()->GetPaths(QStringLiteral("/caption")))
            Tree::Instance()->Remove(path);
    }

    //! \return how many events there were.
    int Run()
    {
        for (int round = 0; round < Rounds; ++round)
            for (int step = 0; step < Steps; ++step) {
                if (m_pBar)
                    Step(step, round);
                Due();
                Count(false);
                QCoreApplication::sendPostedEvents(nullptr, 0);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                Due();
            }
        return m_count;
    }

    bool eventFilter(QObject * /*watched*/, QEvent * /*event*/) override
    {
        Count(true);
        return false;
    }

private:
    void Hear()
    {
        CaptionProbe * const bar = m_pBar;
        auto const heard = [this] { Count(false); };
        connect(bar, &VCCaption::ButtonClick, this, heard);
        connect(bar, &VCCaption::OnTopButtonClick, this, heard);
        connect(bar, &VCCaption::CaptionDoubleClick, this, heard);
        connect(bar, &VCCaption::signalFullButtonClick, this, heard);
        // Qt 5 gives the focus while it opens or hides a popup, and goes on with the popup and the bar
        bool const isQt5 = std::strcmp(qVersion(), "6") < 0;
        connect(bar, &VCCaption::FocusSet, this, [this, isQt5] { Count(isQt5 && !m_isFocusSent); });
        connect(bar, &VCCaption::Stop, this, heard);
        connect(bar, &VCCaption::Start, this, heard);
        connect(bar, &VCCaption::si_stopButtonStateChanged, this, heard);
        connect(bar, &VCCaption::DatastreamButtonToggled, this, heard);
    }

    //! \param isInQt  a widget cannot go before Qt is back from it.
    void Count(bool isInQt)
    {
        if (m_count++ != m_when)
            return;
        if (isInQt && (m_target == eCaption || m_target == eParent || m_target == eButton || m_target == ePopup))
            m_isDue = true;
        else
            Delete();
    }

    void Due()
    {
        if (m_isDue)
            Delete();
    }

    void Delete()
    {
        m_isDue = false;
        switch (m_target) {
        case eCaption:
            delete m_pBar.data();
            break;
        case eParent:
            delete m_pParent.data();
            break;
        case eLeftValue:
            Tree::Instance()->Remove(QStringLiteral("/caption/left"));
            break;
        case eCenterValue:
            Tree::Instance()->Remove(QStringLiteral("/caption/center"));
            break;
        case eZone:
            if (ValueSelection * const zone = GuiBase::Instance().GetTimeZone())
                Tree::Instance()->Remove(zone->GetPathName());
            break;
        case eConsumer:
            m_pConsumer.reset();
            break;
        case ePopup:
            if (m_pBar)
                delete m_pBar->GetContextMenu();
            break;
        case eButton:
            if (m_pBar)
                delete (m_pBar->m_pStopButton ? m_pBar->m_pStopButton.data() : m_pBar->GetOnTopButton());
            break;
        default:
            ColorSet::Instance().Load((ColorSet::Instance().GetCurrentSet() + 1) % ColorSet::GetSetCount());
            break;
        }
    }

    void SetValue(char const * path, QString const & text)
    {
        if (auto * const value = Tree::Instance()->FindAs<Value<QString>>(QLatin1String(path)))
            value->SetValue(text, nullptr);
    }

    template <class E>
    void Send(E && event)
    {
        if (m_pBar)
            QCoreApplication::sendEvent(m_pBar, &event);
    }

    void Mouse(QEvent::Type type, int x)
    {
        if (m_pBar)
            Send(QMouseEvent(type, QPointF(x, 5), QPointF(x, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }

    void Wheel(int angle)
    {
        Send(QWheelEvent(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false));
    }

    void Click(QAbstractButton * button)
    {
        if (button)
            QTest::mouseClick(button, Qt::LeftButton);
    }

    void Focus(QEvent::Type type)
    {
        m_isFocusSent = true;
        Send(QFocusEvent(type));
        m_isFocusSent = false;
    }

    void Step(int step, int round)
    {
        switch (step) {
        case 0:
            return SetValue("/caption/left", QStringLiteral("left %1").arg(round));
        case 1:
            return SetValue("/caption/center", QStringLiteral("center %1").arg(round));
        case 2:
            return m_pBar->SetTimeCaption(1.7e15, 1.7e15 + 1e6 * (round + 1));
        case 3:
            if (ValueSelection * const zone = GuiBase::Instance().GetTimeZone())
                zone->Select(round == 0 ? 7200L : 0L, nullptr);
            return;
        case 4: {
            unsigned long long time = 1000000ULL * static_cast<unsigned>(round + 1);
            return m_pBar->SetWFTimeLeft(time);
        }
        case 5:
            return Wheel(120);
        case 6:
            return Wheel(-120);
        case 7:
            return Focus(QEvent::FocusIn);
        case 8:
            return Focus(QEvent::FocusOut);
        case 9:
            return Mouse(QEvent::MouseButtonPress, 5);
        case 10:
            return Mouse(QEvent::MouseMove, 9);
        case 11:
            return Mouse(QEvent::MouseButtonRelease, 9);
        case 12:
            return Mouse(QEvent::MouseButtonDblClick, 9);
        default:
            return StepButtons(step, round);
        }
    }

    void StepButtons(int step, int round)
    {
        switch (step) {
        case 13:
            return Click(m_pBar->m_pStopButton);
        case 14:
            return Click(m_pBar->GetOnTopButton());
        case 15:
            return Click(m_pBar->GetStartStopDatastreamButton());
        case 16:
            if (m_pBar->getToolBar() && m_pBar->m_pExitAction)
                QTest::mouseClick(m_pBar->getToolBar()->widgetForAction(m_pBar->m_pExitAction), Qt::LeftButton);
            return;
        case 17:
            return m_pBar->sl_paused(round == 0);
        case 18:
            return m_pBar->triggerStopButton();
        case 19:
            return m_pBar->SetFullButtonVisible(round == 0);
        case 20:
            return Send(QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5)));
        case 21:
            if (QWidget * const popup = m_pBar->GetContextMenu())
                popup->hide();
            return;
        case 22:
            return m_pBar->slotRunning(round != 0);
        default:
            m_pBar->grab();
            return GuiBase::Instance().emit_signalColorsChanged();
        }
    }

    ETarget m_target;
    int m_when;
    int m_count = 0;
    bool m_isDue = false;
    bool m_isFocusSent = false;
    QPointer<QWidget> m_pParent;
    QPointer<CaptionProbe> m_pBar;
    std::unique_ptr<Consumer> m_pConsumer;
};

// In a child process, whose screen has another density

int failures = 0;
int warnings = 0;
int cases = 0;

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

QImage PictureOf(QWidget & widget)
{
    QImage image(widget.size().boundedTo(QSize(400, 40)).expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image, QPoint(), QRegion(image.rect()));
    ++cases;
    return image;
}

void CheckPicture(CaptionProbe const & bar)
{
    double const ratio = bar.devicePixelRatioF();
    Check(bar.m_pPixmap != nullptr, "there is a picture");
    if (!bar.m_pPixmap)
        return;
    Check(bar.m_pPixmap->devicePixelRatio() == ratio, "the picture is as sharp as the screen");
    QSize const wanted(static_cast<int>(std::ceil(bar.width() * ratio)),
                       static_cast<int>(std::ceil(bar.height() * ratio)));
    Check(bar.m_pPixmap->size() == wanted, "the picture is as large as the bar");
    QImage const image = bar.Picture();
    QColor const ground = ColorSet::Instance()[IColorBase::eColorCaption];
    for (QPoint const & corner :
         { image.rect().topLeft(), image.rect().topRight(), image.rect().bottomLeft(), image.rect().bottomRight() })
        Check(image.pixelColor(corner) == ground, "the picture is painted to its corners");
}

void RunSizes(unsigned int style)
{
    QWidget window;
    window.resize(300, 100);
    CaptionProbe bar(&window, nullptr, style, 20, 9);
    window.show();
    auto const fill = [&bar] {
        bar.SetCaptionLeft(QStringLiteral("left"));
        bar.SetCaptionRight(QStringLiteral("right"));
        bar.SetCaptionCenter(QStringLiteral("center"));
    };
    bar.resize(300, 20);
    bar.getLayout()->activate();
    fill();
    QImage const before = PictureOf(bar);
    CheckPicture(bar);
    for (QSize const & size :
         { QSize(0, 0), QSize(1, 1), QSize(1, 20), QSize(2, 2), QSize(3, 300), QSize(300, 1), QSize(40000, 20),
           QSize(Widest, 20), QSize(Widest, 1), QSize(1, Widest), QSize(Widest, Widest), QSize(0, 20), QSize(20, 0) }) {
        bar.setFixedHeight(size.height());
        bar.resize(size);
        fill();
        bar.SetTimeCaption(1.0, 2.0);
        PictureOf(bar);
        bar.hide();
        fill();
        PictureOf(bar);
        bar.show();
        PictureOf(bar);
    }
    bar.setFixedHeight(20);
    bar.resize(300, 20);
    fill();
    Check(PictureOf(bar) == before, "the picture is back");
    CheckPicture(bar);
}

int Child()
{
    qInstallMessageHandler(Handle);
    for (unsigned int const style : { 0U, 1U, 2U, 4U, 8U, 63U })
        RunSizes(style);
    std::printf("%d pictures\n", cases);
    return failures + warnings == 0 ? 0 : 1;
}

} // namespace

class tst_vccaption_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void deletedAtEachEvent();
    void everyDensity_data();
    void everyDensity();
    void unseen();
    void comesAndGoes();
    void cleanupTestCase();

private:
    int m_runs = 0;
    int m_pictures = 0;
    long long m_unseenGrowth = 0; // KiB
    long long m_growth = 0;       // KiB
    long long m_captions = 0;
};

void tst_vccaption_session::deletedAtEachEvent()
{
    bool const isShort = TestStage::Turns(1, 0) == 1;
    for (unsigned int const style : Styles) {
        int const events = Session(style, eTargets, -1).Run();
        QVERIFY(events > Rounds * Steps);
        for (int target = 0; target < eTargets; ++target) {
            int const step = isShort ? 31 : 1;
            for (int when = target % step; when < events; when += step) {
                Session(style, static_cast<ETarget>(target), when).Run();
                ++m_runs;
            }
        }
    }
    ColorSet::Instance().Load(0);
}

void tst_vccaption_session::everyDensity_data()
{
    QTest::addColumn<QString>("factor");
    for (char const * const factor : { "1", "1.25", "1.5", "2", "3.1416" })
        QTest::newRow(factor) << QString::fromLatin1(factor);
}

void tst_vccaption_session::everyDensity()
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

void tst_vccaption_session::unseen()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleStopButton, 20);
    bar.ShowAt(600);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QTRY_VERIFY(bar.m_paints > 0);
    auto const change = [&bar](int i) {
        bar.SetCaptionLeft(QString::number(i));
        bar.SetTimeCaption(1.7e15, 1.7e15 + i);
    };
    for (bool const isMinimised : { true, false }) {
        if (isMinimised)
            bar.showMinimized();
        else
            bar.hide();
        QCoreApplication::processEvents();
        for (int i = 1; i < 2000; ++i) // warm up
            change(i);
        QCoreApplication::processEvents();
        change(1);
        bar.m_paints = 0;
        bar.m_measured = 0;
        long long const before = ResidentSize();
        long long const updates = TestStage::Turns(TestStage::Sanitized() ? 10000 : 100000, 1000000);
        for (int i = 1; i <= updates; ++i) {
            change(i);
            if (!isMinimised && i % 1000 == 0) // the platform of the tests paints minimised windows
                QCoreApplication::processEvents();
        }
        m_unseenGrowth += ResidentSize() - before;
        QCOMPARE(bar.m_paints, 0);
        QCOMPARE(bar.m_measured, 0);
        QVERIFY(!bar.m_pPixmap);
        if (!TestStage::Sanitized()) // the sanitizers keep what was freed
            QVERIFY2(m_unseenGrowth <= 64, QByteArray::number(m_unseenGrowth).constData());
        bar.showNormal();
        QTRY_VERIFY(bar.m_paints > 0);
        QVERIFY(bar.m_pPixmap);
    }
}

void tst_vccaption_session::comesAndGoes()
{
    NewText("text", QStringLiteral("text"));
    ValueSelection const * const zone = GuiBase::Instance().GetTimeZone();
    int const observers = zone->GetObserverCount();
    QWidget parent;
    auto const turn = [&parent](long long number) {
        CaptionProbe bar(&parent, "bar", ChurnStyles[number % 4], 20);
        bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text"));
        bar.SetTimeCaption(1.7e15, 1.7e15 + 1.0);
        Consumer consumer;
        bar.SetWheelConsumer(&consumer);
        bar.slotStopped();
    };
    for (int i = 0; i < 500; ++i) // warm up
        turn(i);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_captions = TestStage::Turns(TestStage::Sanitized() ? 400 : 10000, 2000000);
    long long const before = ResidentSize();
    for (long long i = 0; i < m_captions; ++i)
        turn(i);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_growth = ResidentSize() - before;
    QCOMPARE(zone->GetObserverCount(), observers);
    QCOMPARE(Tree::Instance()->Find(QStringLiteral("/caption/text"))->GetObserverCount(), 0);
    QVERIFY(parent.children().isEmpty());
    if (!TestStage::Sanitized())
        QVERIFY2(m_growth <= 256, QByteArray::number(m_growth).constData());
}

void tst_vccaption_session::cleanupTestCase()
{
    std::printf("figures: deletions=%d pictures=%d unseen_growth_kib=%lld captions=%lld growth_kib=%lld\n", m_runs,
                m_pictures, m_unseenGrowth, m_captions, m_growth);
}

int main(int argc, char * argv[])
{
    TestStage::BeforeApplication();
    QApplication application(argc, argv);
    TestStage::AfterApplication();
    if (argc > 1 && std::strcmp(argv[1], "--child") == 0)
        return Child();
    tst_vccaption_session test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_vccaption_session.moc"
