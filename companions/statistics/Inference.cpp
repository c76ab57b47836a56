// SPDX-License-Identifier: GPL-3.0-or-later
// Estimates and tests of small samples, by the distributions of the GNU Scientific Library.
#include "statistics/Inference.h"

#include "statistics/Spread.h"

#include <algorithm>
#include <cmath>
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_fit.h>
#include <gsl/gsl_statistics_double.h>
#include <limits>
#include <numeric>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

double twoSided(double t, double freedom)
{
    return 2 * gsl_cdf_tdist_Q(std::abs(t), freedom);
}

double medianOf(QVector<double> values)
{
    return gsl_stats_median(values.data(), 1, static_cast<size_t>(values.size()));
}

} // namespace

MeanEstimate meanEstimate(const QVector<double>& values)
{
    constexpr double upperTail = 0.975;
    const int n = values.size();
    if (n < 2) {
        return {n, n == 1 ? values[0] : noNumber, noNumber, noNumber, noNumber, noNumber};
    }
    const double mean = meanOf(values);
    const double deviation = standardDeviationOf(values);
    const double error = deviation / std::sqrt(n);
    const double reach = gsl_cdf_tdist_Pinv(upperTail, n - 1) * error;
    return {n, mean, deviation, error, mean - reach, mean + reach};
}

double binomialUpperTail(int nHits, int n, double chance)
{
    return nHits <= 0
        ? 1.0
        : gsl_cdf_binomial_Q(static_cast<unsigned>(nHits - 1), chance, static_cast<unsigned>(n));
}

double evenSplitProbability(int nHits, int n)
{
    constexpr double fair = 0.5;
    return n == 0 ? 1.0 : std::min(1.0, 2 * binomialUpperTail(std::max(nHits, n - nHits), n, fair));
}

Trend trendOf(const QVector<double>& values)
{
    const int n = values.size();
    const bool isFinite = std::all_of(
        values.cbegin(), values.cend(), [](double value) { return std::isfinite(value); });
    if (n < 3 || !isFinite) {
        return {};
    }
    QVector<double> steps(n);
    std::iota(steps.begin(), steps.end(), 0.0);
    double start = 0.0;
    double slope = 0.0;
    double variance00 = 0.0;
    double variance01 = 0.0;
    double variance11 = 0.0;
    double squares = 0.0;
    gsl_fit_linear(steps.constData(), 1, values.constData(), 1, static_cast<size_t>(n), &start,
        &slope, &variance00, &variance01, &variance11, &squares);
    if (variance11 > 0.0) {
        return {slope, twoSided(slope / std::sqrt(variance11), n - 2)};
    }
    return {slope, slope == 0.0 ? 1.0 : 0.0};
}

QVector<double> strangerProbabilities(const QVector<double>& values)
{
    // Leaving a value out moves the mean and the sum of squares by known amounts.
    constexpr double rounding = 1e-12;
    const int n = values.size();
    const double mean = meanOf(values);
    const double squares = std::pow(standardDeviationOf(values), 2) * (n - 1);
    QVector<double> probabilities;
    for (const double value : values) {
        const double distance = (value - mean) * n / (n - 1);
        const double squaresOfOthers = squares - std::pow(value - mean, 2) * n / (n - 1);
        const double deviation = std::sqrt(squaresOfOthers / (n - 2));
        const bool isKnown = n >= 3 && squaresOfOthers > squares * rounding;
        probabilities.append(isKnown
                ? twoSided(distance / (deviation * std::sqrt(1 + 1.0 / (n - 1))), n - 2)
                : noNumber);
    }
    return probabilities;
}

QVector<int> outliersOf(const QVector<double>& values)
{
    constexpr double reach = 3;
    constexpr double perDeviation = 1.4826; // a normal distribution's deviation over its MAD
    QVector<double> logarithms;
    for (const double value : values) {
        if (value > 0.0) {
            logarithms.append(std::log(value));
        }
    }
    if (logarithms.isEmpty()) {
        return {};
    }
    const double median = medianOf(logarithms);
    for (double& logarithm : logarithms) {
        logarithm = std::abs(logarithm - median);
    }
    const double limit = reach * perDeviation * medianOf(logarithms);
    QVector<int> outliers;
    for (int i = 0; i < values.size(); ++i) {
        if (values[i] > 0.0 && limit > 0.0 && std::abs(std::log(values[i]) - median) > limit) {
            outliers.append(i);
        }
    }
    return outliers;
}
