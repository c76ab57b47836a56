// SPDX-License-Identifier: GPL-3.0-or-later
// Simulated runs and their figures as comma-separated values.
#include "simulate/SimulationTables.h"

#include <cmath>

using namespace quorin;

namespace {

QString exact(double number)
{
    constexpr int significantDigits = 10;
    return std::isnan(number) ? QString() : QString::number(number, 'g', significantDigits);
}

} // namespace

QString runHeadings(const Simulation& simulation)
{
    return QString("run,threshold,threshold_%1,threshold_db,trials,correct,reversals,minutes,cut")
        .arg(simulation.mainParameter == modulationDepthParameter ? "percent" : "hz");
}

QByteArray runRows(
    const Simulation& simulation, const std::vector<RunOutcome>& outcomes, const RunsDone& runsDone)
{
    QByteArray rows;
    int run = 0;
    for (const RunOutcome& outcome : outcomes) {
        const QStringList fields {QString::number(++run), exact(outcome.threshold),
            exact(outcome.threshold * shownPerFraction(simulation)),
            exact(20.0 * std::log10(outcome.threshold)), QString::number(outcome.nTrials),
            QString::number(outcome.nCorrect), QString::number(outcome.nReversals),
            exact(minutesOf(simulation, outcome.nTrials)),
            std::isnan(outcome.threshold) ? "1" : "0"};
        rows += fields.join(',').toLatin1() + '\n';
        runsDone(run);
    }
    return rows;
}

QString summaryHeadings(const Sweep& sweep)
{
    QString headings;
    for (QString option : sweep.options) {
        headings += option.replace('-', '_') + ',';
    }
    return headings
        + "experiments,mean_threshold,sd_threshold,median_threshold,mean_db,sd_db,bias_db,"
          "mean_trials,sd_trials,mean_minutes,share_correct,share_cut";
}

QString summaryRow(
    const QStringList& values, const Simulation& simulation, const RunStatistics& statistics)
{
    constexpr double middle = 0.5;
    const Distribution& trials = statistics.trials;
    QStringList fields = values;
    fields << QString::number(statistics.nExperiments) << exact(statistics.thresholds.mean())
           << exact(statistics.thresholds.standardDeviation())
           << exact(statistics.thresholds.quantile(middle)) << exact(statistics.decibels.mean())
           << exact(statistics.decibels.standardDeviation())
           << exact(biasDb(statistics, simulation.listener)) << exact(trials.mean())
           << exact(trials.standardDeviation()) << exact(minutesOf(simulation, trials.mean()))
           << exact(statistics.shareCorrect) << exact(statistics.shareCut());
    return fields.join(',') + '\n';
}
