// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace quorin {

/// Columns of text at the left and at the right of levelRows.
constexpr int levelRowsLeft = 1;
constexpr int levelRowsLeftAtEnd = 3;

} // namespace quorin

/// The headings and a row for each run with a calibration: its sounds in dB SPL. Empty where none
/// has one.
QVector<QStringList> levelRows(const QVector<Run>& runs);

/// The same as a table to read, with an empty line in front; empty where no run has a calibration.
QString levelTable(const QVector<Run>& runs);
