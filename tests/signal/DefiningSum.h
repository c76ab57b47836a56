// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <complex>
#include <cstddef>
#include <vector>

/// Discrete Fourier transforms in long double, to measure others by.
namespace definingSum {

using Complex = std::complex<long double>;

/// exp(-2 pi i j / n) for j = 0 ... n - 1.
inline std::vector<Complex> roots(std::size_t n)
{
    std::vector<Complex> result(n);
    const long double twoPi = 2.0L * std::acos(-1.0L);
    for (std::size_t j = 0; j < n; ++j) {
        const long double angle = twoPi * static_cast<long double>(j) / static_cast<long double>(n);
        result[j] = Complex(std::cos(angle), -std::sin(angle));
    }
    return result;
}

/// Bin k as the sum of all x[m] exp(-2 pi i k m / n).
inline Complex bin(const std::vector<double>& x, const std::vector<Complex>& roots, std::size_t k)
{
    Complex sum;
    for (std::size_t m = 0; m < x.size(); ++m)
        sum += static_cast<long double>(x[m]) * roots[k * m % x.size()];
    return sum;
}

/// All bins of every stride-th sample from first on, by halving.
inline std::vector<Complex> spectrum(const std::vector<double>& x,
    const std::vector<Complex>& roots, std::size_t first = 0, std::size_t stride = 1)
{
    const std::size_t n = x.size() / stride;
    if (n == 1)
        return {Complex(x[first])};
    const std::vector<Complex> even = spectrum(x, roots, first, stride * 2);
    const std::vector<Complex> odd = spectrum(x, roots, first + stride, stride * 2);
    std::vector<Complex> result(n);
    for (std::size_t k = 0; k < n / 2; ++k) {
        const Complex turned = odd[k] * roots[k * stride];
        result[k] = even[k] + turned;
        result[k + n / 2] = even[k] - turned;
    }
    return result;
}

} // namespace definingSum
