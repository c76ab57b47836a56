// SPDX-License-Identifier: GPL-3.0-or-later
// Kiss FFT on the same samples as bench_fft.cpp.
#include "FFTBenchmark.h"

#include <kissfft/kissfft.hh>

namespace {

using fftTest::Samples;
using Complex = std::complex<double>;

void execute(benchmark::State& state)
{
    const Samples x = fftTest::noise(lengthOf(state));
    const std::size_t half = x.size() / 2;
    std::vector<Complex> f(half);
    const kissfft<double> fft(half, false);
    for (auto _ : state) {
        fft.transform_real(x.data(), f.data());
        benchmark::ClobberMemory();
    }
    // The last bin lies in the imaginary part of the first.
    countError(state, x, [&f, half](std::size_t k) {
        return k == 0 ? Complex(f[0].real()) : k == half ? Complex(f[0].imag()) : f[k];
    });
}
BENCHMARK(execute)->Name("Kiss FFT/execute")->Apply(fftLengths);

void buildAndExecute(benchmark::State& state)
{
    const Samples x = fftTest::noise(lengthOf(state));
    std::vector<Complex> f(x.size() / 2);
    for (auto _ : state) {
        const kissfft<double> fft(f.size(), false);
        fft.transform_real(x.data(), f.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(buildAndExecute)->Name("Kiss FFT/build+execute")->Apply(fftLengths);

} // namespace
