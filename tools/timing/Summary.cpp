// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/Summary.h"

#include <algorithm>
#include <cmath>

Summary summaryOf(const QVector<double>& values)
{
    Summary summary;
    if (values.isEmpty())
        return summary;
    summary.n = values.size();
    summary.minimum = *std::min_element(values.cbegin(), values.cend());
    summary.maximum = *std::max_element(values.cbegin(), values.cend());
    double sum = 0.0;
    for (const double value : values)
        sum += value;
    summary.mean = sum / summary.n;
    double squares = 0.0;
    for (const double value : values)
        squares += (value - summary.mean) * (value - summary.mean);
    if (summary.n > 1)
        summary.sd = std::sqrt(squares / (summary.n - 1));
    return summary;
}
