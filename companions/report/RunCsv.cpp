// SPDX-License-Identifier: GPL-3.0-or-later
// The runs as comma-separated values.
#include "report/RunCsv.h"

#include "report/Conditions.h"
#include "report/Csv.h"
#include "report/RunFlags.h"
#include "report/Units.h"

#include <algorithm>

namespace {

template <typename Test> QString countOf(const Run& run, const Test& isDisturbed)
{
    return run.isRecorded ? QString::number(
               std::count_if(run.disturbances.cbegin(), run.disturbances.cend(), isDisturbed))
                          : QString();
}

// Empty without a calibration.
QString levelOf(const Run& run, double RunLevels::*level)
{
    constexpr int decimals = 2; // of dB
    return run.levels ? QString::number((*run.levels).*level, 'f', decimals) : QString();
}

QStringList csvRow(
    const Run& run, const ThresholdEstimate& estimate, const std::optional<double>& carrier)
{
    const Data& data = run.data;
    const LevelOrShare relative
        = levelOrShare(data, data.threshold, run.isRecorded ? carrierOf(run) : carrier);
    return {run.path, subjectOf(run), sessionTypeOf(run),
        run.isNamed ? QString::number(data.sesNum) : "", soundOf(run), parameterOf(run),
        unitOf(data), QString::number(data.nTrials), QString::number(data.reversalCount),
        QString::number(data.nReversals), QString::number(data.nReversalsToCalculate),
        csvNumber(data.threshold), csvNumber(relative.decibels),
        csvNumber(relative.percentOfCarrier), csvNumber(run.geometricMean),
        csvNumber(run.standardDeviation), QString::number(estimate.inUnit.n),
        csvNumber(estimate.inUnit.error), csvNumber(data.meanReactionTime),
        csvNumber(data.meanReactionTimeCorrect), csvNumber(data.meanReactionTimeIncorrect),
        csvNumber(run.percentCorrect), flagNames(run), run.departure.text.isEmpty() ? "1" : "0",
        countOf(run, [](const Disturbances& trial) { return trial.interruptedSounds > 0; }),
        countOf(run, [](const Disturbances& trial) { return trial.lateSounds > 0; }),
        countOf(run, [](const Disturbances& trial) { return trial.hasOutputFailed; }),
        levelOf(run, &RunLevels::startDb), levelOf(run, &RunLevels::lowestDb),
        levelOf(run, &RunLevels::highestDb)};
}

} // namespace

QString runCsv(const QVector<Run>& runs, std::optional<double> carrier)
{
    QString csv("file,subject,session_type,session,sound,main_parameter,unit,trials,reversals,"
                "rule_reversals,rule_last,threshold,threshold_db,threshold_percent_of_carrier,"
                "geometric_mean,sd_of_reversals,condition_runs,condition_se,rt_ms,rt_correct_ms,"
                "rt_wrong_ms,percent_correct,flags,checked,interrupted_trials,late_trials,"
                "output_failed_trials,start_db_spl,lowest_db_spl,highest_db_spl\n");
    QVector<ThresholdEstimate> estimates(runs.size());
    const QVector<QVector<int>> conditions = byCondition(runs);
    for (const QVector<int>& condition : conditions) {
        const ThresholdEstimate estimate = thresholdEstimate(runs, condition);
        for (const int i : condition) {
            estimates[i] = estimate;
        }
    }
    for (int i = 0; i < runs.size(); ++i) {
        csv += csvLine(csvRow(runs[i], estimates[i], carrier));
    }
    return csv;
}
