// SPDX-License-Identifier: MIT
#include "flaglayout.h"
#include "testmain.h"

#include <random>

class tst_FlagLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uprightFlags_data();
    void uprightFlags();
    void levelFlags_data();
    void levelFlags();
    void flagsAreNeitherCutNorCovered_data();
    void flagsAreNeitherCutNorCovered();
};

using Flags = std::vector<FlagLayout::Flag>;
using Rects = std::vector<QRect>;

Q_DECLARE_METATYPE(Flags)
Q_DECLARE_METATYPE(Rects)

namespace {

constexpr int Gap = 2; // px

} // namespace

void tst_FlagLayout::uprightFlags_data()
{
    QTest::addColumn<Flags>("flags");
    QTest::addColumn<QRect>("room");
    QTest::addColumn<Rects>("places");
    QRect const room(10, 20, 200, 60);
    QSize const size(50, 14);
    QTest::newRow("none") << Flags{} << room << Rects{};
    QTest::newRow("right of its line, at the top") << Flags{ { 100, size } } << room << Rects{ { 103, 20, 50, 14 } };
    QTest::newRow("last place at the right") << Flags{ { 157, size } } << room << Rects{ { 160, 20, 50, 14 } };
    QTest::newRow("left of its line where it would be cut")
        << Flags{ { 158, size } } << room << Rects{ { 106, 20, 50, 14 } };
    QTest::newRow("left of the line at the right edge")
        << Flags{ { 209, size } } << room << Rects{ { 157, 20, 50, 14 } };
    QTest::newRow("the line at the left edge") << Flags{ { 10, size } } << room << Rects{ { 13, 20, 50, 14 } };
    QTest::newRow("two beside each other")
        << Flags{ { 20, size }, { 100, size } } << room << Rects{ { 23, 20, 50, 14 }, { 103, 20, 50, 14 } };
    QTest::newRow("the second goes left before it goes down")
        << Flags{ { 100, size }, { 95, size } } << room << Rects{ { 103, 20, 50, 14 }, { 43, 20, 50, 14 } };
    QTest::newRow("the third goes down") << Flags{ { 100, size }, { 98, size }, { 99, size } } << room
                                         << Rects{ { 103, 20, 50, 14 }, { 46, 20, 50, 14 }, { 102, 36, 50, 14 } };
    QTest::newRow("one without a size has no place")
        << Flags{ { 100, QSize() }, { 98, size } } << room << Rects{ {}, { 101, 20, 50, 14 } };
    QTest::newRow("too wide for both sides") << Flags{ { 100, { 120, 14 } } } << room << Rects{ {} };
    QTest::newRow("too high") << Flags{ { 100, { 50, 61 } } } << room << Rects{ {} };
    QTest::newRow("no room left") << Flags{ { 100, { 50, 50 } }, { 100, { 50, 50 } }, { 100, { 50, 50 } } } << room
                                  << Rects{ { 103, 20, 50, 50 }, { 48, 20, 50, 50 }, {} };
    QTest::newRow("no room at all") << Flags{ { 100, size } } << QRect() << Rects{ {} };
}

void tst_FlagLayout::uprightFlags()
{
    QFETCH(Flags, flags);
    QFETCH(QRect, room);
    QFETCH(Rects, places);
    QVERIFY(FlagLayout::LayOnUprights(flags, room, Gap) == places);
}

void tst_FlagLayout::levelFlags_data()
{
    QTest::addColumn<Flags>("flags");
    QTest::addColumn<Rects>("places");
    QSize const size(50, 14);
    QTest::newRow("at the height of its line") << Flags{ { 100, size } } << Rects{ { 10, 93, 50, 14 } };
    QTest::newRow("at the upper edge it stays inside") << Flags{ { 20, size } } << Rects{ { 10, 20, 50, 14 } };
    QTest::newRow("at the lower edge too") << Flags{ { 219, size } } << Rects{ { 10, 206, 50, 14 } };
    QTest::newRow("the second stands below where that is nearer")
        << Flags{ { 100, size }, { 104, size } } << Rects{ { 10, 93, 50, 14 }, { 10, 109, 50, 14 } };
    QTest::newRow("and above where that is")
        << Flags{ { 100, size }, { 96, size } } << Rects{ { 10, 93, 50, 14 }, { 10, 77, 50, 14 } };
    QTest::newRow("too wide") << Flags{ { 100, { 101, 14 } } } << Rects{ {} };
}

void tst_FlagLayout::levelFlags()
{
    QFETCH(Flags, flags);
    QFETCH(Rects, places);
    QVERIFY(FlagLayout::LayOnLevels(flags, QRect(10, 20, 100, 200), Gap) == places);
}

void tst_FlagLayout::flagsAreNeitherCutNorCovered_data()
{
    QTest::addColumn<bool>("upright");
    QTest::newRow("on upright lines") << true;
    QTest::newRow("on level lines") << false;
}

void tst_FlagLayout::flagsAreNeitherCutNorCovered()
{
    QFETCH(bool, upright);
    std::mt19937_64 random(TestStage::Seed());
    auto const below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned int>(end)); };
    int placed = 0;
    for (int turn = 0; turn < 3000; ++turn) {
        QRect const room(below(20), below(20), below(400), below(300));
        Flags flags;
        for (int count = below(6); count > 0; --count)
            flags.push_back({ below(450) - 10, { below(120), 10 + below(30) } });
        Rects const places =
            upright ? FlagLayout::LayOnUprights(flags, room, Gap) : FlagLayout::LayOnLevels(flags, room, Gap);
        QCOMPARE(places.size(), flags.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (places[i].isNull())
                continue;
            ++placed;
            QVERIFY(room.contains(places[i]));
            QCOMPARE(places[i].size(), flags[i].size);
            for (std::size_t other = 0; other < i; ++other)
                QVERIFY(!places[other].intersects(places[i].adjusted(-Gap, -Gap, Gap, Gap)));
        }
    }
    QVERIFY(placed > 1000);
}

ORIM_CORE_TEST_MAIN(tst_FlagLayout)
#include "tst_flaglayout.moc"
