// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// The names by which runs can be grouped: subject, parameter, sound, type, session.
QStringList groupKeys();

/// Thresholds by groups of runs: the number of runs and of units, mean, standard deviation,
/// standard error, geometric mean and its 95 % interval over the units. A unit is a subject, by the
/// geometric mean of its runs in the group; it is a run where the subject is one of the keys. Main
/// parameters are never put together. Runs of unknown subjects are left out, and counted below.
/// @param keys of groupKeys, in the order of the columns
QString groupTable(const QVector<Run>& runs, const QStringList& keys);
