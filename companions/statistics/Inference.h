// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

// Estimates and tests of small samples. Quantiles and probabilities are those of the GNU Scientific
// Library.

/// Mean, spread and precision of a sample.
struct MeanEstimate {
    int n = 0;
    double mean = 0.0; ///< NaN for n = 0
    double deviation = 0.0; ///< standard deviation over n - 1; NaN for n < 2
    double error = 0.0; ///< standard error of the mean, deviation / sqrt(n); NaN for n < 2
    double low = 0.0; ///< limits of the 95 % interval of the mean,
    double high = 0.0; ///< mean -/+ t(0.975, n - 1) error; NaN for n < 2
};

/// What a sample tells of its mean, by Student's t.
MeanEstimate meanEstimate(const QVector<double>& values);

/// Probability of nHits or more of n by chance.
/// @param chance of a single hit, 0 to 1
double binomialUpperTail(int nHits, int n, double chance);

/// Two-sided probability that n tosses of a fair coin are at least as uneven; 1 for n = 0.
double evenSplitProbability(int nHits, int n);

/// A straight line through values at 0, 1, 2, ...
struct Trend {
    double slope = 0.0; ///< least squares, per step
    double probability = 1.0; ///< of such a slope without a trend: t test over n - 2, two-sided
};

/// The trend of values in their order. Fewer than 3 values, and values that are not all finite,
/// have none: slope 0, probability 1. A line without residuals has the probability 0, or 1 if it is
/// level.
Trend trendOf(const QVector<double>& values);

/// For each value the two-sided probability of one as far from all others, by the t prediction
/// interval of one more value of their sample. NaN with fewer than 3 values or if the others are
/// all alike.
QVector<double> strangerProbabilities(const QVector<double>& values);

/// Indices of the values whose logarithm is more than 3 scaled median absolute deviations from the
/// median of the logarithms. Values of 0 or less are no part of it. None, if most are alike.
/// Leys et al. (2013), J. Exp. Soc. Psychol. 49, 764-766.
QVector<int> outliersOf(const QVector<double>& values);
