// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/SubjectSummary.h"

#include "report/Texts.h"
#include "statistics/Spread.h"

#include <QMap>

#include <tuple>

namespace {

using Condition = std::tuple<int, int, int>; // main parameter, sound, session type

Condition conditionOf(const Run& run)
{
    const Data& data = run.data;
    return {data.mainParameter, run.isNamed ? data.soundType : -1, run.isNamed ? data.sesType : -1};
}

QStringList conditionRow(const QVector<Run>& runs)
{
    const Run& first = runs.constFirst();
    QVector<double> thresholds;
    QVector<double> reactionTimes;
    QVector<double> percentsCorrect;
    for (const Run& run : runs) {
        thresholds.append(run.data.threshold);
        reactionTimes.append(run.data.meanReactionTime);
        percentsCorrect.append(run.percentCorrect);
    }
    return {first.data.mainParameters[first.data.mainParameter], soundOf(first),
        first.isNamed ? first.data.sesTypes[first.data.sesType] : "-", QString::number(runs.size()),
        shown(meanOf(thresholds)), shown(standardDeviationOf(thresholds)),
        shown(geometricMeanOf(thresholds)), unitOf(first.data), shown(meanOf(reactionTimes)),
        QString::number(meanOf(percentsCorrect), 'f', 1)};
}

} // namespace

QVector<Subject> bySubject(const QVector<Run>& runs)
{
    QMap<std::tuple<QString, Condition, int, int>, int> indices;
    for (int i = 0; i < runs.size(); ++i) {
        indices.insert({subjectOf(runs[i]), conditionOf(runs[i]), runs[i].data.sesNum, i}, i);
    }
    QVector<Subject> subjects;
    for (const int i : qAsConst(indices)) {
        const QString name = subjectOf(runs[i]);
        if (subjects.isEmpty() || subjects.constLast().name != name) {
            subjects.append({name, {}});
        }
        subjects.last().runs.append(runs[i]);
    }
    return subjects;
}

QString summaryPage(const Subject& subject)
{
    constexpr int nLeft = 3;
    QVector<QStringList> rows {{"main parameter", "sound", "session", "runs", "mean threshold",
        "SD", "geo. mean", "unit", "RT", "correct %"}};
    QVector<Run> alike;
    for (const Run& run : subject.runs) {
        if (!alike.isEmpty() && conditionOf(run) != conditionOf(alike.constFirst())) {
            rows.append(conditionRow(alike));
            alike.clear();
        }
        alike.append(run);
    }
    rows.append(conditionRow(alike));
    return QString("\nSubject %1, runs: %2\n\n")
               .arg(onOneLine(subject.name), QString::number(subject.runs.size()))
        + alignedTable(rows, nLeft);
}
