// SPDX-License-Identifier: MIT
// What the metadata of a recording must hold: reading ends, with a reason where it is refused, and with nothing out of
// range where it is not; a datatype that was read is printed and read back the same.

#include "sigmfmeta.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void Must(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    QString reason;
    auto const meta =
        SigmfMeta::Parse(QByteArray(reinterpret_cast<char const *>(data), static_cast<int>(size)), reason);
    Must(meta.has_value() == reason.isEmpty());
    if (!meta)
        return 0;
    QString const type = SigmfMeta::Text(meta->GetDatatype());
    auto const again = SigmfMeta::ParseDatatype(type);
    Must(again && SigmfMeta::Text(*again) == type && again->complex != meta->IsReal());
    Must(meta->SampleRate() > 0.0 && meta->SampleRate() <= SigmfMeta::MaxRate);
    Must(meta->Channels() >= 1 && meta->Channels() <= SigmfMeta::MaxChannels && meta->FrameBytes() >= 1);
    Must(meta->TrailingBytes() >= 0 && !meta->Dataset().contains(QLatin1Char('/')));
    Must(!meta->Segments().empty());
    qint64 start = 0;
    for (SigmfMeta::Segment const & segment : meta->Segments()) {
        Must(segment.start >= start && segment.headerBytes >= 0);
        Must(std::abs(segment.frequency) <= SigmfMeta::MaxFrequency);
        start = segment.start;
        Must(meta->SegmentAt(start).start == start);
    }
    return 0;
}
