// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "psychometrics/PsychometricFit.h"
#include "report/Run.h"

#include <QMap>

#include <map>
#include <tuple>

/// What is fitted, and how.
struct FitOptions {
    bool isAsked = false;
    FitShape shape = FitShape::logistic;
    LapseLimits lapses {0.0, 0.06};
    int nSamples = 1000; ///< of the bootstrap
    quint64 seed = 1; ///< of each fit's samples
    QString csvPath; ///< empty: none
};

/// The function fitted to all trials of a subject and condition.
struct SubjectFit {
    QString subject;
    QString mainParameter;
    QString sound; ///< "unknown" if the file's name does not tell
    QString sessionType; ///< the same
    QString unit; ///< % or Hz
    QString quantity; ///< what is adapted, with the unit
    double unitsAtZeroDb; ///< 100 %, so that dB are those of the modulation depth, or 1 Hz
    int nRuns;
    int nTrials;
    std::vector<FitLevel> levels; ///< by rising values
    PsychometricFit fit;
    FitPrecision precision;

    /// A value in the unit from one in dB.
    double inUnit(double decibels) const;
};

/// Gathers the trials of runs by subject and condition, and fits them.
class SubjectFits {
public:
    /// Counts a run's trials in.
    /// @param run read and judged, with its records
    void add(const Run& run);
    /// A fit for each subject and condition, in the order of the subjects' names.
    /// @param fitDone told how many of the fits, as a share from 0 to 1, are done
    QVector<SubjectFit> made(
        const FitOptions& options, const std::function<void(double)>& fitDone) const;

private:
    using Condition = std::tuple<QString, int, QString, QString>;
    struct Answers {
        int nRuns = 0;
        std::map<double, FitLevel> levels; ///< by value in the file's unit
    };
    QMap<Condition, Answers> m_answers;
};
