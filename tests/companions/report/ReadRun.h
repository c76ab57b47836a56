// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimulatedRun.h"
#include "report/Run.h"

#include <QTemporaryDir>

/// A run whose file is written into a folder and read.
struct ReadRun {
    Run run;
    Complaint complaint;
};

/// Writes bytes to a file of this name and reads it.
inline ReadRun readBack(const QByteArray& bytes, const QString& name = "run.txt",
    const RunRule& rule = {}, bool isUnchecked = false)
{
    const QTemporaryDir folder;
    ReadRun result;
    result.run.path = folder.filePath(name);
    fillFile(result.run.path, bytes);
    result.complaint = readRun(result.run, bytes, rule, isUnchecked);
    return result;
}

/// The results file of a simulated run of modulation depths.
inline QByteArray depthFile(unsigned seed, int nReversals = 14)
{
    return resultsBytes(simulatedRun(quorin::modulationDepthParameter, seed, nReversals));
}

/// The line and what is wrong with it.
inline QString textOf(const Complaint& complaint)
{
    return QString::number(complaint.line) + ' ' + complaint.text;
}
