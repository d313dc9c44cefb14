// SPDX-License-Identifier: MIT
// What a damaged store file must hold: reading ends, and what was read is printed and read back the same without
// damage.

#include "initext.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const *>(data), static_cast<int>(size));
    IniText::Parsed const first = IniText::Parse(bytes);
    QByteArray const printed = IniText::Print(first.entries);
    IniText::Parsed const second = IniText::Parse(printed);
    if (second.entries != first.entries || second.damagedLines != 0 || IniText::Print(second.entries) != printed)
        std::abort();
    return 0;
}
