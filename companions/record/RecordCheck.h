// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Data;
struct RunRecord;

/// A line of a record that cannot be true if those before it are.
struct Contradiction {
    int line = 0; ///< counted from 1
    QString text; ///< empty: there is none
};

/// Takes a run that was read from its file through the rules of the trial loop once more. Values,
/// threshold and means may differ in their last bits, as they do between computers.
/// @return the first line that contradicts those before it
Contradiction contradictionOf(const RunRecord& run);

/// The session record after the trials that were answered, each as its lines tell it: trials and
/// reversals. Everything else is as it was at Go.
Data answeredRun(const RunRecord& run);

/// Whether a run, as answeredRun() tells it, went on to its last reversal: whatever stopped the
/// program after the last answer, no trial is missing.
bool hasAllTrials(const Data& answered);
