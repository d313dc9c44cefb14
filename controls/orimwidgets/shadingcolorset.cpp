// SPDX-License-Identifier: MIT
#include "shadingcolorset.h"

#include "colorlookup.h"
#include "colorrule.h"
#include "colorsettext.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

void (*emptyListHook)() = nullptr;

//! A hook that itself asks an empty list for a colour is not called again.
void CallEmptyListHook()
{
    static bool running = false;
    if (!emptyListHook || running)
        return;
    QScopedValueRollback<bool> const guard(running, true);
    emptyListHook();
}

bool IsIndexOf(int index, std::vector<QColor> const & colors)
{
    return index >= 0 && static_cast<std::size_t>(index) < colors.size();
}

} // namespace

ShadingColorSet::ShadingColorSet() = default;

ShadingColorSet::ShadingColorSet(std::size_t count, bool smooth) : m_Colors(count), m_Smooth(smooth) {}

ShadingColorSet::ShadingColorSet(ShadingColorSet const & other)
    : m_Colors(other.m_Colors)
    , m_Smooth(other.m_Smooth)
    , m_ResultColor(other.m_ResultColor)
    , m_Fixed(other.m_Fixed)
    , m_Start(other.m_Start)
    , m_Stop(other.m_Stop)
    , m_Offset(other.m_Offset)
    , m_Wrap(other.m_Wrap)
    , m_Name(other.m_Name)
    , m_Writeable(other.m_Writeable)
    , m_PureIndexUse(other.m_PureIndexUse)
    , m_BackgroundColor(other.m_BackgroundColor)
    , m_UseMinIndexBackground(other.m_UseMinIndexBackground)
{}

ShadingColorSet::~ShadingColorSet() = default;

// the text is complete before anything changes, so that a set can be assigned to itself
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
ShadingColorSet & ShadingColorSet::operator=(ShadingColorSet const & other)
{
    SetString(other.GetString());
    return *this;
}

void ShadingColorSet::SetEmptyListHook(void (*hook)()) { emptyListHook = hook; }

QColor ShadingColorSet::GetColor(double value, double min, double max, bool inverse)
{
    if (m_Colors.empty()) {
        CallEmptyListHook();
        return Qt::black;
    }
    if (!m_PureIndexUse)
        NormaliseRange(m_Start, m_Stop);
    ColorPick const pick = PickColor(Rule(), static_cast<int>(m_Colors.size()), value, min, max, inverse);
    if (pick.kind == ColorPick::eOutOfRange)
        return Qt::lightGray;
    QColor const & low = m_Colors[static_cast<std::size_t>(pick.index)];
    if (pick.kind == ColorPick::eEntry)
        return low;
    QColor const & high = m_Colors[static_cast<std::size_t>(pick.index) + 1];
    m_ResultColor =
        QColor(BlendChannel(low.red(), high.red(), pick.part), BlendChannel(low.green(), high.green(), pick.part),
               BlendChannel(low.blue(), high.blue(), pick.part));
    return m_ResultColor;
}

void ShadingColorSet::GetColors(double const * values, QRgb * out, std::size_t count, double min, double max,
                                bool inverse)
{
    MapColors(values, out, count, min, max, inverse);
}

void ShadingColorSet::GetColors(float const * values, QRgb * out, std::size_t count, double min, double max,
                                bool inverse)
{
    MapColors(values, out, count, min, max, inverse);
}

template <class T>
void ShadingColorSet::MapColors(T const * values, QRgb * out, std::size_t count, double min, double max, bool inverse)
{
    if (!values || !out || count == 0)
        return;
    if (m_Colors.empty()) {
        std::fill_n(out, count, qRgb(0, 0, 0));
        CallEmptyListHook(); // the set may have colours after it: the first value asked, the others have the answer
        if (m_Colors.empty())
            return;
        ++values;
        ++out;
        if (--count == 0)
            return;
    }
    if (!m_PureIndexUse)
        NormaliseRange(m_Start, m_Stop);
    UpdateLookup(min, max, inverse);
    m_pLookup->Map(values, out, count);
}

ColorRule ShadingColorSet::Rule() const
{
    return { m_Smooth, m_Fixed, m_Wrap, m_PureIndexUse, m_Start, m_Stop, m_Offset };
}

void ShadingColorSet::UpdateLookup(double min, double max, bool inverse)
{
    if (!m_pLookup)
        m_pLookup = std::make_unique<ColorLookup>();
    if (m_colorsChanged || m_colorsLent) {
        std::vector<QRgb> colors(m_Colors.size());
        std::transform(m_Colors.begin(), m_Colors.end(), colors.begin(),
                       [](QColor const & color) { return color.rgb(); });
        if (colors != m_pLookup->GetColors())
            m_pLookup->SetColors(std::move(colors));
        m_colorsChanged = false;
    }
    m_pLookup->Prepare(Rule(), min, max, inverse);
}

QColor ShadingColorSet::GetColorNr(int index, bool & ok) const
{
    ok = IsIndexOf(index, m_Colors);
    if (ok)
        return m_Colors[static_cast<std::size_t>(index)];
    return m_Colors.empty() ? QColor() : m_Colors.front();
}

bool ShadingColorSet::SetColorNr(int index, QColor color)
{
    if (!IsIndexOf(index, m_Colors))
        return false;
    m_Colors[static_cast<std::size_t>(index)] = color;
    m_colorsChanged = true;
    return true;
}

void ShadingColorSet::Resize(std::size_t count)
{
    m_Colors.resize(count, QColor(Qt::white));
    m_colorsChanged = true;
}

std::vector<QColor> & ShadingColorSet::GetVector()
{
    m_colorsLent = true;
    return m_Colors;
}

void ShadingColorSet::SetBackgroundColor(QColor color, bool useMinIndex)
{
    m_BackgroundColor = color;
    m_UseMinIndexBackground = useMinIndex;
}

void ShadingColorSet::SetUseMinIndexBackground(bool on)
{
    m_UseMinIndexBackground = on;
    if (on && !m_Colors.empty())
        m_BackgroundColor = m_Colors.back();
}

QColor & ShadingColorSet::GetBackgroundColor(QColor & color)
{
    if (m_UseMinIndexBackground) {
        if (!m_Colors.empty())
            m_BackgroundColor = m_Colors.back();
        color = m_BackgroundColor;
    }
    return color;
}

QString ShadingColorSet::GetString() const
{
    ColorSetText::Header header;
    header.smooth = m_Smooth;
    header.fixed = m_Fixed;
    header.start = m_Start;
    header.stop = m_Stop;
    header.offset = m_Offset;
    header.wrap = m_Wrap;
    header.background = ColorSetText::Background{ m_UseMinIndexBackground, m_BackgroundColor };
    return ColorSetText::Print(header, m_Colors);
}

void ShadingColorSet::SetString(QString const & line)
{
    ColorSetText::Line const read = ColorSetText::Parse(line);
    if (read.header) {
        Resize(read.header->count);
        m_Smooth = read.header->smooth;
        m_Fixed = read.header->fixed;
        m_Start = read.header->start;
        m_Stop = read.header->stop;
        m_Offset = read.header->offset.value_or(m_Offset);
        m_Wrap = read.header->wrap;
        if (read.header->background) {
            m_UseMinIndexBackground = read.header->background->useMinIndex;
            m_BackgroundColor = read.header->background->color;
        }
    }
    for (std::size_t i = 0; i < std::min(read.colors.size(), m_Colors.size()); ++i)
        m_Colors[i] = read.colors[i];
    m_colorsChanged = true;
}
