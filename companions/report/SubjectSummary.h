// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

/// All runs of one subject.
struct Subject {
    QString name; ///< the subject's code; the whole name of a file that does not tell it
    QVector<Run> runs; ///< by main parameter, sound, session type and session number
};

/// The runs by subject, subjects in the order of their names.
QVector<Subject> bySubject(const QVector<Run>& runs);

/// A page over a subject's runs: for each main parameter, sound and session type the number of
/// runs, mean, standard deviation and geometric mean of their thresholds, and the means of their
/// mean reaction times and shares of correct answers.
QString summaryPage(const Subject& subject);
