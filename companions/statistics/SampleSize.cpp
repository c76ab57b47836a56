// SPDX-License-Identifier: GPL-3.0-or-later
// How many values a study needs, found by simulated studies.
#include "statistics/SampleSize.h"

#include "statistics/Spread.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gsl/gsl_cdf.h>
#include <random>

using namespace quorin;

namespace {

constexpr int nStudies = 2000;
constexpr double powerNeeded = 0.8;
constexpr double upperQuantile = 0.975; // of a two-sided test at 5 %

// Share of the simulated studies with n values a group whose test is significant.
using Power = std::function<double(int n)>;

std::vector<double> drawn(const std::vector<double>& pool, int n, std::mt19937_64& generator)
{
    std::vector<double> values(static_cast<size_t>(n));
    for (double& value : values) {
        value = pool[generator() % pool.size()];
    }
    return values;
}

double squaresOf(const std::vector<double>& values)
{
    const double deviation = standardDeviationOf(values);
    return deviation * deviation * static_cast<double>(values.size() - 1);
}

bool groupsDiffer(
    const std::vector<double>& first, const std::vector<double>& second, double criticalT)
{
    const auto n = static_cast<double>(first.size());
    const double variance = (squaresOf(first) + squaresOf(second)) / (2.0 * n - 2.0);
    return std::abs(meanOf(first) - meanOf(second)) > criticalT * std::sqrt(2.0 * variance / n);
}

bool pairsDiffer(const std::vector<double>& differences, double criticalT)
{
    const auto n = static_cast<double>(differences.size());
    return std::abs(meanOf(differences))
        > criticalT * standardDeviationOf(differences) / std::sqrt(n);
}

// Doubles n until the power is reached, then halves the interval.
SampleSize fewest(const Power& power)
{
    constexpr int least = 2;
    int enough = least;
    int tooFew = least - 1;
    double reached = power(enough);
    while (reached < powerNeeded) {
        if (enough == mostSampled) {
            return {0, reached};
        }
        tooFew = enough;
        enough = std::min(2 * enough, mostSampled);
        reached = power(enough);
    }
    while (enough - tooFew > 1) {
        const int middle = (enough + tooFew) / 2;
        const double share = power(middle);
        if (share < powerNeeded) {
            tooFew = middle;
        } else {
            enough = middle;
            reached = share;
        }
    }
    return {enough, reached};
}

} // namespace

SampleSize groupsNeeded(
    const std::vector<double>& first, const std::vector<double>& second, std::uint64_t seed)
{
    return fewest([&](int n) {
        std::mt19937_64 generator(seed);
        const double criticalT = gsl_cdf_tdist_Pinv(upperQuantile, 2 * n - 2);
        int nSeen = 0;
        for (int i = 0; i < nStudies; ++i) {
            const std::vector<double> one = drawn(first, n, generator);
            nSeen += groupsDiffer(one, drawn(second, n, generator), criticalT) ? 1 : 0;
        }
        return static_cast<double>(nSeen) / nStudies;
    });
}

SampleSize pairsNeeded(const std::vector<double>& differences, std::uint64_t seed)
{
    return fewest([&](int n) {
        std::mt19937_64 generator(seed);
        const double criticalT = gsl_cdf_tdist_Pinv(upperQuantile, n - 1);
        int nSeen = 0;
        for (int i = 0; i < nStudies; ++i) {
            nSeen += pairsDiffer(drawn(differences, n, generator), criticalT) ? 1 : 0;
        }
        return static_cast<double>(nSeen) / nStudies;
    });
}
