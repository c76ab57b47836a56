// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds and spectra of a trial and of View, beside their library calls alone.
#include "BenchRun.h"
#include "signal/FFTReal.h"
#include "signal/SampleArithmetic.h"
#include "support/MainWindowProbe.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>

using namespace quorin;

namespace {

RunSettings settingsOf(int soundType)
{
    RunSettings settings;
    settings.soundType = soundType;
    settings.mainParameter
        = soundType == noiseCarrier ? modulationDepthParameter : carrierFrequencyParameter;
    settings.isShown = false;
    return settings;
}

void repeatGenWav(benchmark::State& state, MainWindow& window)
{
    for (auto _ : state) {
        window.genWav();
        benchmark::ClobberMemory();
    }
}

// A trial's: the deviant, and the standard's level.
void genWavOfTrial(benchmark::State& state, int soundType)
{
    BenchRun run(settingsOf(soundType));
    repeatGenWav(state, run.window());
}
BENCHMARK_CAPTURE(genWavOfTrial, noise, noiseCarrier)->Name("genWav/trial/noise");
BENCHMARK_CAPTURE(genWavOfTrial, sinusoid, sinusoidCarrier)->Name("genWav/trial/sinusoid");

// A View's: both sounds, and the standard's level.
void genWavOfView(benchmark::State& state, int soundType)
{
    BenchRun run(settingsOf(soundType));
    Probe::data(run.window()).nTrials = 0;
    repeatGenWav(state, run.window());
}
BENCHMARK_CAPTURE(genWavOfView, noise, noiseCarrier)->Name("genWav/View/noise");
BENCHMARK_CAPTURE(genWavOfView, sinusoid, sinusoidCarrier)->Name("genWav/View/sinusoid");

// The library calls of a sound and nothing else: one of the carrier and one cos a sample.
template <typename Carrier> void bareLoop(benchmark::State& state, const Carrier& carrier)
{
    const Data data;
    const double fs = data.fs;
    const double modulation = data.mf[deviant] * twoPi;
    const double phase = data.mfPhase[deviant];
    QVector<double> calls(data.nSamples[deviant]);
    double* const call = calls.data();
    for (auto _ : state) {
        for (int k = 0; k < calls.size(); ++k) {
            call[k] = carrier(k) * std::cos(k * modulation / fs + phase);
        }
        benchmark::ClobberMemory();
    }
}

void bareNoise(benchmark::State& state)
{
    bareLoop(state, [](int /*k*/) { return double(qrand()); });
}
BENCHMARK(bareNoise)->Name("bare loop/noise");

void bareSinusoid(benchmark::State& state)
{
    const Data data;
    bareLoop(state,
        [fs = data.fs, frequency = data.cf[deviant] * twoPi, phase = data.cfPhase[deviant]](
            int k) { return std::sin(k * frequency / fs + phase); });
}
BENCHMARK(bareSinusoid)->Name("bare loop/sinusoid");

// The cosines of a standard that is made again with each deviant.
void bareCosine(benchmark::State& state)
{
    bareLoop(state, [](int /*k*/) { return 1.0; });
}
BENCHMARK(bareCosine)->Name("bare loop/cosine");

void genFFT(benchmark::State& state)
{
    BenchRun run(settingsOf(noiseCarrier));
    for (auto _ : state) {
        run.window().genFFT();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(genFFT);

// What genFFT is made of: for each sound a transform, built and done, and for each bin one square
// root and one arc tangent.
void spectrumParts(benchmark::State& state)
{
    BenchRun run(settingsOf(noiseCarrier));
    MainWindow& window = run.window();
    const qint64 length = Probe::fftLength(window)[deviant];
    const int half = int(length / 2);
    QVector<double> blocks[]
        = {Probe::stimuli(window)[standard].samples, Probe::stimuli(window)[deviant].samples};
    QVector<double> f(half * 2);
    QVector<double> amplitude(half);
    QVector<double> phase(half);
    for (QVector<double>& block : blocks) {
        block.resize(half * 2);
    }
    for (auto _ : state) {
        for (const QVector<double>& block : blocks) {
            FFTReal<double> transform(length);
            transform.do_fft(f.data(), block.constData());
            const double* const real = f.constData();
            const double* const imaginary = real + half;
            std::transform(real, imaginary, amplitude.begin(),
                [](double x) { return std::sqrt(std::abs(x)); });
            std::transform(imaginary, imaginary + half, real, phase.begin(),
                [](double y, double x) { return std::atan2(y, x); });
            benchmark::ClobberMemory();
        }
    }
}
BENCHMARK(spectrumParts)->Name("genFFT/parts");

} // namespace
