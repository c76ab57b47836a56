// SPDX-License-Identifier: GPL-3.0-or-later
// Mean, standard deviation and limits of measured values.
#include "timing/Summary.h"

#include "statistics/Spread.h"

#include <algorithm>

Summary summaryOf(const QVector<double>& values)
{
    Summary summary;
    if (values.isEmpty())
        return summary;
    summary.n = values.size();
    summary.minimum = *std::min_element(values.cbegin(), values.cend());
    summary.maximum = *std::max_element(values.cbegin(), values.cend());
    summary.mean = meanOf(values);
    if (summary.n > 1)
        summary.sd = standardDeviationOf(values);
    return summary;
}
