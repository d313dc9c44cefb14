// SPDX-License-Identifier: MIT
// What any line must hold as a colour set: its length is bounded, and what was read is printed and read back the same,
// within the digits and the colours that a line carries.

#include "colorsettext.h"
#include "shadingcolorset.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::size_t CarriedColors = 34;

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

ShadingColorSet Read(QString const & line)
{
    ShadingColorSet set;
    set.SetString(line);
    return set;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    QString const line = QString::fromUtf8(reinterpret_cast<char const *>(data), static_cast<int>(size));
    ShadingColorSet first = Read(line);
    Require(first.GetLength() <= ColorSetText::MaxColors);
    ShadingColorSet const second = Read(first.GetString());
    for (std::size_t i = CarriedColors; i < first.GetLength(); ++i)
        first.SetColorNr(static_cast<int>(i), Qt::white);
    QString const printed = second.GetString();
    Require(printed == first.GetString());
    Require(Read(printed).GetString() == printed);
    return 0;
}
