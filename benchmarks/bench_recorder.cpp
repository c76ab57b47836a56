// SPDX-License-Identifier: GPL-3.0-or-later
// What recording a run costs: a line to the disk, and the digest of a sound.
#include "record/RecordWriter.h"
#include "session/RecordFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

// Iterations are many: each must bring one line more to the same file, as in a run.
void lineToDisk(benchmark::State& state)
{
    const QTemporaryDir folder(QDir::current().filePath("bench-recorder-XXXXXX"));
    RecordFile file(folder.path(), "S01", "2026-01-02T03:04:05.678Z");
    const QByteArray line = lineBytes(lineObject(SoundStarted {1, 2, 0.5, QString(64, '0'), 1.5}));
    for (auto _ : state) {
        file.append(line);
        if (!file.sync()) {
            state.SkipWithError(qPrintable(file.error()));
        }
    }
}
BENCHMARK(lineToDisk)
    ->Name("recorder/one line to the disk")
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

void makeLine(benchmark::State& state)
{
    const SoundStarted sound = {1, 2, 0.5, QString(64, '0'), 1.5};
    for (auto _ : state) {
        benchmark::DoNotOptimize(lineBytes(lineObject(sound)));
    }
}
BENCHMARK(makeLine)->Name("recorder/make a line")->UseRealTime()->Unit(benchmark::kMicrosecond);

void digestOfSound(benchmark::State& state)
{
    constexpr int nBytes = 24000 * 4; // of 600 ms at 40 kHz
    const QByteArray bytes(nBytes, 'x');
    for (auto _ : state) {
        benchmark::DoNotOptimize(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256));
    }
}
BENCHMARK(digestOfSound)
    ->Name("recorder/digest of a sound")
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

} // namespace
