// SPDX-License-Identifier: GPL-3.0-or-later
// A page over the runs of each subject.
#include "report/SubjectSummary.h"

#include "report/Conditions.h"
#include "report/Texts.h"
#include "statistics/Spread.h"

using namespace quorin;

namespace {

QStringList conditionRow(const QVector<Run>& runs, const QVector<int>& condition)
{
    const Run& first = runs[condition.constFirst()];
    QVector<double> reactionTimes;
    QVector<double> percentsCorrect;
    for (const int i : condition) {
        reactionTimes.append(runs[i].data.meanReactionTime);
        percentsCorrect.append(runs[i].percentCorrect);
    }
    const ThresholdEstimate estimate = thresholdEstimate(runs, condition);
    return {parameterOf(first), soundOf(first), sessionTypeOf(first),
        QString::number(condition.size()), shown(estimate.inUnit.mean),
        shown(estimate.inUnit.deviation), shown(estimate.inUnit.error),
        shown(estimate.geometricMean), shown(estimate.low), shown(estimate.high),
        unitOf(first.data), shownTime(meanOf(reactionTimes)),
        QString::number(meanOf(percentsCorrect), 'f', 1)};
}

QString flagLines(const QVector<Run>& runs)
{
    QString lines;
    for (const Run& run : runs) {
        for (const Flag& flag : run.flags) {
            const QString who = run.isNamed ? sessionOf(run) + ' ' + soundOf(run) : run.fileName;
            lines += QString("%1: %2: %3; %4\n")
                         .arg(onOneLine(who), flag.name, onOneLine(flag.seen), flag.meaning);
        }
    }
    return lines.isEmpty() ? lines : '\n' + lines;
}

} // namespace

QVector<Subject> bySubject(const QVector<Run>& runs)
{
    QVector<Subject> subjects;
    const QVector<QVector<int>> conditions = byCondition(runs);
    for (const QVector<int>& condition : conditions) {
        const Run& first = runs[condition.constFirst()];
        const QString name = subjectLabel(first);
        const bool isSame = first.isNamed && !subjects.isEmpty()
            && subjects.constLast().runs.constLast().isNamed && subjects.constLast().name == name;
        if (!isSame) {
            subjects.append({name, first.isNamed ? name : first.fileName, {}});
        }
        for (const int i : condition) {
            subjects.last().runs.append(runs[i]);
        }
    }
    return subjects;
}

QVector<QStringList> summaryRows(const Subject& subject)
{
    QVector<QStringList> rows {{"main parameter", "sound", "session", "runs", "mean threshold",
        "SD", "SE", "geo. mean", "95 % from", "to", "unit", "RT", "correct %"}};
    const QVector<QVector<int>> conditions = byCondition(subject.runs);
    for (const QVector<int>& condition : conditions) {
        rows.append(conditionRow(subject.runs, condition));
    }
    return rows;
}

QString summaryPage(const Subject& subject)
{
    return QString("\nSubject %1, runs: %2\n\n")
               .arg(onOneLine(subject.name), QString::number(subject.runs.size()))
        + alignedTable(summaryRows(subject), summaryLeft) + flagLines(subject.runs);
}

QString summaryPages(const QVector<Run>& runs)
{
    QString pages;
    const QVector<Subject> subjects = bySubject(runs);
    for (const Subject& subject : subjects) {
        pages += summaryPage(subject);
    }
    return pages;
}
