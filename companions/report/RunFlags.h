// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

/// Gives each run the flags that it earns by itself and among the other runs of its subject and
/// condition, in the place of those that it has.
void flagRuns(QVector<Run>& runs);

/// The names of a run's flags, parted by "; ".
QString flagNames(const Run& run);
