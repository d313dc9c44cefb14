// SPDX-License-Identifier: MIT
#ifndef ORIM_RECORDINGSOURCE_H
#define ORIM_RECORDINGSOURCE_H

#include "isamplesource.h"

#include <memory>

class SigmfRecording;

//! Plays a recording as a ring: behind its last sample comes its first.
class RecordingSource : public ISampleSource
{
public:
    //! \param recording  an opened recording; not null.
    explicit RecordingSource(std::unique_ptr<SigmfRecording> recording);
    ~RecordingSource() override;

    //! The recording that is played.
    SigmfRecording const & Recording() const { return *m_pRecording; }

    double SampleRate() const override;
    bool IsReal() const override;
    double CentreFrequency(qint64 position) const override;
    qint64 Length() const override;
    //! Gives fewer samples than asked for only when the data file has shrunk since it was opened.
    qint64 Read(std::complex<float> * out, qint64 count) override;
    void Seek(qint64 sample) override;

    qint64 Position() const override { return m_position; }

private:
    std::unique_ptr<SigmfRecording> m_pRecording;
    qint64 m_position = 0;
};

#endif
