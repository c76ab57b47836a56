// SPDX-License-Identifier: GPL-3.0-or-later
// The shapes of fitted psychometric functions, their inverses and slopes.
#include "psychometrics/FittedFunction.h"

#include "psychometrics/PsychometricFunction.h"

#include <cmath>
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_randist.h>
#include <limits>

using namespace quorin;

namespace {

double cumulative(FitShape shape, double z)
{
    switch (shape) {
    case FitShape::logistic:
        return 1.0 / (1.0 + std::exp(-z));
    case FitShape::weibull:
        return -std::expm1(-std::exp(z));
    case FitShape::gauss:
        break;
    }
    return gsl_cdf_ugaussian_P(z);
}

double inverse(FitShape shape, double share)
{
    switch (shape) {
    case FitShape::logistic:
        return std::log(share / (1.0 - share));
    case FitShape::weibull:
        return std::log(-std::log1p(-share));
    case FitShape::gauss:
        break;
    }
    return gsl_cdf_ugaussian_Pinv(share);
}

double density(FitShape shape, double z)
{
    switch (shape) {
    case FitShape::logistic:
        return cumulative(shape, z) * cumulative(shape, -z);
    case FitShape::weibull:
        return std::exp(z - std::exp(z));
    case FitShape::gauss:
        break;
    }
    return gsl_ran_ugaussian_pdf(z);
}

} // namespace

double FittedFunction::probabilityRight(double decibels) const
{
    return guessRate
        + (1.0 - guessRate - lapseRate) * cumulative(shape, (decibels - middleDb) / spreadDb);
}

double FittedFunction::decibelsAt(double probability) const
{
    const double share = (probability - guessRate) / (1.0 - guessRate - lapseRate);
    return share > 0.0 && share < 1.0 ? middleDb + spreadDb * inverse(shape, share)
                                      : std::numeric_limits<double>::quiet_NaN();
}

double FittedFunction::slope() const
{
    constexpr double midway = 0.75;
    const double z = (decibelsAt(midway) - middleDb) / spreadDb;
    return (1.0 - guessRate - lapseRate) * density(shape, z) / spreadDb;
}
