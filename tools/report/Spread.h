// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// Arithmetic mean; NaN without values.
double meanOf(const QVector<double>& values);

/// Standard deviation over n - 1; NaN for fewer than two values.
double standardDeviationOf(const QVector<double>& values);

/// The n-th root of the product: 0 if a value is 0, NaN if one is negative or there is none.
double geometricMeanOf(const QVector<double>& values);
