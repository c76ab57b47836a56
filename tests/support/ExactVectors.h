// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

#include <algorithm>
#include <cmath>

/// Index of the first element in which two vectors differ, NaN being equal to NaN and 0 to -0; the
/// smaller size where only the sizes differ; -1 where the vectors are equal.
inline int firstDifference(const QVector<double>& a, const QVector<double>& b)
{
    const auto same
        = [](double x, double y) { return !(x < y) && !(x > y) && std::isnan(x) == std::isnan(y); };
    const int common = std::min(a.size(), b.size());
    const auto place = std::mismatch(a.begin(), a.begin() + common, b.begin(), same).first;
    const int index = static_cast<int>(place - a.begin());
    return index == common && a.size() == b.size() ? -1 : index;
}

/// Whether every element is NaN, and there is one.
inline bool areAllNaN(const QVector<double>& values)
{
    return !values.isEmpty()
        && std::all_of(values.begin(), values.end(), [](double x) { return std::isnan(x); });
}
