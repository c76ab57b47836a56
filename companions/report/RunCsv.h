// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>
#include <QVector>

#include <optional>

/// The runs as comma-separated values with a line of headings. What a run does not have is empty.
/// @param carrier of the standard, Hz, where no record tells it: differences are given as a share
/// of it
QString runCsv(const QVector<Run>& runs, std::optional<double> carrier = {});
