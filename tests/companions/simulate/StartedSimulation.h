// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStringList>

/// How the program ended.
struct Ended {
    int status;
    QString output;
    QString errors;
};

/// Starts quorin-simulate in a folder and waits for its end.
inline Ended run(const QStringList& arguments, const QString& folder = QString())
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(SIMULATE_PROGRAM, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {-1, {}, process.errorString()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
