// SPDX-License-Identifier: GPL-3.0-or-later
// Simulated runs as results files of the application.
#include "simulate/TrackFiles.h"

#include "output/OutputFile.h"
#include "procedure/ResultsFormat.h"
#include "session/OutputFileName.h"

#include <QDir>
#include <QFileInfo>

#include <cmath>

QStringList writeTracks(
    const TrackTarget& target, const Simulation& simulation, const RunsDone& runsDone)
{
    Data data = preparedRun(simulation);
    const bool isFolder = QFileInfo(target.path).isDir();
    QStringList errors;
    for (int i = 0; i < target.nRuns; ++i) {
        if (std::isnan(simulateRun(data, simulation, i).threshold)) {
            errors.append(QString("run %1 did not end within %2 trials, so it has no results file")
                              .arg(i + 1)
                              .arg(simulation.mostTrials));
            continue;
        }
        data.sesNum = i + 1;
        const QString path
            = isFolder ? QDir(target.path).filePath(composedFileName(data)) : target.path;
        const QString error
            = writeOutput({path, OutputFile::Kind::unmarked, {}, false}, resultsBytes(data));
        if (!error.isEmpty()) {
            errors.append(error);
        }
        runsDone(i + 1);
    }
    return errors;
}
