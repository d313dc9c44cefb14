// SPDX-License-Identifier: MIT
#ifndef ORIM_PANETOOLS_H
#define ORIM_PANETOOLS_H

#include "isamplesource.h"
#include "linemaker.h"
#include "panelayout.h"
#include "recordingsource.h"
#include "sigmfrecording.h"
#include "spectrumline.h"

#include <QImage>
#include <QString>
#include <QWidget>

#include <cmath>
#include <memory>
#include <vector>

//! What the tests of the panes share: lines, sources and the reading of pixels.
namespace PaneTools {

using Line = std::shared_ptr<SpectrumLine const>;

//! Colours that no blend of others gives.
inline PaneColors Colors() { return { QColor(0, 0, 40), Qt::black, Qt::white, QColor(0, 60, 0), Qt::red, Qt::cyan }; }

constexpr double Noon = 1792670400e6; // us, 2026-10-22 12:00 UTC

//! A line from \a start Hz on, 1 Hz a bin, made so many seconds after noon.
inline Line LineOf(double start, std::vector<double> levels, double seconds = 0.0)
{
    auto line = std::make_shared<SpectrumLine>();
    line->span = static_cast<double>(levels.size());
    line->centre = start + line->span / 2.0;
    line->seconds = seconds;
    line->time = Noon + seconds * 1e6;
    line->levels = std::move(levels);
    return line;
}

//! A line of \a bins equal levels with one that is higher.
inline Line PeakLine(int bins, int peak, double floor, double level)
{
    std::vector<double> levels(static_cast<std::size_t>(bins), floor);
    levels[static_cast<std::size_t>(peak)] = level;
    return LineOf(0.0, levels);
}

//! The pane as it is painted.
inline QImage Rendered(QWidget & pane) { return pane.grab().toImage().convertToFormat(QImage::Format_RGB32); }

//! Two seconds of a tone at an eighth of the rate, whose level falls with time so that no two lines are the same.
class ToneSource : public ISampleSource
{
public:
    static constexpr double Rate = 8192.0;
    static constexpr double Centre = 100e6;
    static constexpr qint64 Samples = 16384;

    double SampleRate() const override { return Rate; }

    bool IsReal() const override { return false; }

    double CentreFrequency(qint64) const override { return Centre; }

    qint64 Length() const override { return Samples; }

    qint64 Read(std::complex<float> * out, qint64 count) override
    {
        for (qint64 i = 0; i < count; ++i) {
            double const part = static_cast<double>(m_position) / static_cast<double>(Samples);
            double const phase = static_cast<double>(m_position % 8) * (std::acos(-1.0) / 4.0);
            out[i] = std::polar(static_cast<float>(0.5 - 0.4 * part), static_cast<float>(phase));
            m_position = (m_position + 1) % Samples;
        }
        return count;
    }

    void Seek(qint64 sample) override { m_position = ((sample % Samples) + Samples) % Samples; }

    qint64 Position() const override { return m_position; }

private:
    qint64 m_position = 0;
};

//! A recording of the folder, opened; null when it is not there.
inline std::unique_ptr<RecordingSource> OpenRecording(QString const & folder, QString const & name)
{
    QString error;
    auto recording = SigmfRecording::Open(folder + QLatin1Char('/') + name + QStringLiteral(".sigmf-meta"), error);
    return recording ? std::make_unique<RecordingSource>(std::move(recording)) : nullptr;
}

//! Lines that follow one another from the beginning of a source, each as long as \a slice.
inline std::vector<Line> MakeLines(ISampleSource & source, int bins, double slice, int count)
{
    LineMaker maker(source);
    maker.SetBins(bins);
    std::vector<Line> lines;
    for (int number = 0; number < count; ++number)
        lines.push_back(maker.Make(static_cast<quint64>(number), (number + 0.5) * slice, slice));
    return lines;
}

} // namespace PaneTools

#endif
