// SPDX-License-Identifier: MIT
// The picture itself: its size, its background, and how both drivers age it.

#include "agedimageaccess.h"
#include "placeof.h"
#include "testmain.h"

#include <QAbstractEventDispatcher>
#include <QMetaMethod>
#include <QPoint>

#include <climits>
#include <cstddef>
#include <type_traits>

namespace {

class Places : public QObject
{
public:
    static int LastOfQObject() { return PlaceOf(&Places::disconnectNotify); }
};

using Call = std::function<void(AgedImage &)>;

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_AgedImage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void placesOfOperations();
    void startsAsTold();
    void resizes_data();
    void resizes();
    void takesTheMostPixels();
    void noMemoryNoPicture();
    void resizeKeepsOrReplacesThePicture();
    void ensuresASize();
    void clearsAll();
    void initializes();
    void clears_data();
    void clears();
    void clearsToALine_data();
    void clearsToALine();
    void eachClearingTakesTheLine_data();
    void eachClearingTakesTheLine();
    void backgroundIsOnlyStored();
    void resetsTheBackground();
    void debugPatternIsNone();
    void backgroundEndsFirst();
    void pixelLivesAllSteps_data();
    void pixelLivesAllSteps();
    void pixelBeforeTheFirstStep();
    void streamOfTimes_data();
    void streamOfTimes();
    void streamStopsTheClock();
    void lastTimeStays_data();
    void lastTimeStays();
    void timeGoingBackClears();
    void longJumpIsManySteps_data();
    void longJumpIsManySteps();
    void streamWithoutHoldTime();
    void withoutColoursNothingAges();
    void timers();
    void eachHoldTimeAddsATimer();
    void clockRuns();
    void clientMayDeleteThePicture();
    void backgroundMayDeleteThePicture_data();
    void backgroundMayDeleteThePicture();
};

void tst_AgedImage::placesOfOperations()
{
    using I = IAgedImage;
    Indices const told{ PlaceOf(&I::ensureSize),
                        PlaceOf(&I::Initialize),
                        PlaceOf(&I::width),
                        PlaceOf(&I::height),
                        PlaceOf(static_cast<void (I::*)(unsigned char *, int, int, int)>(&I::SetPixel)),
                        PlaceOf(static_cast<void (I::*)(QPoint const &, int)>(&I::SetPixel)),
                        PlaceOf(static_cast<void (I::*)(int, int, int)>(&I::SetPixel)),
                        PlaceOf(&I::SwitchColors),
                        PlaceOf(&I::SetCurrentTime),
                        PlaceOf(&I::ClearAll) };
    QCOMPARE(told, (Indices{ 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 }));
    int const first = Places::LastOfQObject() + 1;
    Indices const added{ PlaceOf(&AgedImage::resize),
                         PlaceOf(static_cast<void (AgedImage::*)(unsigned char *, unsigned int)>(&AgedImage::SetPixel)),
                         PlaceOf(&AgedImage::GetImage), PlaceOf(&AgedImage::SetBackgroundColorObject) };
    QCOMPARE(added, (Indices{ first, first + 1, first + 2, first + 3 }));
    QCOMPARE(PlaceOf(&IAgedImageUpdate::ImageUpdated), 2); // the destructor has two places
    QVERIFY(std::has_virtual_destructor<IAgedImageUpdate>::value);
    QVERIFY((std::is_base_of<QObject, AgedImage>::value));
    QVERIFY((std::is_base_of<IObserver, AgedImage>::value));
    QVERIFY((std::is_base_of<IAgedImage, AgedImage>::value));
}

void tst_AgedImage::startsAsTold()
{
    CountingClient client;
    CountingClient const copy(client); // a client may be copied and assigned
    client = copy;
    AgedImageAccess const image(&client);
    QVERIFY(!const_cast<AgedImageAccess &>(image).GetImage());
    QCOMPARE(image.width(), -1);
    QCOMPARE(image.height(), -1);
    QVERIFY(image.GetAgeing());
    QVERIFY(image.GetDirty());
    QCOMPARE(image.GetSteps(), 4);
    QCOMPARE(image.GetQualitySteps(), 1);
    QCOMPARE(image.GetSwitchTime(), 500);
    QCOMPARE(image.Count(), 8);
    QCOMPARE(image.Sections(), 4);
    QCOMPARE(image.ColorsPerSection(), 2);
    QCOMPARE(image.Position(), 0);
    QCOMPARE(image.Current(), 0);
    QCOMPARE(image.LastTime(), 0ULL);
    QCOMPARE(image.Colors().size(), std::size_t(256));
    QVERIFY(image.SwitchTimer() > 0);
    QVERIFY(image.UpdateTimer() > 0);
    QVERIFY(!image.IsBound());
    QVERIFY(image.Line().empty());
}

