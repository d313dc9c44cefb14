// SPDX-License-Identifier: MIT
// A session of some hundred steps on an ageing picture with all that it may have. After each (every third in the short
// form) of the calls and notifications that it causes, one at a time, the picture, its axis, its client, the source of
// its background or one of its values is deleted, and the session goes on with what is left.

#include "agedimageaccess.h"
#include "axisbase.h"
#include "guibase.h"
#include "krexception.h"
#include "testmain.h"
#include "valueagedimage.h"
#include "valueselection.h"

#include <QElapsedTimer>
#include <QPointer>

#include <array>
#include <cstdio>
#include <memory>

namespace {

enum ETarget
{
    eActive,
    eSteps,
    eDriver,
    eImage,
    eAxis,
    eClient,
    eServer,
    eAllValues,
    eTargets
};

constexpr std::array<char const *, eTargets> Names{ { "active", "steps", "driver", "picture", "axis", "client",
                                                      "background", "all values" } };

template <class T>
T * ValueOf(ETarget target)
{
    return Tree::Instance()->FindAs<T>(AgedPath(Names[static_cast<std::size_t>(target)]));
}

class Session : public IObserver
{
public:
    //! \param target, when  what to delete after which event; -1 for never.
    Session(int target, int when) : m_target(target), m_when(when)
    {
        PlantAged<Value<bool>>(Names[eActive])->SetValue(true, nullptr);
        auto * const steps = PlantAged<ValueSelection>(Names[eSteps]);
        for (int const seconds : { 0, 4, 25, 30, 700 }) // the last one does not fit
            steps->AddItem(SelectionItem(QString::number(seconds), seconds, seconds));
        PlantAged<ValueAgedImage>(Names[eDriver]);
        Listen();
        m_pClient->m_then = [this] { Count(); };
        m_pServer->m_then = [this] { Count(); };
        m_pImage = new AgedImageAccess(m_pClient.get());
        m_pImage->SetBackgroundColorObject(m_pServer.get());
        m_pAxis = new AxisBase;
    }

    ~Session() override
    {
        m_when = -1;
        delete m_pImage.data();
        delete m_pAxis.data();
        Tree::Instance()->RemoveFolder(QStringLiteral("/aged"));
    }

    //! \return how many events there were.
    int Run();

    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code != eStateChanged)
            Count();
    }

private:
    void Listen();
    void Count();
    void Delete();
    void Step(int step, int round);
    void StepOfValues(int step, int round);
    void StepOfPicture(int step, int round);
    void StepOfPixels(int step, int round);
    void Feed(int round);

    int m_target;
    int m_when;
    int m_count = 0;
    QPointer<AgedImageAccess> m_pImage;
    QPointer<AxisBase> m_pAxis;
    std::unique_ptr<CountingClient> m_pClient = std::make_unique<CountingClient>();
    std::unique_ptr<LineServer> m_pServer = std::make_unique<LineServer>("\xfe\xff\xfe");
};

//! From now on this hears last.
void Session::Listen()
{
    for (ETarget const target : { eActive, eSteps, eDriver })
        if (auto * const value = ValueOf<ValueBase>(target)) {
            value->DeleteObserver(this);
            value->AddObserver(this);
        }
}

void Session::Count()
{
    if (m_count++ == m_when)
        Delete();
}

void Session::Delete()
{
    if (m_target == eImage)
        delete m_pImage.data();
    else if (m_target == eAxis)
        delete m_pAxis.data();
    else if (m_target == eClient)
        m_pClient.reset();
    else if (m_target == eServer)
        m_pServer.reset();
    else if (m_target == eAllValues)
        Tree::Instance()->RemoveFolder(QStringLiteral("/aged"));
    else
        Tree::Instance()->Remove(AgedPath(Names[static_cast<std::size_t>(m_target)]));
}

//! Whoever feeds the picture knows the value alone.
void Session::Feed(int round)
{
    auto const picture = [] {
        auto const * const driver = ValueOf<ValueAgedImage>(eDriver);
        return driver ? driver->GetApplyAgedImage() : nullptr;
    };
    if (IAgedImage * const face = picture())
        face->ensureSize(9 + round, 7);
    if (IAgedImage * const face = picture())
        face->SetPixel(round, round, round);
    if (IAgedImage * const face = picture())
        face->SetCurrentTime(2000000ULL * static_cast<unsigned int>(round + 1));
    if (IAgedImage * const face = picture())
        face->SetCurrentTime(9000000ULL - static_cast<unsigned int>(round));
}

