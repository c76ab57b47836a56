// SPDX-License-Identifier: GPL-3.0-or-later
// The transform: building it, transforming, and both together.
#include "FFTBenchmark.h"
#include "signal/FFTRealProbe.h"

namespace {

using fftTest::Samples;

void transform(benchmark::State& state)
{
    const Samples x = fftTest::noise(lengthOf(state));
    Samples f(x.size());
    FFTReal<double> fft(state.range(0));
    for (auto _ : state) {
        fft.do_fft(f.data(), x.data());
        benchmark::DoNotOptimize(f.data());
        benchmark::ClobberMemory();
    }
    countError(state, x, [&f](std::size_t k) { return fftTest::bin(f, k); });
}
BENCHMARK(transform)->Name("FFTReal/transform")->Apply(fftLengths);

// As on a processor without the vector instructions.
void transformPlainly(benchmark::State& state)
{
    const Samples x = fftTest::noise(lengthOf(state));
    Samples f(x.size());
    FFTReal<double> fft(state.range(0));
    FFTRealProbe::usePlainKernel(fft);
    for (auto _ : state) {
        fft.do_fft(f.data(), x.data());
        benchmark::DoNotOptimize(f.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(transformPlainly)->Name("FFTReal/transform plain")->Apply(fftLengths);

// What the program does for every sound.
void buildAndTransform(benchmark::State& state)
{
    const Samples x = fftTest::noise(lengthOf(state));
    Samples f(x.size());
    for (auto _ : state) {
        FFTReal<double> fft(state.range(0));
        fft.do_fft(f.data(), x.data());
        benchmark::DoNotOptimize(f.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(buildAndTransform)->Name("FFTReal/build+transform")->Apply(fftLengths);

} // namespace