void tst_AgedImage::resizes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("size"); // before: 7 x 5
    QTest::newRow("wider") << 9 << 5 << QSize(9, 5);
    QTest::newRow("turned") << 5 << 7 << QSize(5, 7);
    QTest::newRow("the same") << 7 << 5 << QSize(7, 5);
    QTest::newRow("one pixel") << 1 << 1 << QSize(1, 1);
    QTest::newRow("no width") << 0 << 9 << QSize(7, 5);
    QTest::newRow("no height") << 9 << 0 << QSize(7, 5);
    QTest::newRow("neither") << 0 << 0 << QSize(7, 5);
    QTest::newRow("negative width") << -9 << 9 << QSize(7, 5);
    QTest::newRow("both negative") << -9 << -9 << QSize(7, 5);
    QTest::newRow("a product of 0 in 32 bits") << 65536 << 65536 << QSize(7, 5);
    QTest::newRow("highest width") << INT_MAX << 2 << QSize(7, 5);
    QTest::newRow("highest height") << 1 << INT_MAX << QSize(7, 5);
    QTest::newRow("both highest") << INT_MAX << INT_MAX << QSize(7, 5);
    QTest::newRow("both lowest") << INT_MIN << INT_MIN << QSize(7, 5);
    QTest::newRow("one row too many") << 16384 << 16385 << QSize(7, 5);
}

void tst_AgedImage::resizes()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QSize, size);
    AgedImageAccess image(7, 5);
    image.SetPixel(6, 4, 0);
    image.ClearDirty();
    image.resize(width, height);
    QCOMPARE(QSize(image.width(), image.height()), size);
    QCOMPARE(image.GetImage()->size(), size);
    bool const isTaken = size == QSize(width, height);
    QCOMPARE(image.GetDirty(), isTaken);
    QCOMPARE(image.SetPixels(), isTaken ? 0 : 1);
    QCOMPARE(image.GetImage()->format(), QImage::Format_Indexed8);
    QCOMPARE(image.GetImage()->colorCount(), 256);
}

void tst_AgedImage::takesTheMostPixels()
{
    QCOMPARE(AgedImage::m_sMostPixels, 16384LL * 16384);
    AgedImageAccess image(7, 5);
    image.resize(16384, 16384);
    QCOMPARE(image.width(), 16384);
    QCOMPARE(image.height(), 16384);
    image.SetPixel(16383, 16383, 0);
    QCOMPARE(image.At(16383, 16383), 0);
    image.SwitchColors();
    QCOMPARE(image.At(16383, 16383), 255);
}

//! Few enough pixels, but in a row that no QImage holds.
void tst_AgedImage::noMemoryNoPicture()
{
    AgedImageAccess image(7, 5);
    image.resize(1 << 28, 1);
    QVERIFY(!image.GetImage());
    QCOMPARE(image.width(), -1);
    QVERIFY(image.GetDirty()); // the one before is gone
    image.ClearDirty();
    image.resize(1 << 28, 1);
    QVERIFY(!image.GetDirty());
    image.resize(7, 5);
    QCOMPARE(image.SetPixels(), 0);
    QVERIFY(image.GetDirty());
}

void tst_AgedImage::resizeKeepsOrReplacesThePicture()
{
    AgedImageAccess image(7, 5);
    QImage const * const picture = image.GetImage();
    Turn(image, 3);
    image.resize(7, 5);
    QVERIFY(image.GetImage() == picture); // cleared, not made anew
    QCOMPARE(image.Position(), 0);        // the palette is built
    QCOMPARE(image.Current(), 0);
    AgedImageAccess empty;
    empty.resize(0, 5);
    QVERIFY(!empty.GetImage());
    empty.resize(3, 5);
    QCOMPARE(empty.width(), 3);
    QCOMPARE(empty.height(), 5);
}

void tst_AgedImage::ensuresASize()
{
    AgedImageAccess image;
    IAgedImage & face = image;
    face.ensureSize(7, 5);
    QCOMPARE(image.GetImage()->size(), QSize(7, 5));
    image.SetPixel(1, 1, 0);
    face.ensureSize(7, 5);
    QCOMPARE(image.SetPixels(), 1); // as it was
    face.ensureSize(5, 7);
    QCOMPARE(image.GetImage()->size(), QSize(5, 7));
    QCOMPARE(image.SetPixels(), 0);
    face.ensureSize(0, 7);
    QCOMPARE(image.GetImage()->size(), QSize(5, 7));
}