void Session::StepOfValues(int step, int round)
{
    if (auto * const active = step == 0 ? ValueOf<Value<bool>>(eActive) : nullptr)
        active->SetValue(round % 3 != 2, nullptr);
    if (auto * const steps = step == 1 ? ValueOf<ValueSelection>(eSteps) : nullptr)
        steps->SelectIndex(round % 5, nullptr);
    if (auto * const driver = step == 2 ? ValueOf<ValueAgedImage>(eDriver) : nullptr)
        if (m_pImage && driver->HasObserver(m_pImage.data())) // who will take itself back
            driver->SetApplyAgedImage(round % 2 == 0 ? nullptr : m_pImage.data());
    if (step == 3)
        Feed(round);
    if (step == 4)
        Listen();
    if (step == 5)
        GuiBase::Instance().emit_signalColorsChanged();
}

void Session::StepOfPicture(int step, int round)
{
    switch (step) {
    case 6:
        return m_pImage->Tick(m_pImage->SwitchTimer());
    case 7:
        return m_pImage->Tick(m_pImage->UpdateTimer());
    case 8:
        return m_pImage->SetQualitySteps(round % 4);
    case 9:
        return m_pImage->SetSteps(10 * round);
    case 10:
        return m_pImage->Initialize(12, 9 - round, 4, 2, 4, round % 3);
    case 11:
        return m_pImage->resize(10 + round, 9);
    case 12:
        return m_pImage->ClearAll();
    case 13:
        return m_pImage->SetAgeingAxis(round % 2 == 0 ? m_pAxis.data() : nullptr);
    case 14:
        return m_pImage->SetAgeing(true);
    default:
        return m_pImage->SetBackgroundColorObject(round % 4 == 3 ? nullptr : m_pServer.get());
    }
}

void Session::StepOfPixels(int step, int round)
{
    if (step == 16) {
        m_pImage->SetPixel(round, round, round);
        std::vector<unsigned char> bytes(400, static_cast<unsigned char>(round));
        m_pImage->SetPixel(bytes.data(), 0U);
        m_pImage->SetPixel(bytes.data(), 2, 2 * m_pImage->height(), round);
    } else if (step == 17) {
        m_pImage->Clear(static_cast<unsigned char>(round));
    } else if (step == 18) {
        m_pImage->ResetBackground();
    } else if (step == 19) {
        m_pImage->SetAgeingActive_ValuePath(AgedPath(Names[eActive]));
    } else if (step == 20) {
        m_pImage->SetAgeingSteps_ValuePath(round == 4 ? QString() : AgedPath(Names[eSteps]));
    } else {
        m_pImage->Set_ValuePath(round == 3 ? QString() : AgedPath(Names[eDriver]));
    }
}

void Session::Step(int step, int round)
{
    try {
        if (step < 6)
            StepOfValues(step, round);
        else if (step < 16 && m_pImage)
            StepOfPicture(step, round);
        else if (m_pImage)
            StepOfPixels(step, round);
    } catch (KRException const &) { // the choice that does not fit
        Count();
    }
}

int Session::Run()
{
    for (int round = 0; round < 8; ++round)
        for (int step = 0; step < 22; ++step) {
            Step(step, round);
            Count();
            QCoreApplication::sendPostedEvents(nullptr, 0);
        }
    return m_count;
}

} // namespace

class tst_agedimage_session : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { m_time.start(); }

    void deletedAfterEachEvent_data();
    void deletedAfterEachEvent();
    void cleanupTestCase();

private:
    long long m_sessions = 0;
    int m_events = 0;
    QElapsedTimer m_time;
};

void tst_agedimage_session::deletedAfterEachEvent_data()
{
    QTest::addColumn<int>("target");
    for (int target = 0; target < eTargets; ++target)
        QTest::newRow(Names[static_cast<std::size_t>(target)]) << target;
}

void tst_agedimage_session::deletedAfterEachEvent()
{
    QFETCH(int, target);
    m_events = Session(target, -1).Run();
    QVERIFY(m_events > 300);
    int const stride = static_cast<int>(TestStage::Turns(3, 1)); // each target takes other ones
    for (int when = target % stride; when < m_events; when += stride) {
        Session(target, when).Run();
        ++m_sessions;
        QVERIFY(Tree::Instance()->GetPaths(QStringLiteral("/aged")).isEmpty());
    }
}

void tst_agedimage_session::cleanupTestCase()
{
    std::printf("figures: ageing picture: %lld sessions of %d events, each with one deletion, %lld ms\n", m_sessions,
                m_events, static_cast<long long>(m_time.elapsed()));
}

ORIM_TEST_MAIN(tst_agedimage_session)
#include "tst_agedimage_session.moc"
