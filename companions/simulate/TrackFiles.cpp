// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/TrackFiles.h"

#include "procedure/ResultsFormat.h"
#include "session/OutputFileName.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <cmath>

namespace {

QString writeTrack(const QString& path, const Data& data)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return "could not write " + path + ": " + file.errorString();
    }
    QTextStream stream(&file);
    writeResults(stream, data);
    stream.flush();
    return file.commit() ? QString() : "could not write " + path + ": " + file.errorString();
}

} // namespace

QString writeTracks(const TrackTarget& target, const Simulation& simulation)
{
    Data data = preparedRun(simulation);
    data.subCode = target.subCode;
    const bool isFolder = QFileInfo(target.path).isDir();
    for (int i = 0; i < target.nRuns; ++i) {
        if (std::isnan(simulateRun(data, simulation, i).threshold)) {
            return QString("run %1 did not end within %2 trials, so it has no results file")
                .arg(i + 1)
                .arg(simulation.mostTrials);
        }
        data.sesNum = i + 1;
        const QString path
            = isFolder ? QDir(target.path).filePath(composedFileName(data)) : target.path;
        QString errorText = writeTrack(path, data);
        if (!errorText.isEmpty()) {
            return errorText;
        }
    }
    return {};
}