void tst_AgedImage::clearsAll()
{
    AgedImageAccess image(7, 5);
    for (bool const byReset : { false, true }) {
        Turn(image, 3);
        image.SetPixel(1, 1, 0);
        image.ClearDirty();
        if (byReset)
            image.reset();
        else
            image.ClearAll();
        QCOMPARE(image.SetPixels(), 0);
        QCOMPARE(image.GetImage()->size(), QSize(7, 5));
        QCOMPARE(image.Position(), 0);
        QVERIFY(image.GetDirty());
    }
    AgedImageAccess empty;
    empty.ClearDirty();
    empty.ClearAll();
    empty.reset();
    QVERIFY(!empty.GetImage());
    QVERIFY(!empty.GetDirty());
}

void tst_AgedImage::initializes()
{
    AgedImageAccess image;
    image.Initialize(7, 5, 6, 3, 4, 2);
    QCOMPARE(image.GetImage()->size(), QSize(7, 5));
    QCOMPARE(image.SetPixels(), 0);
    QCOMPARE(image.GetQualitySteps(), 2);
    QCOMPARE(image.Sections(), 4);
    QCOMPARE(image.ColorsPerSection(), 3);
    QCOMPARE(image.Count(), 12);
    QCOMPARE(image.GetSwitchTime(), 500);
    QCOMPARE(image.GetSteps(), 4); // the hold time that the user chose is another matter
    // the hold time is set with the quality steps before: 2 * 4 * 32 do not fit, and are halved
    image.Initialize(7, 5, 128, 32, 4, 1);
    QCOMPARE(image.ColorsPerSection(), 16);
    QCOMPARE(image.GetSwitchTime(), 2000);
    QCOMPARE(image.Count(), 64);
    image.SetPixel(1, 1, 0);
    image.Initialize(0, 5, 6, 3, 4, 2); // no such picture: all but the size
    QCOMPARE(image.GetImage()->size(), QSize(7, 5));
    QCOMPARE(image.Count(), 12);
    QCOMPARE(image.SetPixels(), 0);
}

void tst_AgedImage::clears_data()
{
    QTest::addColumn<int>("qualitySteps"); // blocks of 8
    QTest::addColumn<int>("index");
    QTest::addColumn<Indices>("row"); // was 0 6 7 8 14 22 253 254 255
    int const o = 255;
    QTest::newRow("one block: the index") << 1 << 6 << Indices{ 0, o, 7, 8, 14, 22, 253, 254, o };
    QTest::newRow("no block is one") << 0 << 6 << Indices{ 0, o, 7, 8, 14, 22, 253, 254, o };
    QTest::newRow("one block: beyond it") << 1 << 22 << Indices{ 0, 6, 7, 8, 14, o, 253, 254, o };
    QTest::newRow("one block: the marker") << 1 << 254 << Indices{ 0, 6, 7, 8, 14, 22, 253, o, o };
    QTest::newRow("two blocks: in both") << 2 << 0 << Indices{ o, 6, 7, o, 14, 22, 253, 254, o };
    QTest::newRow("two blocks: and wherever it is left") << 2 << 6 << Indices{ 0, o, 7, 8, o, o, 253, o, o };
    QTest::newRow("two blocks: beyond the first") << 2 << 14 << Indices{ 0, 6, 7, 8, 14, 22, 253, 254, o };
    QTest::newRow("255 is everything") << 2 << 255 << Indices(9, o);
}

void tst_AgedImage::clears()
{
    QFETCH(int, qualitySteps);
    QFETCH(int, index);
    QFETCH(Indices, row);
    AgedImageAccess image(9, 2, qualitySteps);
    Indices const before{ 0, 6, 7, 8, 14, 22, 253, 254, 255 };
    for (int x = 0; x < 9; ++x)
        for (int y = 0; y < 2; ++y)
            image.GetImage()->setPixel(x, y, static_cast<unsigned int>(before[x]));
    image.ClearDirty();
    image.Clear(static_cast<unsigned char>(index));
    QCOMPARE(RowOf(image, 0), row);
    QCOMPARE(RowOf(image, 1), row);
    QVERIFY(image.GetDirty());
    QCOMPARE(image.Line(), std::string(9, '\xff'));
    AgedImageAccess empty;
    empty.ClearDirty();
    empty.Clear(static_cast<unsigned char>(index));
    QVERIFY(!empty.GetDirty());
}

