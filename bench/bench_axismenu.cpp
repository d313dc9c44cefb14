// SPDX-License-Identifier: MIT
// Opening the context menu of an axis with ten markers: asking for it, as a right click does, twice; bringing it up to
// date; and showing it. The limit is a plain menu of the same items.

#include "axisbase.h"
#include "marker.h"
#include "resortpopupmenu.h"

#include <QIcon>
#include <QPixmap>

#include <benchmark/benchmark.h>

namespace {

constexpr int Rulers = 10;

//! A pane of markers without a scale.
class Pane : public MarkerList
{
public:
    double PixelToValue(int /*direction*/, int /*pixel*/) override { return -1.0; }

    int ValueToPixel(int /*direction*/, double /*value*/) override { return -1; }

    void RepairDrawing() override {}

    void GetCurrentStartStop(int /*direction*/, double & start, double & stop) override { start = stop = 0.0; }
};

void AddRulers(MarkerList & list)
{
    for (int index = 0; index < Rulers; ++index)
        list.AddMarker(index, index % 2 == 0, IColorBase::eColorMarker, true, eSpecialInMenu,
                       QStringLiteral("Ruler %1").arg(index))
            ->SetRect(QRect(index, 0, 1, 20));
}

class Scene
{
public:
    Scene()
    {
        AddRulers(m_pane);
        AddRulers(m_axis);
        m_axis.SetMenuMarkerPane(&m_pane);
        m_axis.SetAxisZoomEnable(true, true);
        m_axis.SetRange(0.0, 100.0);
    }

    Pane m_pane;
    AxisBase m_axis;
};

void Show(QMenu & menu)
{
    menu.popup(QPoint(5, 5));
    benchmark::DoNotOptimize(menu.isVisible());
    menu.close();
}

void Ours(benchmark::State & state)
{
    Scene scene;
    scene.m_axis.SetCurrentXYMenu(state.range(0) == 0 ? QPoint(90, 5) : QPoint(2, 5));
    for (auto _ : state) {
        benchmark::DoNotOptimize(scene.m_axis.GetContextMenu());
        Show(*scene.m_axis.GetContextMenu());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void AddItems(QMenu & menu, int rulers, QIcon const & icon)
{
    for (int index = 0; index < rulers; ++index)
        menu.addAction(icon, QStringLiteral("Ruler %1").arg(index))->setCheckable(true);
}

//! What Qt asks for: showing a menu of the same items, and for that of one marker making it twice.
void Limit(benchmark::State & state)
{
    QIcon const icon(AxisBase::GetAxisMenuPixmap(true, IColorBase::eColorMarker));
    QMenu general;
    AddItems(general, Rulers, icon);
    for (int index = 0; index < 8; ++index)
        general.addAction(QStringLiteral("Maximum Range"));
    bool const isGeneral = state.range(0) == 0;
    for (auto _ : state) {
        if (isGeneral) {
            Show(general);
            continue;
        }
        QMenu first;
        AddItems(first, 1, icon);
        QMenu second;
        AddItems(second, 1, icon);
        Show(second);
    }
}

//! Bringing the items up to date alone.
void Update(benchmark::State & state)
{
    Scene scene;
    for (auto _ : state)
        scene.m_axis.UpdateMenu(scene.m_axis.GetContextMenu());
}

//! Building the menu alone, as new colours ask for it.
void Build(benchmark::State & state)
{
    Scene scene;
    for (auto _ : state)
        scene.m_axis.BuildMenu();
}

} // namespace

// 0: the general menu, 1: that of one marker
BENCHMARK(Ours)->Name("Open/ours")->Arg(0)->Arg(1);
BENCHMARK(Limit)->Name("Open/limit")->Arg(0)->Arg(1);
BENCHMARK(Update)->Name("Update/ours");
BENCHMARK(Build)->Name("Build/ours");
