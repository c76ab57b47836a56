// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Record.h"

#include <QVector>

class Data;

/// Mean reaction times in ms; a group without trials has NaN.
struct MeanReactionTimes {
    double all;
    double correct;
    double incorrect;
};

/// Arithmetic mean of the last n of nReversals reversal values, entries nReversals - n to
/// nReversals - 1. Entries outside the list count as nothing in the sum, yet the divisor stays n:
/// n = 0 gives NaN, a negative n gives -0.
double meanOfLastReversals(const QVector<double>& reversals, int nReversals, int n);

/// Mean reaction times over all, the correct and the wrong records; all NaN without records.
MeanReactionTimes meanReactionTimes(const QVector<Record>& records);

/// Fills the record's threshold and three mean reaction times from its reversals and trials.
void computeRunResults(Data& data);