void tst_AgedImage::clearsToALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("qualitySteps"); // blocks of 8
    QTest::addColumn<int>("index");
    QTest::addColumn<Indices>("row"); // was 0 6 0 6 14
    QTest::newRow("an index takes its column")
        << QByteArray("\xfe\xfd\xfc\x05\x06", 5) << 1 << 6 << Indices{ 0, 0xfd, 0, 5, 14 };
    QTest::newRow("everything takes it") << QByteArray("\xfe\xfd\xfc\x05\x06", 5) << 1 << 255
                                         << Indices{ 0xfe, 0xfd, 0xfc, 5, 6 };
    QTest::newRow("a shorter line") << QByteArray("\xfe\xfd") << 1 << 255 << Indices{ 0xfe, 0xfd, 255, 255, 255 };
    QTest::newRow("a shorter line, for an index") << QByteArray("\xfe\xfd") << 1 << 6 << Indices{ 0, 0xfd, 0, 255, 14 };
    QTest::newRow("no line") << QByteArray() << 1 << 255 << Indices{ 255, 255, 255, 255, 255 };
    QTest::newRow("a longer line") << QByteArray(70000, '\xfe') << 1 << 255 << Indices(5, 254);
    QTest::newRow("two blocks: an index takes its column in both")
        << QByteArray("\xfe\xfd\xfc\x05\xfa", 5) << 2 << 6 << Indices{ 0, 0xfd, 0, 5, 0xfa };
    QTest::newRow("two blocks: everything takes it")
        << QByteArray("\xfe\xfd\xfc\x05\xfa", 5) << 2 << 255 << Indices{ 0xfe, 0xfd, 0xfc, 5, 0xfa };
}

void tst_AgedImage::clearsToALine()
{
    QFETCH(QByteArray, line);
    QFETCH(int, qualitySteps);
    QFETCH(int, index);
    QFETCH(Indices, row);
    AgedImageAccess image(5, 3, qualitySteps);
    Indices const before{ 0, 6, 0, 6, 14 };
    for (int x = 0; x < 5; ++x)
        for (int y = 0; y < 3; ++y)
            image.GetImage()->setPixel(x, y, static_cast<unsigned int>(before[x]));
    LineServer server(line.toStdString());
    image.SetBackgroundColorObject(&server);
    image.Clear(static_cast<unsigned char>(index));
    for (int y = 0; y < 3; ++y)
        QCOMPARE(RowOf(image, y), row);
    QCOMPARE(server.m_asked, 1);
    QCOMPARE(server.m_width, 5);
    QCOMPARE(image.Line().size(), std::size_t(5));
}

void tst_AgedImage::eachClearingTakesTheLine_data()
{
    QTest::addColumn<Call>("call"); // 7 x 5 pixels before
    QTest::addColumn<QSize>("size");
    QSize const kept(7, 5);
    QTest::newRow("resize") << Call([](AgedImage & image) { image.resize(9, 9); }) << QSize(9, 9);
    QTest::newRow("resize to the same") << Call([](AgedImage & image) { image.resize(7, 5); }) << kept;
    QTest::newRow("Initialize") << Call([](AgedImage & image) { image.Initialize(9, 9, 4, 2, 4, 2); }) << QSize(9, 9);
    QTest::newRow("SetSteps") << Call([](AgedImage & image) { image.SetSteps(9); }) << kept;
    QTest::newRow("SetQualitySteps") << Call([](AgedImage & image) { image.SetQualitySteps(2); }) << kept;
    QTest::newRow("SetHoldTime") << Call([](AgedImage & image) { image.SetHoldTime(4, 2, 4); }) << kept;
    QTest::newRow("ClearAll") << Call([](AgedImage & image) { image.ClearAll(); }) << kept;
    QTest::newRow("reset") << Call([](AgedImage & image) { image.reset(); }) << kept;
    QTest::newRow("time going back") << Call([](AgedImage & image) {
        image.SetCurrentTime(5000000);
        image.SetCurrentTime(1000000);
    }) << kept;
}

void tst_AgedImage::eachClearingTakesTheLine()
{
    QFETCH(Call, call);
    QFETCH(QSize, size);
    AgedImageAccess image(7, 5);
    LineServer server("\xfe\xfd\xfc\xfb\xfa\xf9\xf8\xf7\xf6");
    image.SetBackgroundColorObject(&server);
    image.SetPixel(1, 1, 0);
    call(image);
    QCOMPARE(image.GetImage()->size(), size);
    Indices line;
    for (int x = 0; x < size.width(); ++x)
        line.append(254 - x);
    for (int y = 0; y < size.height(); ++y)
        QCOMPARE(RowOf(image, y), line);
}

