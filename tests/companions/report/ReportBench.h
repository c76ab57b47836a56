// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimulatedRun.h"
#include "report/RunFlags.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

inline const QString depthName("A_test001_noise_modulation depth.txt");
inline const QString differenceName("A_test001_sinusoid_carrier frequency.txt");

/// The exit status and the output of a run of the program.
struct Outcome {
    int status;
    QString output;
    QStringList errors; ///< lines
};

/// A folder with results files, in which the program is run.
class Bench {
public:
    void addRun(const QString& name, int mainParameter, unsigned seed, int nReversals = 14) const
    {
        QDir(path()).mkpath(QFileInfo(path(name)).path());
        fillFile(path(name), resultsBytes(simulatedRun(mainParameter, seed, nReversals)));
    }

    Outcome report(
        const QStringList& arguments, const QString& output = {}, bool inCLocale = false) const
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("XDG_RUNTIME_DIR"); // Qt must not complain of it
        if (inCLocale) {
            environment.insert("LC_ALL", "C");
        }
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(path());
        if (!output.isEmpty()) {
            program.setStandardOutputFile(output);
        }
        program.start(REPORT_PROGRAM, arguments);
        if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit) {
            return {-1, {}, {"the program crashed or hung"}};
        }
        const QString errors = QString::fromUtf8(program.readAllStandardError());
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            errors.split('\n', Qt::SkipEmptyParts)};
    }

    QString path(const QString& name = {}) const { return m_folder.filePath(name); }

    /// All that is in a folder.
    QStringList names(const QString& folder = {}) const
    {
        return QDir(path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// The run of a file in the folder, as the reader reads it.
    Run runOf(const QString& name, const RunRule& rule = {}) const
    {
        QVector<Run> runs(1);
        runs[0].path = path(name);
        readRun(runs[0], contentOf(path(name)), rule);
        runs[0].path = name;
        flagRuns(runs);
        return runs[0];
    }

private:
    QTemporaryDir m_folder;
};
