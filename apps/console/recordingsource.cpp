// SPDX-License-Identifier: MIT
#include "recordingsource.h"

#include "sigmfrecording.h"

#include <algorithm>
#include <utility>

RecordingSource::RecordingSource(std::unique_ptr<SigmfRecording> recording) : m_pRecording(std::move(recording)) {}

RecordingSource::~RecordingSource() = default;

double RecordingSource::SampleRate() const { return m_pRecording->Meta().SampleRate(); }

bool RecordingSource::IsReal() const { return m_pRecording->Meta().IsReal(); }

double RecordingSource::CentreFrequency(qint64 position) const
{
    double const tuned = m_pRecording->Meta().FrequencyAt(position);
    return IsReal() ? tuned + SampleRate() / 4.0 : tuned;
}

qint64 RecordingSource::Length() const { return m_pRecording->Length(); }

qint64 RecordingSource::Read(std::complex<float> * out, qint64 count)
{
    qint64 done = 0;
    while (done < count) {
        qint64 const wanted = std::min(count - done, Length() - m_position);
        qint64 const got = m_pRecording->Read(m_position, out + done, wanted);
        done += got;
        m_position = (m_position + got) % Length();
        if (got < wanted)
            break;
    }
    return done;
}

void RecordingSource::Seek(qint64 sample)
{
    qint64 const folded = sample % Length();
    m_position = folded < 0 ? folded + Length() : folded;
}
