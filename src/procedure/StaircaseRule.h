// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Data;

/// The limits of the trend's vertical axis while there is nothing to show, % or Hz.
constexpr double emptyTrendMin = 0.0;
constexpr double emptyTrendMax = 100.0;

/// The upper bounds of what is adapted, fractions.
constexpr double fullModulation = 1.0;
constexpr double largestDifference = 0.9999; ///< keeps the deviant's carrier above 0 Hz

// The weighted up-down rule: a correct answer makes the deviant harder to tell apart by one step, a
// wrong one easier by two. Steps are 2 dB until two reversals have been counted and 1 dB after
// that. In the long run 2/3 of the answers are correct: Kaernbach (1991), Percept. Psychophys. 49,
// 227-229.

/// One step of the adapted value.
/// @param value   modulation depth or relative frequency difference, a fraction
/// @param stepDb  dB of amplitude: +4, +2, -2 or -1; the ratio is 10^(stepDb / 20)
/// @param ceiling upper bound, a fraction; there is no lower bound
/// @return value times the ratio, at most ceiling; NaN stays NaN
double steppedValue(double value, int stepDb, double ceiling);

/// The size of the next step in dB: the multiplier in force times the step size at the present
/// count of reversals; the last size goes on beyond the table's end.
int nextStepDb(const Data& data);

/// Whether the trial that nTrials counts last is one of the records.
bool hasCurrentRecord(const Data& data);

/// The value that the staircase adapts, in the unit of Record::value: the deviant's frequency
/// difference or modulation depth. Any other main parameter gives 0.
double adaptedValue(const Data& data);

/// What follows a judged trial.
enum class AfterTrial { nextTrial, end };

/// Judges one of the run's trials: chooses the next step's direction and, when the trial's
/// correctness differs from that of the trial before, stores its value as a reversal and counts it.
/// The first trial is never a reversal.
/// @param trial index into the records
/// @return the end, once as many reversals as asked for have been counted: computeRunResults is
///         next; stepDeviant otherwise
AfterTrial judgeTrial(Data& data, int trial);

/// Whether as many reversals as asked for have been counted.
bool enoughReversals(const Data& data);

/// Moves the deviant by one step: its modulation depth, at most 1, or its frequency difference, at
/// most 0.9999, with its carrier that far below the standard's. Any other main parameter changes
/// nothing.
void stepDeviant(Data& data);

/// Puts the deviant to the starting values of the main parameter: 5 % below the standard's carrier
/// and unmodulated, or the standard's carrier at a depth of 0.5. Any other main parameter changes
/// nothing.
void resetDeviant(Data& data);

/// Clears the trials, reversals and results of a run. The list of reversals keeps its length.
void clearRun(Data& data);
