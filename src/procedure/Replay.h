// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

#include <optional>

class Data;

/// How the values of a run's trials are given.
struct ValueNotation {
    /// The adapted value's upper bound in the unit of the values. Where it is not known, as in a
    /// file with frequency differences in Hz, the first value that stays below what its step would
    /// give is taken to be it, and it has to hold from then on.
    std::optional<double> ceiling;
    /// How far a given value may lie from the true one: half a unit of its last decimal.
    double rounding;
};

/// The exact fractions of the application's record.
/// @param mainParameter any but the two has values without a ceiling
ValueNotation exactFractions(int mainParameter);

/// The first column of a results file.
ValueNotation resultsFileValues(int mainParameter);

/// What in a trial is not as the rule and the trial loop make it.
enum class Departure {
    none,
    afterTheEnd, ///< the run had all its reversals before this trial
    stimulusPosition, ///< neither 2 nor 3
    responsePosition, ///< neither 2 nor 3
    correctness, ///< contradicts the positions
    value ///< does not follow from the values and the answers before, or is no number
};

/// What the rule makes of one trial of a run.
struct ReplayedTrial {
    /// The value that follows from the values and the answers before, as well as their rounding
    /// tells; the trial's own for the first trial.
    double expected;
    bool isReversal;
    int reversalCount; ///< reversals up to this trial, itself included
    Departure departure; ///< the first in the order above, if there are several
};

/// A run taken through the staircase's rule once more.
struct Replay {
    QVector<ReplayedTrial> trials; ///< one for each record
    QVector<double> reversals; ///< values of all trials that are reversals

    /// Index of the first trial that departs from the rule; -1 if none does.
    int firstDeparture() const;
};

/// Replays a run. The first trial may have any value. After a value that departs, the run is judged
/// on from that value; reversals are judged by the records' correctness as it stands.
/// @param run its records, nReversals and step rule are used. Where the number of reversals is not
///            known, nReversals is the largest int: nothing is after the end then, and the run is
///            complete if its last trial is a reversal.
Replay replay(const Data& run, const ValueNotation& notation);
