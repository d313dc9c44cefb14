// SPDX-License-Identifier: MIT
#ifndef ORIM_BINDINGPROBE_H
#define ORIM_BINDINGPROBE_H

#include "axisprobe.h"

#include <QList>
#include <QMetaType>

#include <functional>
#include <utility>
#include <vector>

//! Hears what is forwarded to the pane of an axis.
class Pane : public IObserver
{
public:
    std::vector<std::pair<Observable *, int>> m_heard;
    std::function<void()> m_then;

    void Update(Observable * subject, TChangeCode code) override
    {
        m_heard.emplace_back(subject, code);
        if (m_then)
            m_then();
    }
};

//! Notes the codes that an axis is told by hand.
class CodeProbe : public AxisProbe
{
public:
    QList<int> m_codes;
    Observable * m_source = nullptr;

    void Update(Observable * subject, TChangeCode code) override
    {
        m_codes << code;
        m_source = subject;
        AxisProbe::Update(subject, code);
    }
};

using Number = ValueNumeric<double>;
using Integer = ValueNumeric<int>;

//! One of the bindings of an axis.
struct Binding
{
    bool (*bind)(AxisProbe & axis, QString const & path);
    ValueBase * (*held)(AxisProbe & axis);
};

inline Binding const Start{ [](AxisProbe & axis, QString const & path) { return axis.SetStart_ValuePath(path); },
                            [](AxisProbe & axis) -> ValueBase * { return axis.m_pStart; } };
inline Binding const Stop{ [](AxisProbe & axis, QString const & path) { return axis.SetStop_ValuePath(path); },
                           [](AxisProbe & axis) -> ValueBase * { return axis.m_pStop; } };
inline Binding const PixPerSecond{ [](AxisProbe & axis, QString const & path) {
                                      return axis.SetPixPerSecond_ValuePath(path);
                                  },
                                   [](AxisProbe & axis) -> ValueBase * { return axis.m_pPixPerSecondValue; } };
inline Binding const Center{ [](AxisProbe & axis, QString const & path) { return axis.SetCenter_ValuePath(path); },
                             [](AxisProbe & axis) -> ValueBase * { return axis.m_pCenter; } };
inline Binding const HalfWidth{ [](AxisProbe & axis, QString const & path) {
                                   return axis.SetHalfWidth_ValuePath(path);
                               },
                                [](AxisProbe & axis) -> ValueBase * { return axis.m_pHalfWidth; } };
inline Binding const AutoScale{ [](AxisProbe & axis, QString const & path) {
                                   return axis.SetAutoScale_ValuePath(path);
                               },
                                [](AxisProbe & axis) -> ValueBase * { return axis.GetAutoScaleBoolean(); } };
inline Binding const DefaultStart{ [](AxisProbe & axis, QString const & path) {
                                      return axis.SetDefaultStart_ValuePath(path);
                                  },
                                   [](AxisProbe & axis) -> ValueBase * { return axis.m_pDefaultStart; } };
inline Binding const DefaultStop{ [](AxisProbe & axis, QString const & path) {
                                     return axis.SetDefaultStop_ValuePath(path);
                                 },
                                  [](AxisProbe & axis) -> ValueBase * { return axis.m_pDefaultStop; } };
inline Binding const DeviceStart{ [](AxisProbe & axis, QString const & path) {
                                     return axis.SetDeviceStart_ValuePath(path);
                                 },
                                  [](AxisProbe & axis) -> ValueBase * { return axis.m_pDeviceStart; } };
inline Binding const DeviceStop{ [](AxisProbe & axis, QString const & path) {
                                    return axis.SetDeviceStop_ValuePath(path);
                                },
                                 [](AxisProbe & axis) -> ValueBase * { return axis.m_pDeviceStop; } };
inline Binding const Offset{ [](AxisProbe & axis, QString const & path) { return axis.SetOffset_ValuePath(path); },
                             [](AxisProbe & axis) -> ValueBase * { return axis.m_pOffset; } };
inline Binding const Azimuth{ [](AxisProbe & axis, QString const & path) {
                                 return axis.SetDisplayAzimuth_ValuePath(path);
                             },
                              [](AxisProbe & axis) -> ValueBase * { return axis.m_pDisplayAzimuth; } };
inline Binding const Shading{ [](AxisProbe & axis, QString const & path) {
                                 return axis.SetShadingColor_ValuePath(path);
                             },
                              [](AxisProbe & axis) -> ValueBase * { return axis.m_pShadingColor; } };

template <unsigned int Index>
Binding ForceRebuild()
{
    return { [](AxisProbe & axis, QString const & path) { return axis.SetForceRebuild_ValuePath(path, Index); },
             [](AxisProbe & axis) { return axis.m_forceRebuild[Index]; } };
}

Q_DECLARE_METATYPE(Binding)

#endif
