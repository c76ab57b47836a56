// SPDX-License-Identifier: GPL-3.0-or-later
// The functions that simulated listeners answer by, and the numbers that decide an answer.
#include "psychometrics/PsychometricFunction.h"

#include <cmath>
#include <gsl/gsl_cdf.h>
#include <limits>

using namespace quorin;

namespace {

using Kind = PsychometricFunction::Kind;

constexpr double gaussianAtThreshold = 0.430727; // Phi of it is 2/3

double decibels(double value)
{
    return 20.0 * std::log10(value);
}

// Steps up twice as large as those down settle where 2 of 3 answers are right, which is s * ln 2
// below the logistic function's middle.
double logistic(double value, double threshold, double slopeDb)
{
    const double middle = decibels(threshold) + slopeDb * std::log(2.0);
    return guessRate + 0.5 / (1.0 + std::exp(-(decibels(value) - middle) / slopeDb));
}

double weibull(double value, double threshold, double beta)
{
    const double scale = threshold / std::pow(std::log(1.5), 1.0 / beta);
    return guessRate + 0.5 * (1.0 - std::exp(-std::pow(value / scale, beta)));
}

double gaussian(double value, double threshold, double k)
{
    const double z = gaussianAtThreshold * std::pow(value / threshold, k);
    return 0.5 * std::erfc(-z / std::sqrt(2.0));
}

double withoutLapses(const PsychometricFunction& function, double value)
{
    switch (function.kind) {
    case Kind::logistic:
        return logistic(value, function.threshold, function.slope);
    case Kind::weibull:
        return weibull(value, function.threshold, function.slope);
    case Kind::gaussian:
        return gaussian(value, function.threshold, function.slope);
    case Kind::constant:
        break;
    }
    return function.probability;
}

} // namespace

double PsychometricFunction::probabilityRight(double value) const
{
    const double guessed = 2.0 * lapseRate; // share of the trials; half of the guesses are right
    return (1.0 - guessed) * withoutLapses(*this, value) + guessed * guessRate;
}

PsychometricFunction logisticListener(double threshold, double slopeDb, double lapseRate)
{
    return {Kind::logistic, threshold, slopeDb, guessRate, lapseRate};
}

PsychometricFunction weibullListener(double threshold, double beta, double lapseRate)
{
    return {Kind::weibull, threshold, beta, guessRate, lapseRate};
}

PsychometricFunction gaussianListener(double threshold, double k, double lapseRate)
{
    return {Kind::gaussian, threshold, k, guessRate, lapseRate};
}

PsychometricFunction constantListener(double probability, double lapseRate)
{
    return {Kind::constant, std::numeric_limits<double>::quiet_NaN(), 1.0, probability, lapseRate};
}

double nextFraction(std::mt19937_64& generator)
{
    constexpr int unusedBits = 64 - 53;
    return static_cast<double>(generator() >> unusedBits) * 0x1p-53;
}

double nextNormal(std::mt19937_64& generator)
{
    constexpr double halfAStep = 0x1p-54; // keeps 0 out, whose quantile is infinite
    return gsl_cdf_ugaussian_Pinv(nextFraction(generator) + halfAStep);
}
