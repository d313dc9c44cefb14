// SPDX-License-Identifier: MIT
#include "lifetime.h"

#include "scene.h"
#include "testmain.h"

#include <memory>

class tst_lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void watches_data();

    void watches() { PlayScene(); }
};

void tst_lifetime::watches_data()
{
    SceneColumns();
    SceneRow(
        "a watch sees the end",
        [] {
            auto life = std::make_unique<Lifetime>();
            LifeWatch const watch(*life);
            bool const before = watch.IsOver();
            life.reset();
            return YesNo(before) + YesNo(watch.IsOver());
        },
        "noyes");
    SceneRow(
        "a watch on nothing is over", [] { return YesNo(LifeWatch().IsOver()); }, "yes");
    SceneRow(
        "those of several watches that are left see the end, whichever left before",
        [] {
            int wrong = 0;
            for (int first = 0; first < 4; ++first)
                for (int second = 0; second < 4; ++second) {
                    auto life = std::make_unique<Lifetime>();
                    std::unique_ptr<LifeWatch> watches[4];
                    for (auto & watch : watches)
                        watch = std::make_unique<LifeWatch>(*life);
                    watches[first].reset();
                    watches[second].reset();
                    life.reset();
                    for (auto const & watch : watches)
                        wrong += watch && !watch->IsOver() ? 1 : 0;
                }
            return QString::number(wrong);
        },
        "0");
    SceneRow(
        "the end of a copy is not the end of its source",
        [] {
            Lifetime const one;
            LifeWatch const watch(one);
            {
                Lifetime const two(one);
            }
            return YesNo(watch.IsOver());
        },
        "no");
    SceneRow(
        "a copied watch watches by itself",
        [] {
            auto life = std::make_unique<Lifetime>();
            auto first = std::make_unique<LifeWatch>(*life);
            LifeWatch const second(*first);
            first.reset();
            bool const before = second.IsOver();
            life.reset();
            return YesNo(before) + YesNo(second.IsOver());
        },
        "noyes");
    SceneRow(
        "an assigned watch changes over",
        [] {
            auto one = std::make_unique<Lifetime>();
            auto two = std::make_unique<Lifetime>();
            LifeWatch watch(*one);
            watch = LifeWatch(*two);
            one.reset();
            bool const before = watch.IsOver();
            two.reset();
            return YesNo(before) + YesNo(watch.IsOver());
        },
        "noyes");
    SceneRow(
        "a copy of a lifetime is a life of its own",
        [] {
            auto one = std::make_unique<Lifetime>();
            LifeWatch const watch(*one);
            auto two = std::make_unique<Lifetime>(*one);
            LifeWatch const other(*two);
            *two = *one;
            one.reset();
            return YesNo(watch.IsOver()) + YesNo(other.IsOver());
        },
        "yesno");
}

ORIM_CORE_TEST_MAIN(tst_lifetime)
#include "tst_lifetime.moc"
