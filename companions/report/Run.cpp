// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/Run.h"

#include "procedure/Replay.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/OutputFileName.h"
#include "statistics/Spread.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

void findReversals(Run& run)
{
    Data& data = run.data;
    const Replay again = replay(data, resultsFileValues(data.mainParameter));
    run.reversalTrials.clear();
    for (int i = 0; i < again.trials.size(); ++i) {
        if (again.trials[i].isReversal) {
            run.reversalTrials.append(i);
        }
    }
    data.reversals = again.reversals;
    data.reversalCount = again.reversals.size();
    data.nTrials = data.records.size();
}

double percentCorrect(const QVector<Record>& records)
{
    const auto nCorrect = std::count_if(
        records.cbegin(), records.cend(), [](const Record& record) { return record.correctness; });
    return 100.0 * static_cast<double>(nCorrect) / records.size();
}

} // namespace

QVector<double> usedReversals(const Data& data)
{
    return data.reversals.size() < data.nReversals
        ? QVector<double>()
        : data.reversals.mid(
            data.nReversals - data.nReversalsToCalculate, data.nReversalsToCalculate);
}

void judgeRun(Run& run)
{
    findReversals(run);
    computeRunResults(run.data);
    const QVector<double> used = usedReversals(run.data);
    run.standardDeviation = standardDeviationOf(used);
    run.geometricMean = geometricMeanOf(used);
    run.percentCorrect = percentCorrect(run.data.records);
}

Complaint readRun(Run& run)
{
    QFile file(run.path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {0, "cannot be read: " + file.errorString()};
    }
    ResultsReading reading = readResults(file);
    if (file.error() != QFileDevice::NoError) {
        return {0, "cannot be read: " + file.errorString()};
    }
    if (!reading.complaint.text.isEmpty()) {
        return reading.complaint;
    }
    Data& data = run.data;
    run.isNamed = readFileName(QFileInfo(run.path).fileName(), data);
    if (run.isNamed && data.mainParameter != reading.mainParameter) {
        return {1,
            "the file's name says " + data.mainParameters[data.mainParameter] + ", its header "
                + data.mainParameters[reading.mainParameter]};
    }
    data.mainParameter = reading.mainParameter;
    data.records = std::move(reading.records);
    judgeRun(run);
    if (!enoughReversals(data)) {
        return {1 + data.records.size(),
            QString("the file ends after %1 reversals, %2 are needed")
                .arg(data.reversalCount)
                .arg(data.nReversals)};
    }
    return {};
}

QString unitOf(const Data& data)
{
    return adaptedParameter(data.mainParameter)->unit;
}

QString subjectOf(const Run& run)
{
    return run.isNamed ? run.data.subCode : QFileInfo(run.path).fileName();
}

QString sessionOf(const Run& run)
{
    const Data& data = run.data;
    return run.isNamed ? data.sesTypes[data.sesType] + sessionNumber(data.sesNum) : "-";
}

QString soundOf(const Run& run)
{
    return run.isNamed ? run.data.soundTypes[run.data.soundType] : "-";
}

QString ruleOf(const Data& data)
{
    return QString("threshold: mean of the last %1 of %2 reversals")
        .arg(data.nReversalsToCalculate)
        .arg(data.nReversals);
}
