// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

/// Replaces the flags of each run: those of its own trials, and those that follow from a comparison
/// with the other runs of its subject and condition.
void flagRuns(QVector<Run>& runs);

/// The names of a run's flags, parted by "; ".
QString flagNames(const Run& run);
