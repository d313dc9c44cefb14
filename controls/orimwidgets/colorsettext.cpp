// SPDX-License-Identifier: MIT
#include "colorsettext.h"

#include "separatestring.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int None = -1; // the layout lacks the field

//! Where the fields of a layout stand, counted from 0.
struct Layout
{
    char const * version; // null for a line that opens with the colour count
    int count;
    int smooth;
    int fixed;
    int start;
    int stop;
    int offset;
    int wrap;
    int useMinIndex;
    int background;
    int firstColor;
    int headerAbove; // the header is read when the line has more fields than this
    int notColors;   // fields of the line that are no colours
};

constexpr std::array<Layout, 3> Layouts{ {
    { "V02", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 10, 11 },
    { "V01", 1, 2, 3, 4, 5, 6, 7, None, None, 8, 8, 9 },
    { nullptr, 0, 1, 2, 3, 4, None, 5, None, None, 6, 7, 6 },
} };

constexpr bool HoldsEveryField()
{
    for (auto const & layout : Layouts)
        if (layout.firstColor > layout.headerAbove || layout.notColors < layout.firstColor ||
            layout.firstColor >= ColorSetText::MaxFields)
            return false;
    return Layouts.back().version == nullptr;
}

static_assert(HoldsEveryField(), "a header that is read is there, colours follow it, the last layout takes every line");

using Fields = std::array<QString, ColorSetText::MaxFields>;

Layout const & LayoutOf(QString const & firstField)
{
    return *std::find_if(Layouts.begin(), Layouts.end(), [&firstField](Layout const & layout) {
        return !layout.version || firstField == QLatin1String(layout.version);
    });
}

std::size_t ReadCount(QString const & field)
{
    auto const most = static_cast<qlonglong>(ColorSetText::MaxColors);
    return static_cast<std::size_t>(std::clamp(field.toLongLong(), qlonglong{ 0 }, most));
}

bool ReadFlag(QString const & field) { return field.toInt() != 0; }

double ReadNumber(QString const & field)
{
    bool ok = false;
    double const number = field.toDouble(&ok);
    return ok && std::isfinite(number) ? number : 0.0;
}

//! Tested first, so that a text which is no colour stays silent.
QColor ReadColor(QString const & field) { return QColor::isValidColor(field) ? QColor(field) : QColor(); }

constexpr int CharsAColor = 8; // "#rrggbb;"

//! Appends the colour as QColor::name() gives it, and the separator; without a string of its own for each colour.
void AppendColor(QString & text, QColor const & color)
{
    constexpr char Digits[] = "0123456789abcdef";
    QRgb const rgb = color.rgb();
    text += QLatin1Char('#');
    for (int shift = 20; shift >= 0; shift -= 4)
        text += QLatin1Char(Digits[(rgb >> shift) & 0xFU]);
    text += QLatin1Char(';');
}

ColorSetText::Header ReadHeader(Layout const & layout, Fields const & fields)
{
    auto const field = [&fields](int index) -> QString const & { return fields[static_cast<std::size_t>(index)]; };
    ColorSetText::Header header;
    header.count = ReadCount(field(layout.count));
    header.smooth = ReadFlag(field(layout.smooth));
    header.fixed = ReadFlag(field(layout.fixed));
    header.start = ReadNumber(field(layout.start));
    header.stop = ReadNumber(field(layout.stop));
    if (layout.offset != None)
        header.offset = ReadNumber(field(layout.offset));
    header.wrap = ReadFlag(field(layout.wrap));
    if (layout.background != None)
        header.background =
            ColorSetText::Background{ ReadFlag(field(layout.useMinIndex)), ReadColor(field(layout.background)) };
    return header;
}

} // namespace

ColorSetText::Line ColorSetText::Parse(QString const & text)
{
    Fields fields;
    fields.fill(QStringLiteral(";"));
    int const count = Orim::separateString(text, fields.data(), MaxFields);
    Layout const & layout = LayoutOf(fields[0]);
    Line line;
    if (count > layout.headerAbove)
        line.header = ReadHeader(layout, fields);
    for (int i = 0; i < count - layout.notColors; ++i)
        line.colors.push_back(ReadColor(fields[static_cast<std::size_t>(layout.firstColor + i)]));
    return line;
}

QString ColorSetText::Print(Header const & header, std::vector<QColor> const & colors)
{
    QString text = QStringLiteral("V02;");
    auto const add = [&text](QString const & field) { text += field + QLatin1Char(';'); };
    auto const addFlag = [&add](bool on) { add(on ? QStringLiteral("1") : QStringLiteral("0")); };
    Background const background = header.background.value_or(Background());
    add(QString::number(colors.size()));
    addFlag(header.smooth);
    addFlag(header.fixed);
    add(QString::number(header.start));
    add(QString::number(header.stop));
    add(QString::number(header.offset.value_or(0.0)));
    addFlag(header.wrap);
    addFlag(background.useMinIndex);
    text.reserve(text.size() + CharsAColor * (static_cast<int>(colors.size()) + 1));
    AppendColor(text, background.color);
    for (QColor const & color : colors)
        AppendColor(text, color);
    return text;
}
