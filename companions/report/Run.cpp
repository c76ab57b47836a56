// SPDX-License-Identifier: GPL-3.0-or-later
// A run from its results file: who and what it was, and its results by the application's own rules.
#include "report/Run.h"

#include "procedure/RunResults.h"
#include "report/Texts.h"
#include "session/AdaptedParameter.h"
#include "session/OutputFileName.h"
#include "session/Units.h"
#include "statistics/Spread.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace quorin;

namespace {

constexpr int usualLast = 8;
constexpr auto unknown = "unknown";

void takeReversals(Run& run, const Replay& replay)
{
    run.reversalTrials.clear();
    for (int i = 0; i < replay.trials.size(); ++i) {
        if (replay.trials[i].isReversal) {
            run.reversalTrials.append(i);
        }
    }
    run.data.reversals = replay.reversals;
    run.data.reversalCount = replay.reversals.size();
    run.data.nTrials = run.data.records.size();
}

double percentCorrect(const QVector<Record>& records)
{
    const auto nCorrect = std::count_if(
        records.cbegin(), records.cend(), [](const Record& record) { return record.correctness; });
    return 100.0 * static_cast<double>(nCorrect) / records.size();
}

QString ofBoth(double ofStandard, double ofDeviant)
{
    const QString first = shown(ofStandard);
    const QString second = shown(ofDeviant);
    return first == second ? first : first + " and " + second;
}

// The sizes in their order; of those that repeat at the end, the first.
QString stepsOf(const Data& data)
{
    QStringList sizes;
    for (const int size : data.stepSizes) {
        sizes.append(QString::number(size));
    }
    while (sizes.size() > 1 && sizes[sizes.size() - 2] == sizes.constLast()) {
        sizes.removeLast();
    }
    return sizes.join(", ");
}

QString lackOf(const Data& data)
{
    if (data.reversalCount < data.nReversals) {
        return QString("the file ends after %1 reversals, %2 are needed")
            .arg(data.reversalCount)
            .arg(data.nReversals);
    }
    return data.nReversalsToCalculate > data.nReversals
        ? QString("the run has %1 reversals, fewer than the last %2 that are asked for")
              .arg(data.nReversals)
              .arg(data.nReversalsToCalculate)
        : QString();
}

Complaint readTrials(Run& run, const QByteArray& bytes, Complaint& secondHeader)
{
    ResultsReading reading = readResults(bytes);
    secondHeader = reading.secondHeader;
    if (!reading.complaint.text.isEmpty()) {
        return reading.complaint;
    }
    const QFileInfo file(run.path);
    run.written = file.lastModified();
    const QString real = file.canonicalFilePath();
    run.fileName = QFileInfo(real.isEmpty() ? run.path : real).fileName();
    Data& data = run.data;
    run.isNamed = readFileName(run.fileName, data);
    if (run.isNamed && data.mainParameter != reading.mainParameter) {
        return {1,
            "the file's name says " + data.mainParameters[data.mainParameter] + ", its header "
                + data.mainParameters[reading.mainParameter]};
    }
    data.mainParameter = reading.mainParameter;
    data.records = std::move(reading.records);
    run.trialLines = std::move(reading.lines);
    return {};
}

} // namespace

QVector<double> usedReversals(const Data& data)
{
    return data.reversals.size() < data.nReversals
        ? QVector<double>()
        : data.reversals.mid(
            data.nReversals - data.nReversalsToCalculate, data.nReversalsToCalculate);
}

bool isUsed(const Data& data, int reversal)
{
    return reversal < data.nReversals && reversal >= data.nReversals - data.nReversalsToCalculate;
}

TrialFault judgeRun(Run& run, const RunRule& rule)
{
    const Replay replay = replayOf(run.data);
    takeReversals(run, replay);
    run.data.nReversals = rule.nReversals.value_or(run.data.reversalCount);
    run.data.nReversalsToCalculate = rule.nLast.value_or(std::min(usualLast, run.data.nReversals));
    computeRunResults(run.data);
    const QVector<double> used = usedReversals(run.data);
    run.standardDeviation = standardDeviationOf(used);
    run.geometricMean = geometricMeanOf(used);
    run.percentCorrect = percentCorrect(run.data.records);
    return departureOf(run.data, replay);
}

