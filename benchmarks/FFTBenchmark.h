// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTTestSignals.h"

#include <benchmark/benchmark.h>
#include <map>

/// The lengths at which the transforms are compared.
inline void fftLengths(benchmark::internal::Benchmark* benchmark)
{
    for (const int length : {1024, 8192, 32768, 262144})
        benchmark->Arg(length);
    benchmark->Unit(benchmark::kMicrosecond);
}

/// The benchmark's number of samples.
inline std::size_t lengthOf(const benchmark::State& state)
{
    return static_cast<std::size_t>(state.range(0));
}

/// Adds the counter "rms": the error of bins 0 ... n / 2 of the spectrum of x against long double,
/// relative to the spectrum. Every benchmark of a length must transform the same samples.
/// @param bin gives bin k as a complex number
template <class Bin>
void countError(benchmark::State& state, const fftTest::Samples& x, const Bin& bin)
{
    // In long double it takes its time: once for each length, since the samples are the same.
    static std::map<std::size_t, std::vector<definingSum::Complex>> spectra;
    auto& expected = spectra[x.size()];
    if (expected.empty())
        expected = definingSum::spectrum(x, definingSum::roots(x.size()));
    fftTest::Samples f(x.size());
    for (std::size_t k = 0; k <= x.size() / 2; ++k) {
        f[k] = double(bin(k).real());
        if (k > 0 && k < x.size() / 2)
            f[x.size() / 2 + k] = -double(bin(k).imag());
    }
    state.counters["rms"] = fftTest::errorsOf(f, expected).rms;
}
