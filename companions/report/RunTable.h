// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

/// The runs as a table to read: a line that tells the rule, the headings, a row a run. Numbers have
/// up to 6 significant digits.
/// @param runs at least one, all judged by the same rule
QString runTable(const QVector<Run>& runs);

/// The first line of runCsv without its end.
QString runCsvHeadings();

/// The runs as comma-separated values with a line of headings: fields with a comma, a quotation
/// mark or a line break are quoted, what a run does not have is empty, numbers have up to 10
/// significant digits.
QString runCsv(const QVector<Run>& runs);
