// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"
#include "statistics/Distribution.h"

#include <vector>

/// The figures of all experiments of a simulation. One with a run that was cut has no threshold and
/// no number of trials: it counts in the share of correct answers only.
struct RunStatistics {
    Distribution thresholds; ///< fractions; each the mean over the runs of an experiment
    Distribution decibels; ///< 20 log10 of them
    Distribution trials; ///< of all runs of an experiment
    double shareCorrect; ///< of all trials
    int nExperiments;
    int nCut; ///< experiments with a run that did not end

    /// Share of the experiments that were cut.
    double shareCut() const { return static_cast<double>(nCut) / nExperiments; }
};

/// @param outcomes     the runs of each experiment in a row
/// @param runsAveraged runs of each experiment, at least 1
RunStatistics runStatistics(const std::vector<RunOutcome>& outcomes, int runsAveraged = 1);

/// How far the mean threshold lies above the listener's, dB of amplitude: 20 log10 of their ratio.
/// NaN for a listener without a threshold or without a run that ended.
double biasDb(const RunStatistics& statistics, const PsychometricFunction& listener);
