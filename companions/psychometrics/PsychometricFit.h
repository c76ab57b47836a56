// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "psychometrics/FittedFunction.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// All trials of one value of the deviant.
struct FitLevel {
    double decibels; ///< 20 log10 of the value; -infinity is taken as far below the threshold
    int nTrials; ///< at least 1
    int nCorrect; ///< 0 to nTrials
};

/// The shares of right answers that a staircase of this program, one of two down and one up, and
/// one half way from chance to certainty tend to.
constexpr std::array<double, 3> fitTargets {2.0 / 3.0, 0.70710678118654752440, 0.75};

/// The limits of a fit's lapse rate: alike if it is fixed.
struct LapseLimits {
    double least;
    double most; ///< below 0.25, so that 75 % right is reached
};

/// The function of largest likelihood.
struct PsychometricFit {
    FittedFunction function;
    double deviance; ///< 2 ln of the likelihood ratio to each level's own share
    /// Whether m or s might as well lie at the limits of the search: the answers do not determine
    /// them.
    bool isAtLimit;
};

/// Fits by maximum likelihood: Wichmann and Hill (2001), Percept. Psychophys. 63, 1293-1313. The
/// search is Nelder and Mead's, with s from 0.1 to 40 dB and m up to 20 dB beyond the levels.
/// @param levels at least one with a finite value
PsychometricFit psychometricFit(
    const std::vector<FitLevel>& levels, FitShape shape, const LapseLimits& lapses);

/// An interval that holds 95 % of the bootstrap's figures, by its quantiles.
struct FitInterval {
    double low;
    double high;
};

/// How sure a fit is.
struct FitPrecision {
    std::array<FitInterval, fitTargets.size()> thresholds; ///< dB, of each target
    FitInterval slope; ///< share per dB, at 75 % right
    FitInterval lapseRate;
    double devianceProbability; ///< share of the samples whose deviance is at least the fit's
};

/// Told how many samples are done.
using SamplesDone = std::function<void(int nSamples)>;

/// Parametric bootstrap: answers are drawn from the fit at its own levels and fitted as it was.
/// @param nSamples at least 1
FitPrecision fitPrecision(const std::vector<FitLevel>& levels, const PsychometricFit& fit,
    const LapseLimits& lapses, int nSamples, std::uint64_t seed, const SamplesDone& samplesDone);
