// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QStringList>
#include <QVector>

class Messages;

/// What runs are read for.
struct RunDemand {
    QStringList inputs; ///< files and folders
    RunRule rule;
    bool isUnchecked = false; ///< whether runs that depart from the rule are taken too
};

/// Reads the runs of all files that the inputs stand for, results files and records, in their
/// order. What is wrong with a file becomes a complaint, "file:line: what", and the file is left
/// out. A file with the content of one read before, and a record with the results file of the same
/// run, are counted once, with a note; so is told which recorded runs were not finished.
QVector<Run> readRuns(const RunDemand& demand, Messages& messages);
