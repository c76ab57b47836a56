// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Data;

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

/// Moves the deviant by one step: what is adapted, at most to its ceiling. A main parameter other
/// than the two changes nothing.
void stepDeviant(Data& data);

/// Puts the deviant to the main parameter's starting value: the other parameter is 0, and where the
/// depth is adapted the carrier is the standard's. A main parameter other than the two changes
/// nothing.
void resetDeviant(Data& data);

/// Clears the trials, reversals and results of a run. The list of reversals keeps its length.
void clearRun(Data& data);
