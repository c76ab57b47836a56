// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/ProgressBar.h"
#include "plots/PictureFile.h"
#include "simulate/SimulateOptions.h"
#include "simulate/SimulatedRuns.h"
#include "simulate/SimulationPlot.h"
#include "simulate/SimulationReport.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdlib>
#include <unistd.h>

namespace {

constexpr int usageError = 2;

void complain(const QString& text)
{
    QTextStream(stderr) << "quorin-simulate: " << text << '\n';
}

// Simulates for all rows of a table in turn, with one bar over all of them.
class Simulator {
public:
    Simulator(int nThreads, int nSimulations)
        : m_nThreads(nThreads)
        , m_nSimulations(nSimulations)
    {
        m_timer.start();
    }

    RunStatistics statisticsOf(const Simulation& simulation)
    {
        const qint64 total = qint64(m_nSimulations) * simulation.nRuns;
        const qint64 before = qint64(m_nDone) * simulation.nRuns;
        const auto outcomes = simulatedRuns(simulation, m_nThreads,
            [&](int nRuns) { m_bar.show(before + nRuns, total, m_timer.elapsed()); });
        m_bar.clear();
        ++m_nDone;
        return runStatistics(outcomes);
    }

private:
    int m_nThreads;
    int m_nSimulations;
    int m_nDone = 0;
    QElapsedTimer m_timer;
    QTextStream m_stream {stderr};
    ProgressBar m_bar {m_stream, isatty(STDERR_FILENO) != 0};
};

void tabulate(QTextStream& out, const SimulateOptions& options)
{
    Simulator simulator(options.nThreads, options.sweptReversals.size());
    writeSweepHeader(out, options.simulation);
    for (const int nReversals : options.sweptReversals) {
        Simulation simulation = options.simulation;
        simulation.nReversals = nReversals;
        simulation.nReversalsToCalculate = qMin(simulation.nReversalsToCalculate, nReversals);
        writeSweepRow(out, simulation, simulator.statisticsOf(simulation));
        out.flush();
    }
}

bool simulateOne(QTextStream& out, const SimulateOptions& options)
{
    const Simulation& simulation = options.simulation;
    const RunStatistics statistics = Simulator(options.nThreads, 1).statisticsOf(simulation);
    writeStatistics(out, simulation, statistics);
    out.flush();
    QStringList errors;
    if (!options.track.path.isEmpty()) {
        errors.append(writeTracks(options.track, simulation));
    }
    if (!options.plotPath.isEmpty()) {
        errors.append(writeSimulationPlot(options.plotPath, simulation, statistics));
    }
    errors.removeAll(QString());
    for (const QString& error : qAsConst(errors)) {
        complain(error);
    }
    return errors.isEmpty();
}

} // namespace

int main(int argc, char* argv[])
{
    drawWithoutDisplay();
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName("quorin-simulate");
    QGuiApplication::setApplicationVersion(QUORIN_VERSION);

    QString errorText;
    const SimulateOptions options = simulateOptions(QGuiApplication::arguments(), errorText);
    if (!errorText.isEmpty()) {
        complain(errorText + "\nquorin-simulate --help lists the options");
        return usageError;
    }
    QTextStream out(stdout);
    writeSettings(out, options.simulation);
    out.flush();
    bool isDone = true;
    if (options.sweptReversals.isEmpty()) {
        isDone = simulateOne(out, options);
    } else {
        tabulate(out, options);
    }
    out.flush();
    if (out.status() != QTextStream::Ok) {
        complain("the figures could not be written");
        isDone = false;
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