void tst_AgedImage::backgroundIsOnlyStored()
{
    AgedImageAccess image(5, 2);
    LineServer server("\xfe\xfe\xfe\xfe\xfe");
    image.SetBackgroundColorObject(&server);
    QCOMPARE(server.m_asked, 0);
    QVERIFY(!image.GetDirty());
    QCOMPARE(RowOf(image, 0), Indices(5, 255));
    image.SetBackgroundColorObject(nullptr);
    image.Clear(255);
    QCOMPARE(RowOf(image, 0), Indices(5, 255));
    QCOMPARE(server.m_asked, 0);
}

void tst_AgedImage::resetsTheBackground()
{
    AgedImageAccess image(5, 2);
    Indices const before{ 0, 253, 254, 255, 255 };
    for (int x = 0; x < 5; ++x)
        for (int y = 0; y < 2; ++y)
            image.GetImage()->setPixel(x, y, static_cast<unsigned int>(before[x]));
    image.ResetBackground();
    QCOMPARE(RowOf(image, 0), before); // without a source of it
    QVERIFY(!image.GetDirty());
    LineServer server("\x01\x02\x03\xfe");
    image.SetBackgroundColorObject(&server);
    image.ResetBackground();
    QCOMPARE(RowOf(image, 0), (Indices{ 0, 253, 3, 254, 255 }));
    QCOMPARE(RowOf(image, 1), (Indices{ 0, 253, 3, 254, 255 }));
    QVERIFY(image.GetDirty());
    QCOMPARE(server.m_asked, 1);
    AgedImageAccess empty;
    empty.SetBackgroundColorObject(&server);
    empty.ClearDirty();
    empty.ResetBackground();
    QVERIFY(!empty.GetDirty());
    QCOMPARE(server.m_asked, 1);
}

void tst_AgedImage::debugPatternIsNone()
{
    AgedImageAccess image(5, 2);
    image.SetDebugPattern();
    QCOMPARE(image.SetPixels(), 0);
    QVERIFY(!image.GetDirty());
}

void tst_AgedImage::backgroundEndsFirst()
{
    AgedImageAccess image(5, 2);
    auto server = std::make_unique<LineServer>("\xfe\xfe\xfe\xfe\xfe");
    image.SetBackgroundColorObject(server.get());
    image.Clear(255);
    QCOMPARE(RowOf(image, 0), Indices(5, 254));
    server.reset();
    image.ResetBackground();
    QCOMPARE(RowOf(image, 0), Indices(5, 254));
    image.Clear(255);
    QCOMPARE(RowOf(image, 0), Indices(5, 255));
}

void tst_AgedImage::pixelLivesAllSteps_data()
{
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<int>("turns");
    for (int const qualitySteps : { 1, 2, 3 })
        for (int const turns : { 1, 2, 5, 8, 9 })
            QTest::addRow("%d blocks, from step %d on", qualitySteps, turns) << qualitySteps << turns;
}

void tst_AgedImage::pixelLivesAllSteps()
{
    QFETCH(int, qualitySteps);
    QFETCH(int, turns);
    AgedImageAccess image(7, 5, qualitySteps);
    Turn(image, turns);
    for (int quality = 0; quality < qualitySteps; ++quality)
        image.SetPixel(quality, 4, quality);
    for (int step = 0; step < 8; ++step) {
        for (int quality = 0; quality < qualitySteps; ++quality) {
            auto const age = static_cast<std::size_t>(8 * quality + 7 - step); // the newest colour first
            QCOMPARE(image.GetImage()->pixel(quality, 4), image.Colors()[age]);
        }
        image.ClearDirty();
        image.SwitchColors();
        QVERIFY(image.GetDirty());
    }
    QCOMPARE(image.SetPixels(), 0);
}

void tst_AgedImage::pixelBeforeTheFirstStep()
{
    AgedImageAccess image(7, 5);
    image.SetPixel(3, 3, 0);
    QCOMPARE(image.GetImage()->pixel(3, 3), image.Colors()[0]); // the oldest
    image.SwitchColors();
    QCOMPARE(image.SetPixels(), 0);
    QCOMPARE(image.Position(), 7);
    QCOMPARE(image.Current(), 0);
    image.SwitchColors();
    QCOMPARE(image.Position(), 6);
    QCOMPARE(image.Current(), 7);
}

