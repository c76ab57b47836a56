// SPDX-License-Identifier: GPL-3.0-or-later
// All trials of all runs, one row each.
#include "report/TrialsCsv.h"

#include "procedure/ResultsFormat.h"
#include "report/Csv.h"
#include "report/Units.h"

namespace {

QStringList runFields(const Run& run)
{
    return {run.path, subjectOf(run), sessionTypeOf(run),
        run.isNamed ? QString::number(run.data.sesNum) : "", soundOf(run), parameterOf(run),
        unitOf(run.data)};
}

QString yesOrNo(bool isSo)
{
    return isSo ? "1" : "0";
}

QStringList trialFields(
    const Run& run, int trial, int reversal, const std::optional<double>& carrier)
{
    const Record& record = run.data.records[trial];
    const LevelOrShare relative
        = levelOrShare(run.data, record.value, run.isRecorded ? carrierOf(run) : carrier);
    const bool isReversal
        = reversal < run.reversalTrials.size() && run.reversalTrials[reversal] == trial;
    return {QString::number(trial + 1), resultsNumber(record.value), csvNumber(relative.decibels),
        csvNumber(relative.percentOfCarrier), QString::number(record.stimulusPosition),
        QString::number(record.responsePosition), yesOrNo(record.correctness),
        csvNumber(record.reactionTime), yesOrNo(isReversal),
        yesOrNo(isReversal && isUsed(run.data, reversal)), yesOrNo(run.departure.text.isEmpty())};
}

QStringList disturbanceFields(const Run& run, int trial)
{
    if (!run.isRecorded) {
        return {"", "", "", ""};
    }
    const Disturbances& seen = run.disturbances[trial];
    return {QString::number(seen.interruptedSounds), QString::number(seen.lateSounds),
        QString::number(seen.worstLatenessMs), yesOrNo(seen.hasOutputFailed)};
}

} // namespace

QString trialsCsv(const QVector<Run>& runs, const std::optional<double>& carrier)
{
    QString csv("file,subject,session_type,session,sound,main_parameter,unit,trial,value,value_db,"
                "value_percent_of_carrier,stimulus_position,response_position,correct,rt_ms,"
                "reversal,used,checked,interrupted_sounds,late_sounds,worst_lateness_ms,"
                "output_failed\n");
    for (const Run& run : runs) {
        const QStringList fields = runFields(run);
        int reversal = 0;
        for (int trial = 0; trial < run.data.records.size(); ++trial) {
            while (reversal < run.reversalTrials.size() && run.reversalTrials[reversal] < trial) {
                ++reversal;
            }
            csv += csvLine(fields + trialFields(run, trial, reversal, carrier)
                + disturbanceFields(run, trial));
        }
    }
    return csv;
}
