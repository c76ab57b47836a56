// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/ProgressBar.h"
#include "simulate/RunStatistics.h"
#include "simulate/SimulateOptions.h"
#include "simulate/SimulatedRuns.h"

#include <QElapsedTimer>
#include <QTextStream>

/// Simulates what the options ask for, prints the figures and writes the files. A file that cannot
/// be written becomes one line of the errors, and all the rest is done. Pictures need a
/// QGuiApplication.
class SimulateProgram {
public:
    /// @param isTerminal whether the errors go to a terminal, where progress is shown
    SimulateProgram(
        SimulateOptions options, QTextStream& output, QTextStream& errors, bool isTerminal);

    /// @return whether everything was written
    bool make();

private:
    void checkOutputs();
    void simulateOne();
    void writeFiles(const std::vector<RunOutcome>& outcomes, const RunStatistics& statistics);
    void sweep();
    void detect();
    std::vector<RunOutcome> outcomesOf(const Simulation& simulation, int index, int count);
    void writeCsv(const QString& path, const QString& headings, const QByteArray& rows);
    RunsDone progressOf(int nRuns);
    void complain(const QString& what);
    void complainIfAny(const QString& what);

    SimulateOptions m_options;
    QTextStream& m_output;
    QTextStream& m_errors;
    QElapsedTimer m_timer;
    ProgressBar m_bar;
    bool m_isGood = true;
};
