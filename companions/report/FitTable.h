// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectFits.h"

/// The fits as a table to read: a line that tells what was fitted, the headings, two rows a fit,
/// the second with the 95 % intervals. Fits that the answers do not determine are marked.
QString fitTable(const QVector<SubjectFit>& fits, const FitOptions& options);

/// The fits as comma-separated values with a line of headings.
QString fitCsv(const QVector<SubjectFit>& fits, const FitOptions& options);

/// The line of headings without its end.
QString fitCsvHeadings();

/// "logistic", "Weibull" or "Gauss".
QString shapeName(FitShape shape);
