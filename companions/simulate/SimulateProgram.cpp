// SPDX-License-Identifier: GPL-3.0-or-later
// What quorin-simulate does with its options.
#include "simulate/SimulateProgram.h"

#include "output/OutputFile.h"
#include "simulate/SimulatedRuns.h"
#include "simulate/SimulationPlot.h"
#include "simulate/SimulationReport.h"
#include "simulate/SimulationTables.h"
#include "simulate/SweepPlot.h"

#include <QFileInfo>

#include <utility>

SimulateProgram::SimulateProgram(
    SimulateOptions options, QTextStream& output, QTextStream& errors, bool isTerminal)
    : m_options(std::move(options))
    , m_output(output)
    , m_errors(errors)
    , m_bar(errors, isTerminal)
{
    m_timer.start();
}

bool SimulateProgram::make()
{
    checkOutputs();
    writeSettings(m_output, m_options.simulation);
    m_output.flush();
    if (m_options.isDetection) {
        detect();
    } else if (m_options.sweep.simulations.isEmpty()) {
        simulateOne();
    } else {
        sweep();
    }
    m_output.flush();
    if (m_output.status() != QTextStream::Ok) {
        complain("standard output: cannot be written");
    }
    m_errors.flush();
    return m_isGood;
}

// Simulations may take long: files that cannot be written are reported before. The rest is done.
void SimulateProgram::checkOutputs()
{
    const auto check = [this](QString& path, OutputFile::Kind kind, const QString& headings) {
        const QString obstacle = path.isEmpty()
            ? QString()
            : outputObstacle({path, kind, headings.toUtf8(), m_options.isForced});
        if (!obstacle.isEmpty()) {
            complain(obstacle);
            path.clear();
        }
    };
    check(m_options.csvPath, OutputFile::Kind::table, runHeadings(m_options.simulation));
    check(m_options.summaryCsvPath, OutputFile::Kind::table, summaryHeadings(m_options.sweep));
    check(m_options.plotPath, OutputFile::Kind::marked, {});
    if (!QFileInfo(m_options.track.path).isDir()) {
        check(m_options.track.path, OutputFile::Kind::unmarked, {});
    }
}

void SimulateProgram::simulateOne()
{
    const Simulation& simulation = m_options.simulation;
    const std::vector<RunOutcome> outcomes = outcomesOf(simulation, 0, 1);
    const RunStatistics statistics = runStatistics(outcomes, simulation.runsAveraged);
    m_bar.clear();
    writeStatistics(m_output, simulation, statistics);
    m_output.flush();
    writeFiles(outcomes, statistics);
}

void SimulateProgram::writeFiles(
    const std::vector<RunOutcome>& outcomes, const RunStatistics& statistics)
{
    const Simulation& simulation = m_options.simulation;
    if (!m_options.csvPath.isEmpty()) {
        const QByteArray rows = runRows(simulation, outcomes, progressOf(runCount(simulation)));
        m_bar.clear();
        writeCsv(m_options.csvPath, runHeadings(simulation), rows);
    }
    if (!m_options.summaryCsvPath.isEmpty()) {
        writeCsv(m_options.summaryCsvPath, summaryHeadings(m_options.sweep),
            summaryRow({}, simulation, statistics).toUtf8());
    }
    if (!m_options.track.path.isEmpty()) {
        const QStringList errors = writeTracks(m_options.track, simulation,
            [this](int nRuns) { m_bar.show(nRuns, m_options.track.nRuns, m_timer.elapsed()); });
        m_bar.clear();
        for (const QString& error : errors) {
            complain(error);
        }
    }
    if (!m_options.plotPath.isEmpty()) {
        complainIfAny(
            writeSimulationPlot(m_options.plotPath, simulation, statistics, m_options.isForced));
    }
}

void SimulateProgram::sweep()
{
    const QVector<SweptSimulation>& simulations = m_options.sweep.simulations;
    QVector<SweepPoint> points;
    QString rows;
    writeSweepHeader(m_output, m_options.sweep);
    for (int i = 0; i < simulations.size(); ++i) {
        const Simulation& simulation = simulations[i].simulation;
        const RunStatistics statistics
            = runStatistics(outcomesOf(simulation, i, simulations.size()), simulation.runsAveraged);
        m_bar.clear();
        writeSweepRow(m_output, simulations[i], statistics);
        m_output.flush();
        rows += summaryRow(simulations[i].values, simulation, statistics);
        points.append(sweepPoint(simulation, statistics));
    }
    if (!m_options.summaryCsvPath.isEmpty()) {
        writeCsv(m_options.summaryCsvPath, summaryHeadings(m_options.sweep), rows.toUtf8());
    }
    if (!m_options.plotPath.isEmpty()) {
        complainIfAny(
            writeSweepPlot(m_options.plotPath, m_options.sweep, points, m_options.isForced));
    }
}

void SimulateProgram::detect()
{
    constexpr double fine = 1000.0;
    const Detection found
        = detection(m_options.simulation, m_options.comparison, [this](double share) {
              m_bar.show(
                  static_cast<qint64>(share * fine), static_cast<qint64>(fine), m_timer.elapsed());
          });
    m_bar.clear();
    writeDetection(m_output, m_options.simulation, m_options.comparison, found);
}

// One bar over all the simulations of a sweep.
std::vector<RunOutcome> SimulateProgram::outcomesOf(
    const Simulation& simulation, int index, int count)
{
    const qint64 nRuns = runCount(simulation);
    return simulatedRuns(simulation, m_options.nThreads,
        [&](int nDone) { m_bar.show(index * nRuns + nDone, count * nRuns, m_timer.elapsed()); });
}

// Only every hundredth run is reported, so that the bar takes no time of its own.
RunsDone SimulateProgram::progressOf(int nRuns)
{
    constexpr int stride = 100;
    return [this, nRuns](int nDone) {
        if (nDone % stride == 0) {
            m_bar.show(nDone, nRuns, m_timer.elapsed());
        }
    };
}

void SimulateProgram::writeCsv(const QString& path, const QString& headings, const QByteArray& rows)
{
    complainIfAny(
        writeOutput({path, OutputFile::Kind::table, headings.toUtf8(), m_options.isForced},
            headings.toUtf8() + '\n' + rows));
}

void SimulateProgram::complain(const QString& what)
{
    m_errors << "quorin-simulate: " << what << '\n';
    m_errors.flush();
    m_isGood = false;
}

void SimulateProgram::complainIfAny(const QString& what)
{
    if (!what.isEmpty()) {
        complain(what);
    }
}