void tst_AgedImage::streamOfTimes_data()
{
    QTest::addColumn<QVector<quint64>>("times"); // us; a step is 500 ms
    QTest::addColumn<QVector<int>>("switches");  // up to each time
    QTest::addColumn<quint64>("last");           // ms
    using Times = QVector<quint64>;
    using Counts = QVector<int>;
    QTest::newRow("the first is only stored") << Times{ 9000000 } << Counts{ 0 } << quint64(9000);
    QTest::newRow("below 1 ms is none") << Times{ 999, 9000000, 9500000 } << Counts{ 0, 0, 1 } << quint64(9500);
    QTest::newRow("a step") << Times{ 1000000, 1500000 } << Counts{ 0, 1 } << quint64(1500);
    QTest::newRow("less than a step is not stored") << Times{ 1000000, 1499999 } << Counts{ 0, 0 } << quint64(1000);
    QTest::newRow("small steps add up") << Times{ 1000000, 1200000, 1400000, 1600000, 1999999, 2100000 }
                                        << Counts{ 0, 0, 0, 1, 1, 2 } << quint64(2100);
    QTest::newRow("what is over is dropped")
        << Times{ 1000000, 1900000, 2000000 } << Counts{ 0, 1, 1 } << quint64(1900);
    QTest::newRow("several steps at once") << Times{ 1000000, 2600000 } << Counts{ 0, 3 } << quint64(2600);
    QTest::newRow("the same time") << Times{ 1000000, 1000000 } << Counts{ 0, 0 } << quint64(1000);
    QTest::newRow("back, without a step") << Times{ 5000000, 1000000, 1500000 } << Counts{ 0, 0, 1 } << quint64(1500);
    QTest::newRow("back to none") << Times{ 5000000, 0, 900000000, 900500000 } << Counts{ 0, 0, 0, 1 }
                                  << quint64(900500);
    QTest::newRow("ms beyond an int") << Times{ 1760000000000000ULL, 1760000000500000ULL } << Counts{ 0, 1 }
                                      << quint64(1760000000500ULL);
    QTest::newRow("the highest time") << Times{ 1000, ~quint64(0) }
                                      << Counts{ 0, 8 + static_cast<int>(18446744073709550ULL / 500 % 8) }
                                      << quint64(18446744073709551ULL);
}

void tst_AgedImage::streamOfTimes()
{
    QFETCH(QVector<quint64>, times);
    QFETCH(QVector<int>, switches);
    AgedImageAccess image(7, 5);
    for (int i = 0; i < times.size(); ++i) {
        int const before = image.m_switches;
        image.ClearDirty();
        image.SetCurrentTime(times[i]);
        QCOMPARE(image.m_switches, switches[i]);
        QVERIFY(image.GetDirty() || image.m_switches == before);
    }
    QTEST(static_cast<quint64>(image.LastTime()), "last");
}

void tst_AgedImage::streamStopsTheClock()
{
    AgedImageAccess image(7, 5);
    int const clock = image.SwitchTimer();
    image.SetCurrentTime(0); // even this one
    QCOMPARE(image.SwitchTimer(), -1);
    auto const timers = QAbstractEventDispatcher::instance()->registeredTimers(&image);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().timerId, image.UpdateTimer());
    image.Tick(clock);
    QCOMPARE(image.m_switches, 0);
    image.SetQualitySteps(2);
    QCOMPARE(image.SwitchTimer(), -1);
    image.SetHoldTime(4, 2, 4);
    QVERIFY(image.SwitchTimer() > 0);
}

void tst_AgedImage::lastTimeStays_data()
{
    QTest::addColumn<Call>("call"); // between two times
    QTest::newRow("SetHoldTime") << Call([](AgedImage & image) { image.SetHoldTime(4, 2, 4); });
    QTest::newRow("SetSteps") << Call([](AgedImage & image) { image.SetSteps(4); });
    QTest::newRow("SetQualitySteps") << Call([](AgedImage & image) { image.SetQualitySteps(2); });
    QTest::newRow("resize") << Call([](AgedImage & image) { image.resize(9, 9); });
    QTest::newRow("Initialize") << Call([](AgedImage & image) { image.Initialize(9, 9, 4, 2, 4, 1); });
    QTest::newRow("ClearAll") << Call([](AgedImage & image) { image.ClearAll(); });
    QTest::newRow("SetAgeing") << Call([](AgedImage & image) { image.SetAgeing(false); });
}

