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
        "all of several watches see the end, whichever left before",
        [] {
            QString seen;
            for (int leaving = 0; leaving < 3; ++leaving) {
                auto life = std::make_unique<Lifetime>();
                std::unique_ptr<LifeWatch> watches[3];
                for (auto & watch : watches)
                    watch = std::make_unique<LifeWatch>(*life);
                watches[leaving].reset();
                life.reset();
                for (auto const & watch : watches)
                    seen += watch ? YesNo(watch->IsOver()) : QStringLiteral("-");
            }
            return seen;
        },
        "-yesyesyes-yesyesyes-");
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
