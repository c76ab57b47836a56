// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

/// How often a listener is right about a deviant: a logistic function of its value in decibels,
/// from chance (0.5) for values far below the threshold to 1 far above it.
struct PsychometricFunction {
    double threshold; ///< the value at which two answers of three are right; a fraction above 0
    double slopeDb; ///< scale of the logistic function, dB; above 0

    /// @param value of the deviant, a fraction; 0 gives 0.5, NaN gives NaN
    double probabilityRight(double value) const;
};

/// The generator's next number as a fraction, 0 included and 1 not, in steps of 2^-53. The same on
/// every machine, which the standard library's distributions are not.
double nextFraction(std::mt19937_64& generator);
