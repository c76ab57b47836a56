// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTest>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <cstring>

/// Of a handful of operations on numbers of about 1.
constexpr double roundingTolerance = 1e-15;

/// Whether two numbers are the same to the last bit: 0 is not -0, and a NaN is itself.
inline bool sameBits(double a, double b)
{
    quint64 bitsOfA = 0;
    quint64 bitsOfB = 0;
    std::memcpy(&bitsOfA, &a, sizeof(double));
    std::memcpy(&bitsOfB, &b, sizeof(double));
    return bitsOfA == bitsOfB;
}

/// What a failed QUORIN_COMPARE_EXACT says.
inline QString unlikeBits(double actual, double expected)
{
    constexpr int everyDigit = 17;
    return QString("%1 instead of %2")
        .arg(actual, 0, 'g', everyDigit)
        .arg(expected, 0, 'g', everyDigit);
}

/// Fails the running test unless two numbers have the same bits; QCOMPARE lets doubles differ by
/// 1e-12 of their size.
#define QUORIN_COMPARE_EXACT(actual, expected)                                                     \
    QVERIFY2(sameBits(actual, expected), qPrintable(unlikeBits(actual, expected)))

/// Index of the first element whose bits differ in two vectors; the smaller size where only the
/// sizes differ; -1 where the vectors are the same.
inline int firstDifference(const QVector<double>& a, const QVector<double>& b)
{
    const int common = std::min(a.size(), b.size());
    const auto place = std::mismatch(a.begin(), a.begin() + common, b.begin(), sameBits).first;
    const int index = static_cast<int>(place - a.begin());
    return index == common && a.size() == b.size() ? -1 : index;
}

/// Whether every element is NaN, and there is one.
inline bool areAllNaN(const QVector<double>& values)
{
    return !values.isEmpty()
        && std::all_of(values.begin(), values.end(), [](double x) { return std::isnan(x); });
}
