// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/DefiningSum.h"

#include <algorithm>
#include <random>

/// Blocks of samples, and how far a transform of them is from the truth.
namespace fftTest {

using Samples = std::vector<double>;
using definingSum::Complex;

inline Samples noise(std::size_t n)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Samples x(n);
    std::generate(x.begin(), x.end(), [&] { return uniform(generator); });
    return x;
}

inline Samples tone(std::size_t n, double cycles, double phase = 0.0)
{
    Samples x(n);
    for (std::size_t i = 0; i < n; ++i)
        x[i] = std::cos(2.0 * M_PI * cycles * double(i) / double(n) + phase);
    return x;
}

inline Samples impulse(std::size_t n, std::size_t position)
{
    Samples x(n, 0.0);
    x[position % n] = 1.0;
    return x;
}

inline Samples paddedNoise(std::size_t n)
{
    Samples x = noise(n);
    std::fill(x.end() - std::ptrdiff_t(n / 4), x.end(), 0.0);
    return x;
}

inline Samples sawtooth(std::size_t n)
{
    Samples x(n);
    for (std::size_t i = 0; i < n; ++i)
        x[i] = double(i % 100) - 20.0;
    return x;
}

inline Complex bin(const Samples& f, std::size_t k)
{
    const std::size_t half = f.size() / 2;
    return {f[k], k == 0 || k == half ? 0.0 : -f[half + k]};
}

struct Errors {
    double rms = 0.0; ///< relative to the RMS of the spectrum
    double largest = 0.0; ///< relative to the largest bin
};

inline Errors errorsOf(const Samples& f, const std::vector<Complex>& expected)
{
    long double errorSquares = 0.0L;
    long double squares = 0.0L;
    long double largestError = 0.0L;
    long double largestBin = 0.0L;
    for (std::size_t k = 0; k <= f.size() / 2; ++k) {
        const long double error = std::abs(bin(f, k) - expected[k]);
        errorSquares += error * error;
        squares += std::norm(expected[k]);
        largestError = std::max(largestError, error);
        largestBin = std::max(largestBin, std::abs(expected[k]));
    }
    return {double(std::sqrt(errorSquares / squares)), double(largestError / largestBin)};
}

} // namespace fftTest
