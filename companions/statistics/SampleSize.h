// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

/// How many values a test needs to see a difference.
struct SampleSize {
    int n; ///< 0: more than mostSampled would be needed
    double power; ///< share of the simulated studies with that n whose test is significant
};

namespace quorin {

/// The largest n that is tried.
constexpr int mostSampled = 1000;

} // namespace quorin

/// The fewest values a group with which Student's two-sample t test (equal variances, two-sided,
/// 5 %) sees the difference of two groups in 80 % of 2000 simulated studies, each of which draws
/// its values from those that are given.
/// @param first, second at least two values each, that are not all the same
SampleSize groupsNeeded(
    const std::vector<double>& first, const std::vector<double>& second, std::uint64_t seed);

/// The same for one group and Student's t test of paired values.
/// @param differences of the pairs
SampleSize pairsNeeded(const std::vector<double>& differences, std::uint64_t seed);