Complaint judgeReadRun(Run& run, const RunRule& rule, bool isUnchecked, const Complaint& earlier)
{
    const TrialFault fault = judgeRun(run, rule);
    run.departure = earlier;
    if (earlier.text.isEmpty() && !fault.text.isEmpty()) {
        run.departure = {run.trialLines[fault.trial], fault.text};
    }
    if (!run.departure.text.isEmpty() && !isUnchecked) {
        return run.departure;
    }
    const QString lack = lackOf(run.data);
    return lack.isEmpty() ? Complaint() : Complaint {run.trialLines.constLast(), lack};
}

Complaint readRun(Run& run, const QByteArray& bytes, const RunRule& rule, bool isUnchecked)
{
    Complaint secondHeader;
    Complaint damage = readTrials(run, bytes, secondHeader);
    if (!secondHeader.text.isEmpty() && !isUnchecked) {
        return secondHeader;
    }
    if (!damage.text.isEmpty()) {
        return damage;
    }
    return judgeReadRun(run, rule, isUnchecked, secondHeader);
}

QString unitOf(const Data& data)
{
    return adaptedParameter(data.mainParameter)->unit;
}

QString subjectOf(const Run& run)
{
    return run.isNamed ? run.data.subCode : unknown;
}

QString subjectLabel(const Run& run)
{
    return run.isNamed ? run.data.subCode : QString("unknown (%1)").arg(run.fileName);
}

QString sessionOf(const Run& run)
{
    return run.isNamed ? sessionTypeOf(run) + sessionNumber(run.data.sesNum) : unknown;
}

QString sessionTypeOf(const Run& run)
{
    return run.isNamed ? run.data.sesTypes[run.data.sesType] : unknown;
}

QString soundOf(const Run& run)
{
    return run.isNamed ? run.data.soundTypes[run.data.soundType] : unknown;
}

QString parameterOf(const Run& run)
{
    return run.data.mainParameters[run.data.mainParameter];
}

std::optional<double> carrierOf(const Run& run)
{
    return run.isRecorded ? run.data.cf[standard] : std::optional<double>();
}

QString settingsOf(const Run& run)
{
    if (!run.isRecorded) {
        return {};
    }
    const Data& data = run.data;
    return QString("duration %1 ms, silence %2 ms, amplitude %3, carrier %4, modulation %5 Hz, "
                   "standard's depth %6 %, sampling rate %7 Hz; ")
               .arg(ofBoth(inMs(data.dur[standard]), inMs(data.dur[deviant])),
                   shown(inMs(data.silentInterval)), ofBoth(data.amp[standard], data.amp[deviant]),
                   data.soundType == noiseCarrier ? QString("noise")
                                                  : shown(data.cf[standard]) + " Hz",
                   ofBoth(data.mf[standard], data.mf[deviant]), shown(inPercent(data.md[standard])),
                   shown(data.fs))
        + QString("steps %1 dB, times %2 after correct and %3 after wrong answers; %4")
              .arg(stepsOf(data), QString::number(data.stepFactorCorrect),
                  QString::number(data.stepFactorIncorrect), ruleOf(data));
}

QString ruleOf(const Data& data)
{
    return QString("threshold: mean of the last %1 of %2 reversals")
        .arg(data.nReversalsToCalculate)
        .arg(data.nReversals);
}

QString ruleOf(const QVector<Run>& runs)
{
    const QString first = ruleOf(runs.constFirst().data);
    const bool isCommon = std::all_of(
        runs.cbegin(), runs.cend(), [&first](const Run& run) { return ruleOf(run.data) == first; });
    return isCommon ? first : "threshold: mean of the last reversals, as many as each row says";
}
