// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/ResultsReader.h"
#include "session/Data.h"

#include <QString>
#include <QVector>

/// A run as its results file tells it.
struct Run {
    QString path;
    bool isNamed = false; ///< whether data has subject, session and sound from the file's name
    /// The trials, reversals and results. Values and threshold are in the shown unit, not
    /// fractions: the file does not tell the standard's carrier. nReversals and
    /// nReversalsToCalculate hold the rule on entry; everything else that the file does not tell is
    /// at its default.
    Data data;
    QVector<int> reversalTrials; ///< indices of the trials that are reversals
    double standardDeviation = 0.0; ///< of the reversals that the threshold averages, over n - 1
    double geometricMean = 0.0; ///< of the same; NaN when a value is negative
    double percentCorrect = 0.0;
};

/// Judges the trials with the staircase's own rules and fills the reversals and all results.
/// Needs at least one trial.
void judgeRun(Run& run);

/// The reversals that the threshold averages. Empty when there are fewer than the rule needs.
QVector<double> usedReversals(const Data& data);

/// Reads the file at run.path and judges it.
/// @return the reason why the run cannot be used: it cannot be read, is damaged, is of another kind
///         than its name says, or has too few reversals; without text when all is well
Complaint readRun(Run& run);

/// Hz or %.
QString unitOf(const Data& data);

/// The subject's code; the whole name of a file that does not tell it.
QString subjectOf(const Run& run);

/// Session type and number as in the file's name, such as test001; "-" when the name does not tell.
QString sessionOf(const Run& run);

/// The type of sound; "-" when the file's name does not tell.
QString soundOf(const Run& run);

/// What the threshold is: "threshold: mean of the last 8 of 14 reversals".
QString ruleOf(const Data& data);
