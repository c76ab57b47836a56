// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/Spread.h"

#include <cmath>
#include <limits>
#include <numeric>

double meanOf(const QVector<double>& values)
{
    return std::accumulate(values.cbegin(), values.cend(), 0.0) / values.size();
}

double standardDeviationOf(const QVector<double>& values)
{
    if (values.size() < 2) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const double mean = meanOf(values);
    double sum = 0.0;
    for (const double value : values) {
        sum += (value - mean) * (value - mean);
    }
    return std::sqrt(sum / (values.size() - 1));
}

double geometricMeanOf(const QVector<double>& values)
{
    double sum = 0.0;
    for (const double value : values) {
        sum += std::log(value);
    }
    return std::exp(sum / values.size());
}