void tst_AgedImage::lastTimeStays()
{
    QFETCH(Call, call);
    AgedImageAccess image(7, 5);
    image.SetCurrentTime(1000000);
    call(image);
    QCOMPARE(image.LastTime(), 1000ULL);
    image.m_switches = 0;
    image.SetCurrentTime(1500000);
    QCOMPARE(image.m_switches, 1);
}

void tst_AgedImage::timeGoingBackClears()
{
    AgedImageAccess image(7, 5);
    Turn(image, 3);
    image.SetCurrentTime(5000000);
    image.SetPixel(1, 1, 0);
    int const position = image.Position();
    image.ClearDirty();
    image.SetCurrentTime(4999999); // 4999 ms
    QCOMPARE(image.SetPixels(), 0);
    QCOMPARE(image.Position(), position);
    QVERIFY(image.GetDirty());
}

void tst_AgedImage::longJumpIsManySteps_data()
{
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<int>("steps");
    for (int const qualitySteps : { 1, 3 })
        for (int const steps : { 1, 7, 8, 9, 15, 16, 17, 80, 1003 })
            QTest::addRow("%d blocks, %d steps", qualitySteps, steps) << qualitySteps << steps;
}

void tst_AgedImage::longJumpIsManySteps()
{
    QFETCH(int, qualitySteps);
    QFETCH(int, steps);
    AgedImageAccess jumping(8, 5, qualitySteps);
    AgedImageAccess stepping(8, 5, qualitySteps);
    for (AgedImageAccess * const image : { &jumping, &stepping })
        for (int i = 0; i < 8; ++i) { // pixels of all ages
            image->SwitchColors();
            image->SetPixel(i, i % 5, i % 3);
        }
    jumping.SetCurrentTime(1000000);
    jumping.m_switches = 0;
    jumping.SetCurrentTime(1000000 + 500000ULL * static_cast<unsigned int>(steps));
    Turn(stepping, steps);
    QCOMPARE(jumping.m_switches, steps <= 8 ? steps : 8 + steps % 8);
    QCOMPARE(jumping.Position(), stepping.Position());
    QCOMPARE(jumping.Current(), stepping.Current());
    QCOMPARE(*jumping.GetImage(), *stepping.GetImage());
    QVERIFY(jumping.GetImage()->colorTable() == stepping.GetImage()->colorTable());
}

void tst_AgedImage::streamWithoutHoldTime()
{
    AgedImageAccess image(7, 5);
    image.SetSteps(0);
    QCOMPARE(image.GetSwitchTime(), 0);
    image.SetPixel(1, 1, 0);
    for (unsigned long long const time : { 1000000ULL, 2000000ULL, 1760000000000000ULL, ~0ULL })
        image.SetCurrentTime(time);
    QCOMPARE(image.m_switches, 0);
    QCOMPARE(image.SetPixels(), 1);
    QCOMPARE(image.LastTime(), 1000ULL); // what has passed adds up
    image.SetHoldTime(-4, 2, 4);
    QCOMPARE(image.GetSwitchTime(), -500);
    QCOMPARE(image.SwitchTimer(), -1);
    image.SetCurrentTime(~0ULL);
    QCOMPARE(image.m_switches, 0);
}

void tst_AgedImage::withoutColoursNothingAges()
{
    AgedImageAccess image(7, 5);
    image.SetHoldTime(4, 0, 0);
    QCOMPARE(image.Count(), 0);
    for (int const qualitySteps : { 1, 2, 300 }) {
        image.SetQualitySteps(qualitySteps);
        image.SetPixel(1, 1, 0);
        image.SetPixel(2, 2, -1);
        QCOMPARE(image.SetPixels(), 2);
        image.SwitchColors();
        QCOMPARE(image.SetPixels(), 2);
        QCOMPARE(image.Position(), 0);
        QCOMPARE(image.Current(), 0);
        image.SetCurrentTime(1000000);
        image.SetCurrentTime(900000000);
        QCOMPARE(image.SetPixels(), 2);
        image.Clear(255);
        QCOMPARE(image.SetPixels(), 0);
    }
}

