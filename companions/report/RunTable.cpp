// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunTable.h"

#include "report/Texts.h"

#include <cmath>

namespace {

QStringList tableRow(const Run& run)
{
    const Data& data = run.data;
    return {onOneLine(subjectOf(run)), sessionOf(run), soundOf(run),
        data.mainParameters[data.mainParameter], QString::number(data.nTrials),
        QString::number(data.reversalCount), shown(data.threshold), shown(run.standardDeviation),
        shown(run.geometricMean), unitOf(data), shown(data.meanReactionTime),
        shown(data.meanReactionTimeCorrect), shown(data.meanReactionTimeIncorrect),
        QString::number(run.percentCorrect, 'f', 1)};
}

QString quoted(QString field)
{
    const bool isPlain = !field.contains(',') && !field.contains('"') && !field.contains('\n')
        && !field.contains('\r');
    return isPlain ? field : '"' + field.replace("\"", "\"\"") + '"';
}

QString exact(double number)
{
    constexpr int significantDigits = 10;
    return std::isnan(number) ? QString() : QString::number(number, 'g', significantDigits);
}

QStringList csvRow(const Run& run)
{
    const Data& data = run.data;
    return {run.path, subjectOf(run), run.isNamed ? data.sesTypes[data.sesType] : "",
        run.isNamed ? QString::number(data.sesNum) : "",
        run.isNamed ? data.soundTypes[data.soundType] : "", data.mainParameters[data.mainParameter],
        unitOf(data), QString::number(data.nTrials), QString::number(data.reversalCount),
        exact(data.threshold), exact(run.standardDeviation), exact(run.geometricMean),
        exact(data.meanReactionTime), exact(data.meanReactionTimeCorrect),
        exact(data.meanReactionTimeIncorrect), exact(run.percentCorrect)};
}

} // namespace

QString runTable(const QVector<Run>& runs)
{
    constexpr int nLeft = 4;
    QVector<QStringList> rows {
        {"subject", "session", "sound", "main parameter", "trials", "reversals", "threshold", "SD",
            "geo. mean", "unit", "RT", "RT correct", "RT wrong", "correct %"}};
    for (const Run& run : runs) {
        rows.append(tableRow(run));
    }
    return ruleOf(runs.constFirst().data) + "; reaction times (RT) in ms\n\n"
        + alignedTable(rows, nLeft);
}

QString runCsvHeadings()
{
    return "file,subject,session_type,session,sound,main_parameter,unit,trials,reversals,"
           "threshold,sd,geometric_mean,rt_ms,rt_correct_ms,rt_wrong_ms,percent_correct";
}

QString runCsv(const QVector<Run>& runs)
{
    QString csv = runCsvHeadings() + '\n';
    for (const Run& run : runs) {
        QStringList fields = csvRow(run);
        for (QString& field : fields) {
            field = quoted(field);
        }
        csv += fields.join(',') + '\n';
    }
    return csv;
}
