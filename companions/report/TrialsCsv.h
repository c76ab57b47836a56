// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

#include <optional>

/// All trials of the runs as comma-separated values with a line of headings, a row a trial. Values
/// are written as in the results files.
/// @param carrier of the standard, Hz, where no record tells it: differences are given as a share
/// of it
QString trialsCsv(const QVector<Run>& runs, const std::optional<double>& carrier);
