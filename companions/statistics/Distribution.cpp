// SPDX-License-Identifier: GPL-3.0-or-later
// Mean, spread and quantiles of a figure.
#include "statistics/Distribution.h"

#include "statistics/Spread.h"

#include <algorithm>
#include <cmath>
#include <gsl/gsl_statistics_double.h>
#include <limits>
#include <utility>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<double> sortedNumbers(std::vector<double> values)
{
    const auto isNan = [](double value) { return std::isnan(value); };
    values.erase(std::remove_if(values.begin(), values.end(), isNan), values.end());
    std::sort(values.begin(), values.end());
    return values;
}

} // namespace

Distribution::Distribution(std::vector<double> values)
    : m_sorted(sortedNumbers(std::move(values)))
    , m_mean(meanOf(m_sorted))
    , m_standardDeviation(standardDeviationOf(m_sorted))
{
}

double Distribution::quantile(double share) const
{
    return m_sorted.empty()
        ? notANumber
        : gsl_stats_quantile_from_sorted_data(m_sorted.data(), 1, m_sorted.size(), share);
}
