// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "psychometrics/PsychometricFunction.h"
#include "session/Data.h"

/// What is simulated: a listener, and the settings of the experiment.
struct Simulation {
    PsychometricFunction listener;
    int mainParameter; ///< carrierFrequencyParameter or modulationDepthParameter
    int soundType; ///< sinusoidCarrier or noiseCarrier; only the names of files tell it
    double startValue; ///< of the deviant, a fraction above 0
    int nReversals; ///< that end a run, at least 1
    int nReversalsToCalculate; ///< averaged into the threshold, 1 to nReversals
    int nRuns; ///< experiments, at least 1
    int runsAveraged; ///< runs of each experiment, whose thresholds are averaged; at least 1
    quint64 seed; ///< runs of one seed, subject and number are alike, whatever else is simulated
    QString subCode; ///< subject code: subjects of one seed have other runs
    int mostTrials; ///< a run that has not ended by then is cut; at least 1
    double standardCarrier; ///< Hz
    double soundMs; ///< length of each of the four sounds, ms
    double silenceMs; ///< between two of them, ms
    double reactionMs; ///< mean reaction time, ms
    double reactionSdMs; ///< 0: all are alike; else reaction times are log-normal, in whole ms
};

/// How many runs all experiments have together.
int runCount(const Simulation& simulation);

/// The application's defaults with a logistic listener.
Simulation defaultSimulation(int mainParameter);

/// What a statistic needs of a run.
struct RunOutcome {
    double threshold; ///< a fraction; NaN for a run that was cut
    int nTrials;
    int nCorrect;
    int nReversals;
};

/// The application's record as Go leaves it for one of the runs.
Data preparedRun(const Simulation& simulation);

/// Runs one experiment by the application's own staircase and computes its results.
/// @param data  of preparedRun() or of an earlier run of the same simulation; holds the trials,
///              reversals and results afterwards
/// @param index number of the run, from 0; decides with the seed about all that is random in it
RunOutcome simulateRun(Data& data, const Simulation& simulation, int index);

/// How long a trial lasts, s: the application's silent period before each of the four sounds, the
/// last sound and the answer.
double secondsPerTrial(const Simulation& simulation);

/// The same for a number of trials, in minutes.
double minutesOf(const Simulation& simulation, double nTrials);

/// The unit that the application shows a fraction of the main parameter in, "%" or "Hz".
QString shownUnit(const Simulation& simulation);

/// What one as a fraction is in that unit.
double shownPerFraction(const Simulation& simulation);
