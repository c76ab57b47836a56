// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// All runs of one subject.
struct Subject {
    QString name; ///< the subject's code, or "unknown" and the file's name
    QString pictureName; ///< the subject's code, or the file's name
    QVector<Run> runs; ///< by main parameter, sound, session type and session number
};

/// The runs by subject, subjects in the order of their codes. A run whose file's name does not tell
/// its subject stands alone; such runs come last, by path.
QVector<Subject> bySubject(const QVector<Run>& runs);

namespace quorin {

/// Columns of text at the left of summaryRows.
constexpr int summaryLeft = 3;

} // namespace quorin

/// The headings and a row for each condition of a subject.
QVector<QStringList> summaryRows(const Subject& subject);

/// A page over a subject's runs: for each main parameter, sound and session type the number of
/// runs, mean, standard deviation, standard error and geometric mean with its 95 % interval of
/// their thresholds, the means of their mean reaction times and shares of correct answers; below,
/// the flags of the runs.
QString summaryPage(const Subject& subject);

/// The pages of all subjects.
QString summaryPages(const QVector<Run>& runs);
