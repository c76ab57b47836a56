// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace quorin {

/// Columns of text at the left and at the right of runRows.
constexpr int runRowsLeft = 4;
constexpr int runRowsLeftAtEnd = 2;

} // namespace quorin

/// The headings and a row a run.
QVector<QStringList> runRows(const QVector<Run>& runs);

/// The runs as a table to read: a line that tells the rule, the headings, a row a run. Numbers have
/// up to 6 significant digits.
/// @param runs at least one
QString runTable(const QVector<Run>& runs);
