// SPDX-License-Identifier: GPL-3.0-or-later
// The runs as a table to read.
#include "report/RunTable.h"

#include "report/RunFlags.h"
#include "report/Texts.h"

using namespace quorin;

namespace {

QStringList tableRow(const Run& run)
{
    const Data& data = run.data;
    return {onOneLine(subjectOf(run)), sessionOf(run), soundOf(run), parameterOf(run),
        QString::number(data.nTrials), QString::number(data.nReversals),
        QString::number(data.nReversalsToCalculate), shown(data.threshold),
        shown(run.standardDeviation), shown(run.geometricMean), unitOf(data),
        shownTime(data.meanReactionTime), shownTime(data.meanReactionTimeCorrect),
        shownTime(data.meanReactionTimeIncorrect), QString::number(run.percentCorrect, 'f', 1),
        flagNames(run), onOneLine(run.path)};
}

} // namespace

QVector<QStringList> runRows(const QVector<Run>& runs)
{
    QVector<QStringList> rows {{"subject", "session", "sound", "main parameter", "trials",
        "reversals", "last", "threshold", "SD", "geo. mean", "unit", "RT", "RT correct", "RT wrong",
        "correct %", "flags", "file"}};
    for (const Run& run : runs) {
        rows.append(tableRow(run));
    }
    return rows;
}

QString runTable(const QVector<Run>& runs)
{
    return ruleOf(runs) + "; SD: of these reversals; reaction times (RT) in ms\n\n"
        + alignedTable(runRows(runs), runRowsLeft, runRowsLeftAtEnd);
}
