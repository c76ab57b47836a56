// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <limits>
#include <numeric>

// Of any container of double.

/// Arithmetic mean; NaN without values.
template <typename Values> double meanOf(const Values& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Standard deviation over n - 1; NaN for fewer than two values.
template <typename Values> double standardDeviationOf(const Values& values)
{
    if (values.size() < 2) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const double mean = meanOf(values);
    double squares = 0.0;
    for (const double value : values) {
        squares += (value - mean) * (value - mean);
    }
    return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

/// The n-th root of the product: 0 if a value is 0, NaN if one is negative or there is none.
template <typename Values> double geometricMeanOf(const Values& values)
{
    double sum = 0.0;
    for (const double value : values) {
        sum += std::log(value);
    }
    return std::exp(sum / static_cast<double>(values.size()));
}
