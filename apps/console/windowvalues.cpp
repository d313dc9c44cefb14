// SPDX-License-Identifier: MIT
#include "windowvalues.h"

#include "tree.h"
#include "valuenumeric.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace {

constexpr std::array<char const *, WindowValues::eItemCount> Names{ { "start", "stop", "visible", "focus", "text" } };

constexpr double FarthestFrequency = 1e12; // Hz
constexpr FrequencyRange NoBand{ -FarthestFrequency, 2.0 * FarthestFrequency };

QString FolderOf(int window) { return QStringLiteral("/console/windows/%1").arg(window + 1); }

template <class T>
T * At(int window, WindowValues::Item item)
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<T>(WindowValues::PathOf(window, item)) : nullptr;
}

bool Flag(int window, WindowValues::Item item)
{
    auto const * const value = At<Value<bool>>(window, item);
    return value && value->GetValue();
}

void SetFlag(int window, WindowValues::Item item, bool on)
{
    if (auto * const value = At<Value<bool>>(window, item))
        value->SetValue(on, nullptr);
}

double Number(int window, WindowValues::Item item)
{
    auto const * const value = At<ValueNumeric<double>>(window, item);
    return value ? value->GetValue() : 0.0;
}

std::unique_ptr<ValueBase> Make(int window, WindowValues::Item item)
{
    QString const name = QLatin1String(Names[item]);
    if (item == WindowValues::eVisible || item == WindowValues::eFocus)
        return std::make_unique<Value<bool>>(name);
    if (item == WindowValues::eText) {
        auto text = std::make_unique<Value<QString>>(name);
        text->SetValue(QString::number(window + 1), nullptr);
        return text;
    }
    auto number = std::make_unique<ValueNumeric<double>>(name);
    number->SetMinMax(-FarthestFrequency, FarthestFrequency, 0.0, nullptr);
    return number;
}

} // namespace

FrequencyRange WindowValues::s_band = NoBand;

WindowValues::WindowValues()
{
    Tree * const tree = Tree::Instance();
    for (int window = 0; tree && window < Count; ++window) {
        for (int item = 0; item < eItemCount; ++item) {
            std::unique_ptr<ValueBase> value = Make(window, static_cast<Item>(item));
            if (!tree->Insert(FolderOf(window), value.get()))
                continue;
            static_cast<void>(value.release()); // the tree owns it
            m_paths.push_back(PathOf(window, static_cast<Item>(item)));
        }
    }
    if (m_paths.empty())
        return;
    s_band = NoBand;
    for (int window = 0; window < Count; ++window)
        FollowFocus(window);
}

WindowValues::~WindowValues()
{
    Tree * const tree = Tree::Instance();
    for (QString const & path : m_paths) {
        if (tree)
            tree->Remove(path);
    }
}

void WindowValues::SetBand(FrequencyRange band)
{
    if (std::isfinite(band.start) && std::isfinite(band.span) && band.span > 0.0)
        s_band = band;
}

void WindowValues::FollowFocus(int window)
{
    for (Item const item : { eVisible, eFocus }) {
        m_followers.push_back(std::make_unique<ValueFollower>([this, window] { TakeFocus(window); }));
        m_followers.back()->Bind(PathOf(window, item));
    }
}

//! Undo and others set the focus of one window and know nothing of the rest.
void WindowValues::TakeFocus(int window)
{
    auto & had = m_hadFocus[static_cast<std::size_t>(window)];
    bool const has = Flag(window, eFocus) && IsVisible(window);
    if (std::exchange(had, has) != has && has)
        Focus(window);
}

QString WindowValues::PathOf(int window, Item item)
{
    bool const exists = window >= 0 && window < Count && item >= 0 && item < eItemCount;
    return exists ? FolderOf(window) + QLatin1Char('/') + QLatin1String(Names[item]) : QString();
}

FrequencyRange WindowValues::RangeOf(int window)
{
    double const start = Number(window, eStart);
    double const stop = Number(window, eStop);
    return { std::min(start, stop), std::abs(stop - start) };
}

FrequencyRange WindowValues::LimitsOf(int window)
{
    return At<ValueNumeric<double>>(window, eStart) ? s_band : FrequencyRange{ 0.0, 0.0 };
}

bool WindowValues::IsVisible(int window) { return Flag(window, eVisible); }

int WindowValues::Focused()
{
    for (int window = 0; window < Count; ++window) {
        if (Flag(window, eFocus) && IsVisible(window))
            return window;
    }
    return -1;
}

void WindowValues::Focus(int window)
{
    for (int other = 0; other < Count; ++other) {
        if (other != window)
            SetFlag(other, eFocus, false);
    }
    SetFlag(window, eFocus, IsVisible(window));
}

void WindowValues::Show(int window, bool on)
{
    if (!on)
        SetFlag(window, eFocus, false);
    SetFlag(window, eVisible, on);
}

void WindowValues::SetRange(int window, FrequencyRange range)
{
    auto * const start = At<ValueNumeric<double>>(window, eStart);
    auto * const stop = At<ValueNumeric<double>>(window, eStop);
    if (!start || !stop || !std::isfinite(range.start) || !std::isfinite(range.span))
        return;
    double const low = std::min(range.start, range.start + range.span);
    double const high = std::max(range.start, range.start + range.span);
    bool const upward = low >= stop->GetValue();
    if (upward)
        stop->SetValue(high, nullptr);
    start->SetValue(low, nullptr);
    if (!upward)
        stop->SetValue(high, nullptr);
}

int WindowValues::Next(bool forward)
{
    std::vector<int> order;
    for (int window = 0; window < Count; ++window) {
        if (IsVisible(window))
            order.push_back(window);
    }
    if (order.empty())
        return -1;
    std::stable_sort(order.begin(), order.end(), [](int a, int b) { return RangeOf(a).start < RangeOf(b).start; });
    if (!forward)
        std::reverse(order.begin(), order.end());
    auto const focused = std::find(order.begin(), order.end(), Focused());
    bool const isLast = focused == order.end() || focused + 1 == order.end();
    return isLast ? order.front() : *(focused + 1);
}
