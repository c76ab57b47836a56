// SPDX-License-Identifier: GPL-3.0-or-later
// Runs that belong together, and the figures of their thresholds.
#include "report/Conditions.h"

#include "report/Units.h"

#include <QMap>

#include <tuple>

namespace {

using Condition = std::tuple<bool, QString, int, int, int>;

Condition conditionOf(const Run& run)
{
    const Data& data = run.data;
    return run.isNamed
        ? Condition {false, data.subCode, data.mainParameter, data.soundType, data.sesType}
        : Condition {true, run.path, data.mainParameter, 0, 0};
}

} // namespace

QVector<QVector<int>> byCondition(const QVector<Run>& runs)
{
    QMap<std::tuple<Condition, int, int>, int> inOrder;
    for (int i = 0; i < runs.size(); ++i) {
        inOrder.insert({conditionOf(runs[i]), runs[i].data.sesNum, i}, i);
    }
    QVector<QVector<int>> conditions;
    for (const int i : qAsConst(inOrder)) {
        if (conditions.isEmpty()
            || conditionOf(runs[conditions.constLast().constLast()]) != conditionOf(runs[i])) {
            conditions.append(QVector<int>());
        }
        conditions.last().append(i);
    }
    return conditions;
}

ThresholdEstimate thresholdEstimate(const QVector<Run>& runs, const QVector<int>& chosen)
{
    QVector<double> thresholds;
    QVector<double> levels;
    for (const int i : chosen) {
        thresholds.append(runs[i].data.threshold);
        levels.append(decibelsOf(runs[i].data, runs[i].data.threshold));
    }
    ThresholdEstimate estimate {meanEstimate(thresholds), meanEstimate(levels)};
    const Data& data = runs[chosen.constFirst()].data;
    estimate.geometricMean = valueOfDecibels(data, estimate.inDb.mean);
    estimate.low = valueOfDecibels(data, estimate.inDb.low);
    estimate.high = valueOfDecibels(data, estimate.inDb.high);
    return estimate;
}
