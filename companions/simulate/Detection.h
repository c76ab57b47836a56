// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"
#include "statistics/SampleSize.h"

#include <QVector>

#include <functional>

/// Two conditions whose thresholds differ by a ratio.
struct Comparison {
    double ratio; ///< of the second condition's threshold to the first's; above 0 and not 1
    double listenerSdDb; ///< SD of the listeners' thresholds, dB; the ratio is the same for all
};

/// What a study needs to show the difference, with a number of runs per listener and condition.
struct StudySize {
    int nRuns; ///< of each listener in each of the listener's conditions
    SampleSize groups; ///< listeners in each of two groups, one for each condition
    SampleSize pairs; ///< listeners who are each in both conditions
};

/// How large studies must be to show a difference, and how many trials they take.
struct Detection {
    SampleSize runs; ///< runs in each condition, of one listener alone; the power is NaN when
                     ///< too few listeners had no run that was cut
    QVector<StudySize> studies; ///< for 1, 2, 3, 4, 6 and 8 runs
    double trialsPerRun; ///< mean over both conditions
    double shareCut; ///< of the runs; those are left out with their listeners
};

/// Told what share of the work is done.
using ShareDone = std::function<void(double share)>;

/// Simulates listeners in both conditions, as many as the simulation has runs, and studies that
/// draw from them. Tests are Student's t tests of 20 log10 of the thresholds.
/// @param simulation of the first condition; a listener with a threshold
Detection detection(
    const Simulation& simulation, const Comparison& comparison, const ShareDone& shareDone);
