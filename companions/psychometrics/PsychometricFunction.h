// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

namespace quorin {

/// Share of right answers of a listener who guesses between two intervals.
constexpr double guessRate = 0.5;

} // namespace quorin

/// How often a listener is right about a deviant: from chance (0.5) for values far below the
/// threshold to 1 far above it, less the lapse rate. Made by one of the functions below.
struct PsychometricFunction {
    enum class Kind {
        logistic,
        weibull,
        gaussian,
        constant,
    };

    Kind kind;
    double threshold; ///< value at which 2 of 3 answers are right without lapses; a fraction > 0
    double slope; ///< what steepens the function; its meaning and unit depend on the kind
    double probability; ///< of a right answer, for a constant listener
    /// lambda, 0 to 0.5: the largest share of right answers is 1 - lambda. Of the trials 2 lambda
    /// are answered by chance: p becomes 0.5 + (1 - 2 lambda) (p - 0.5), as in Wichmann and Hill
    /// (2001), Percept. Psychophys. 63, 1293-1313, with a guess rate of 0.5.
    double lapseRate;

    /// @param value of the deviant, a fraction; 0 gives the listener's lowest share, NaN gives NaN
    ///              unless the listener is constant
    double probabilityRight(double value) const;
};

/// 0.5 + 0.5 / (1 + exp(-(x - x0) / s)) over x = 20 log10(value).
/// @param slopeDb s, dB, above 0
PsychometricFunction logisticListener(double threshold, double slopeDb, double lapseRate = 0.0);

/// 0.5 + 0.5 (1 - exp(-(value / a)^beta)): Weibull (1951), J. Appl. Mech. 18, 293-297.
/// @param beta above 0
PsychometricFunction weibullListener(double threshold, double beta, double lapseRate = 0.0);

/// Phi(0.430727 (value / threshold)^k), Phi the normal distribution function: what two intervals
/// give when the sensitivity d' is a power function of the value (Green and Swets, 1966, Signal
/// Detection Theory and Psychophysics).
/// @param k above 0
PsychometricFunction gaussianListener(double threshold, double k, double lapseRate = 0.0);

/// Right with one probability, whatever the deviant; has no threshold (NaN).
PsychometricFunction constantListener(double probability, double lapseRate = 0.0);

/// The generator's next number as a fraction, 0 included and 1 not, in steps of 2^-53. The same on
/// every machine, which the standard library's distributions are not.
double nextFraction(std::mt19937_64& generator);

/// A number of the standard normal distribution, from one of the generator's.
double nextNormal(std::mt19937_64& generator);
