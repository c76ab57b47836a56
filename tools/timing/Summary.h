// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// What a list of measured values comes to, in their unit.
struct Summary {
    int n = 0;
    double mean = 0.0;
    double sd = 0.0; ///< of the sample, over n - 1; 0 if n is below 2
    double minimum = 0.0;
    double maximum = 0.0;
};

/// The summary of finite values; all zero if there are none.
Summary summaryOf(const QVector<double>& values);