void tst_AgedImage::timers()
{
    CountingClient client;
    AgedImageAccess image(&client);
    image.resize(7, 5);
    image.ClearDirty();
    image.Tick(image.SwitchTimer());
    QCOMPARE(image.m_switches, 1);
    QVERIFY(image.GetDirty());
    image.ClearDirty();
    image.Tick(image.UpdateTimer());
    QCOMPARE(client.m_asked, 1);
    QVERIFY(client.m_pLast == &image);
    QVERIFY(!image.GetDirty()); // whether it is dirty or not
    image.Tick(-1);
    image.Tick(0);
    QCOMPARE(image.m_switches, 1);
    QCOMPARE(client.m_asked, 1);
    image.SetAgeing(false);
    image.Tick(image.SwitchTimer());
    image.Tick(image.UpdateTimer());
    QCOMPARE(image.m_switches, 1);
    QCOMPARE(client.m_asked, 1);
    AgedImageAccess alone;
    alone.Tick(alone.UpdateTimer()); // nobody to ask
    auto departing = std::make_unique<CountingClient>();
    AgedImageAccess left(departing.get());
    departing.reset();
    left.Tick(left.UpdateTimer());
}

void tst_AgedImage::eachHoldTimeAddsATimer()
{
    CountingClient client;
    AgedImageAccess image(&client);
    auto const timers = [&image] { return QAbstractEventDispatcher::instance()->registeredTimers(&image); };
    QCOMPARE(timers().size(), 2);
    int const firstUpdate = image.UpdateTimer();
    image.SetHoldTime(3, 1, 1);
    QCOMPARE(timers().size(), 3);
    QVERIFY(image.UpdateTimer() != firstUpdate);
    image.Tick(firstUpdate);
    QCOMPARE(client.m_asked, 0); // only the newest counts
    image.Tick(image.UpdateTimer());
    QCOMPARE(client.m_asked, 1);
    int switches = 0;
    int updates = 0;
    for (auto const & timer : timers()) {
        switches += timer.timerId == image.SwitchTimer() && timer.interval == 3000 ? 1 : 0;
        updates += timer.interval == 200 ? 1 : 0;
    }
    QCOMPARE(switches, 1);
    QCOMPARE(updates, 2);
    image.SetHoldTime(0, 1, 1); // no clock
    QCOMPARE(image.SwitchTimer(), -1);
    QCOMPARE(timers().size(), 3);
}

void tst_AgedImage::clockRuns()
{
    CountingClient client;
    AgedImageAccess image(&client);
    image.resize(7, 5);
    image.SetHoldTime(1, 10, 2); // 50 ms
    QTRY_VERIFY(image.m_switches >= 3);
    QTRY_VERIFY(client.m_asked >= 2);
}

void tst_AgedImage::clientMayDeleteThePicture()
{
    CountingClient client;
    auto * const image = new AgedImageAccess(&client);
    QPointer<AgedImage> const watch(image);
    client.m_then = [image] { delete image; };
    image->Tick(image->UpdateTimer());
    QVERIFY(!watch);
    QCOMPARE(client.m_asked, 1);
}

void tst_AgedImage::backgroundMayDeleteThePicture_data()
{
    QTest::addColumn<Call>("call");
    QTest::newRow("Clear") << Call([](AgedImage & image) { image.Clear(3); });
    QTest::newRow("ResetBackground") << Call([](AgedImage & image) { image.ResetBackground(); });
    QTest::newRow("resize") << Call([](AgedImage & image) { image.resize(9, 9); });
    QTest::newRow("Initialize") << Call([](AgedImage & image) { image.Initialize(9, 9, 4, 2, 4, 2); });
    QTest::newRow("SetSteps") << Call([](AgedImage & image) { image.SetSteps(9); });
    QTest::newRow("SetQualitySteps") << Call([](AgedImage & image) { image.SetQualitySteps(2); });
    QTest::newRow("SetHoldTime") << Call([](AgedImage & image) { image.SetHoldTime(4, 2, 4); });
    QTest::newRow("SwitchColors") << Call([](AgedImage & image) { image.SwitchColors(); });
    QTest::newRow("a jump in time") << Call([](AgedImage & image) { image.SetCurrentTime(9000000); });
    QTest::newRow("time going back") << Call([](AgedImage & image) { image.SetCurrentTime(1000); });
    QTest::newRow("ClearAll") << Call([](AgedImage & image) { image.ClearAll(); });
}

void tst_AgedImage::backgroundMayDeleteThePicture()
{
    QFETCH(Call, call);
    QPointer<AgedImageAccess> const image(new AgedImageAccess(7, 5));
    image->SetCurrentTime(5000000);
    LineServer server;
    server.m_then = [&image] { delete image.data(); };
    image->SetBackgroundColorObject(&server);
    call(*image);
    QVERIFY(!image);
    QCOMPARE(server.m_asked, 1);
}

ORIM_TEST_MAIN(tst_AgedImage)
#include "tst_agedimage.moc"
