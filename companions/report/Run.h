// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/SoundLevels.h"
#include "report/ResultsReader.h"
#include "report/RunCheck.h"
#include "session/Data.h"
#include "session/Disturbances.h"

#include <QDateTime>
#include <QString>
#include <QVector>

#include <optional>

/// What the threshold of a run averages, as far as the user asks for it.
struct RunRule {
    std::optional<int> nReversals; ///< reversals that count; without: all that the file has
    std::optional<int> nLast; ///< how many of the last are averaged; without: 8, or all if fewer
};

/// Something about a run that a reader of its threshold should know.
struct Flag {
    QString name; ///< a word or two for a column
    QString seen; ///< what was seen, with figures
    QString meaning; ///< why it matters
};

/// What a run's sounds reach in dB SPL by its calibration.
struct RunLevels {
    RunCalibration calibration;
    double startDb; ///< of the first trial's standard
    double lowestDb; ///< of the sounds of all trials
    double highestDb;
};

/// A run as its results file or its record tells it.
struct Run {
    QString path; ///< as it was given
    QString fileName; ///< of the real file, behind all links
    QDateTime written; ///< when the file was last changed; Go of a recorded run
    bool isNamed = false; ///< whether data has subject, session and sound
    bool isRecorded = false; ///< whether data has all settings at Go
    Complaint departure; ///< where the file departs from the rule, if it was read unchecked
    /// The trials, reversals and results. Values and threshold are in the shown unit with the
    /// decimals of a results file, not fractions: such a file does not tell the standard's carrier.
    /// nReversals and nReversalsToCalculate are those of the threshold; everything else that the
    /// file does not tell is at its default.
    Data data;
    QVector<int> trialLines; ///< the line of each trial in the file
    QVector<Disturbances> disturbances; ///< of each trial; empty where no record tells
    QVector<int> reversalTrials; ///< indices of the trials that are reversals
    double standardDeviation = 0.0; ///< of the reversals that the threshold averages, over n - 1
    double geometricMean = 0.0; ///< of the same; NaN when a value is negative
    double percentCorrect = 0.0;
    std::optional<RunLevels> levels; ///< none: no record tells a calibration
    QVector<Flag> flags;
};

/// Judges the trials with the staircase's own rules and fills the reversals and all results.
/// Needs at least one trial.
/// @return the first trial that does not follow from those before; without text if all do
TrialFault judgeRun(Run& run, const RunRule& rule = {});

/// Judges a run that was read, and keeps what departs from the rule.
/// @param earlier what was found to depart before; without text if nothing was
/// @return the reason why the run cannot be used, as readRun
Complaint judgeReadRun(
    Run& run, const RunRule& rule, bool isUnchecked, const Complaint& earlier = {});

/// The reversals that the threshold averages. Empty when there are fewer than the rule needs.
QVector<double> usedReversals(const Data& data);

/// Whether a reversal is averaged by the threshold.
/// @param reversal index among the run's reversals, from 0
bool isUsed(const Data& data, int reversal);

/// Reads a run from the bytes of the file at run.path and judges it.
/// @param isUnchecked whether a run that departs from the rule is taken nevertheless
/// @return the reason why the run cannot be used: it is damaged, of another kind than its name
///         says, departs from the rule, or has too few reversals; without text when all is well
Complaint readRun(
    Run& run, const QByteArray& bytes, const RunRule& rule = {}, bool isUnchecked = false);

/// Hz or %.
QString unitOf(const Data& data);

/// The subject's code; "unknown" for a results file whose name does not tell it.
QString subjectOf(const Run& run);

/// The same, with the file's name for an unknown subject: two of them may be different people.
QString subjectLabel(const Run& run);

/// Session type and number as in the file's name, such as test001; "unknown" when the name does not
/// tell.
QString sessionOf(const Run& run);

/// Practice or test; "unknown" when the file's name does not tell.
QString sessionTypeOf(const Run& run);

/// The type of sound; "unknown" when the file's name does not tell.
QString soundOf(const Run& run);

/// What the run adapts: "modulation depth" or "carrier frequency".
QString parameterOf(const Run& run);

/// The standard's carrier frequency in Hz, if the run's record tells it.
std::optional<double> carrierOf(const Run& run);

/// The settings of a recorded run on a line; empty for any other.
QString settingsOf(const Run& run);

/// What the threshold is: "threshold: mean of the last 8 of 14 reversals".
QString ruleOf(const Data& data);

/// The same of all runs; without the numbers if they differ.
QString ruleOf(const QVector<Run>& runs);
