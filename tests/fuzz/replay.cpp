// SPDX-License-Identifier: MIT
// Replays the seeds of a fuzzer in a build without one: each file as it stands, cut at every byte, and with one bit of
// every byte flipped. Usage: fuzz_name_replay FOLDER. Exit code 1 when the folder holds no file.

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace {

int s_inputs = 0;

void Try(QByteArray const & input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const *>(input.constData()),
                           static_cast<std::size_t>(input.size()));
    ++s_inputs;
}

void TryVariants(QByteArray const & seed)
{
    Try(seed);
    constexpr int Most = 2048; // bytes of a seed that are varied
    int const count = static_cast<int>(qMin<qint64>(seed.size(), Most));
    for (int i = 0; i < count; ++i) {
        Try(seed.left(i));
        QByteArray flipped = seed;
        flipped[i] = static_cast<char>(flipped.at(i) ^ (1 << (i % 8)));
        Try(flipped);
    }
}

} // namespace

int main(int argc, char * argv[])
{
    QDir const folder(QFile::decodeName(argc > 1 ? argv[1] : ""));
    QStringList const names = folder.entryList(QDir::Files, QDir::Name);
    for (QString const & name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return 1;
        TryVariants(file.readAll());
    }
    std::printf("replayed %d seeds as %d inputs\n", static_cast<int>(names.size()), s_inputs);
    return argc > 1 && !names.isEmpty() ? 0 : 1;
}
