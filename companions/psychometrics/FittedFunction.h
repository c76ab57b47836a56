// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What is fitted: 0.5 + (0.5 - lambda) F((x - m) / s) over x in dB.
enum class FitShape {
    logistic, ///< F(z) = 1 / (1 + exp(-z))
    weibull, ///< F(z) = 1 - exp(-exp(z)): Weibull's function of the value, beta = 20 / (s ln 10)
    gauss, ///< F(z) = Phi(z), the normal distribution function of the logarithmic value
};

/// A psychometric function of one of the shapes.
struct FittedFunction {
    FitShape shape;
    double middleDb; ///< m
    double spreadDb; ///< s, above 0
    double lapseRate; ///< lambda, 0 to below 0.5

    double probabilityRight(double decibels) const;
    /// Where a share of right answers is reached, lapses included, dB; NaN for a share that is not
    /// between 0.5 and 1 - lambda.
    double decibelsAt(double probability) const;
    /// Slope of the function at 75 % right, share per dB; NaN if it does not come there.
    double slope() const;
};
