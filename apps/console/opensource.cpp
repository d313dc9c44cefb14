// SPDX-License-Identifier: MIT
#include "opensource.h"

#include "consoleoptions.h"
#include "recordingsource.h"
#include "sigmfrecording.h"
#include "simulator.h"

std::unique_ptr<ISampleSource> OpenSource(ConsoleOptions const & options, QString & message)
{
    if (options.file.isEmpty())
        return std::make_unique<Simulator>(options.seed);
    std::unique_ptr<SigmfRecording> recording = SigmfRecording::Open(options.file, message);
    if (!recording)
        return nullptr;
    return std::make_unique<RecordingSource>(std::move(recording));
}
