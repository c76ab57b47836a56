// SPDX-License-Identifier: GPL-3.0-or-later
// The flags of runs whose thresholds should be doubted. Each test and its limit is in the manual
// page.
#include "report/RunFlags.h"

#include "procedure/StaircaseRule.h"
#include "psychometrics/PsychometricFunction.h"
#include "report/Conditions.h"
#include "report/Texts.h"
#include "report/Units.h"
#include "statistics/Inference.h"

#include <algorithm>
#include <limits>

using namespace quorin;

namespace {

constexpr double levelOfGuessing = 0.05;
constexpr double levelOfRuns = 0.01; // every run is tested: few of many should be flagged by chance
constexpr double levelOfStrangers = 0.05; // divided by the number of runs that are compared

QString inTwoDigits(double number)
{
    constexpr int significantDigits = 2;
    return QString::number(number, 'g', significantDigits);
}

// A step up that ended below where it should have.
bool isCutShort(double before, double after, int stepDb)
{
    constexpr double share = 1 - 1e-3;
    constexpr double rounding = 2e-6; // two values of six decimals
    const double full = steppedValue(before, stepDb, std::numeric_limits<double>::infinity());
    return after < full * share - rounding;
}

int trialsAtCeiling(const Run& run)
{
    constexpr double fullDepth = 100.0;
    Data data = run.data;
    data.stepFactor = data.stepFactorIncorrect;
    data.reversalCount = 0;
    int count = 0;
    for (int i = 0; i < data.records.size(); ++i) {
        const Record& record = qAsConst(data.records)[i];
        const bool isFull
            = data.mainParameter == modulationDepthParameter && record.value >= fullDepth;
        const Record& before = qAsConst(data.records)[std::max(0, i - 1)];
        const bool isCut = i > 0 && !before.correctness && run.departure.text.isEmpty()
            && isCutShort(before.value, record.value, nextStepDb(data));
        count += isFull || isCut ? 1 : 0;
        data.reversalCount += run.reversalTrials.contains(i) ? 1 : 0;
    }
    return count;
}

void flagCeiling(Run& run)
{
    const int count = trialsAtCeiling(run);
    if (count > 0) {
        run.flags.append({"ceiling",
            QString("%1 of %2 trials at the upper limit of the value")
                .arg(count)
                .arg(run.data.nTrials),
            "the true threshold may be higher than the one that could be measured"});
    }
}

void flagGuessing(Run& run)
{
    const QVector<Record>& records = run.data.records;
    const int nRight = static_cast<int>(std::count_if(
        records.cbegin(), records.cend(), [](const Record& record) { return record.correctness; }));
    const double probability = binomialUpperTail(nRight, records.size(), guessRate);
    if (probability > levelOfGuessing) {
        run.flags.append({"guessing",
            QString("%1 of %2 answers right, by chance in p = %3")
                .arg(nRight)
                .arg(records.size())
                .arg(inTwoDigits(probability)),
            "the answers are not shown to be better than guesses"});
    }
}

void flagDrift(Run& run)
{
    QVector<double> levels;
    const QVector<double> reversals = usedReversals(run.data);
    for (const double value : reversals) {
        levels.append(decibelsOf(run.data, value));
    }
    const Trend trend = trendOf(levels);
    if (trend.probability < levelOfRuns) {
        run.flags.append({"drift",
            QString("the reversals used go by %1 dB each, p = %2")
                .arg(inTwoDigits(trend.slope), inTwoDigits(trend.probability)),
            "the track had not settled, and the threshold depends on where it was cut"});
    }
}

void flagPositionBias(Run& run)
{
    int nWrong = 0;
    int nThird = 0;
    for (const Record& record : qAsConst(run.data.records)) {
        if (!record.correctness) {
            ++nWrong;
            nThird += record.responsePosition == 3 ? 1 : 0;
        }
    }
    const double probability = evenSplitProbability(nThird, nWrong);
    if (probability < levelOfRuns) {
        run.flags.append({"position bias",
            QString("%1 of %2 wrong answers were position 3, p = %3")
                .arg(nThird)
                .arg(nWrong)
                .arg(inTwoDigits(probability)),
            "a preferred position makes the threshold worse than the hearing"});
    }
}

void flagReactionTimes(Run& run)
{
    constexpr double soonest = 100.0; // ms
    QVector<double> times;
    int nEarly = 0;
    for (const Record& record : qAsConst(run.data.records)) {
        times.append(record.reactionTime);
        nEarly += record.reactionTime < soonest ? 1 : 0;
    }
    if (nEarly > 0) {
        run.flags.append({"anticipations",
            QString("%1 of %2 answers within 100 ms").arg(nEarly).arg(times.size()),
            "nobody reacts so fast: they were decided before the fourth sound ended"});
    }
    const QVector<int> outliers = outliersOf(times);
    if (!outliers.isEmpty()) {
        run.flags.append({"RT outliers",
            QString("%1 of %2 reaction times beyond 3 deviations, the first in trial %3 (%4 ms)")
                .arg(outliers.size())
                .arg(times.size())
                .arg(outliers[0] + 1)
                .arg(shown(times[outliers[0]])),
            "they pull the mean reaction time, and attention may have lapsed"});
    }
}

struct Disturbed {
    int nTrials = 0;
    int first = 0; ///< counted from 1
};

template <typename Test> Disturbed disturbedTrials(const Run& run, const Test& isDisturbed)
{
    Disturbed disturbed;
    for (int i = 0; i < run.disturbances.size(); ++i) {
        if (isDisturbed(run.disturbances[i])) {
            disturbed.first = disturbed.nTrials == 0 ? i + 1 : disturbed.first;
            ++disturbed.nTrials;
        }
    }
    return disturbed;
}

QString shareOf(const Run& run, const Disturbed& disturbed, const QString& what)
{
    return QString("%1 in %2 of %3 trials, the first is trial %4")
        .arg(what)
        .arg(disturbed.nTrials)
        .arg(run.disturbances.size())
        .arg(disturbed.first);
}

void flagDisturbances(Run& run)
{
    int worstMs = 0;
    for (const Disturbances& trial : qAsConst(run.disturbances)) {
        worstMs = std::max(worstMs, trial.worstLatenessMs);
    }
    const Disturbed interrupted = disturbedTrials(
        run, [](const Disturbances& trial) { return trial.interruptedSounds > 0; });
    const Disturbed late
        = disturbedTrials(run, [](const Disturbances& trial) { return trial.lateSounds > 0; });
    const Disturbed failed
        = disturbedTrials(run, [](const Disturbances& trial) { return trial.hasOutputFailed; });
    if (interrupted.nTrials > 0) {
        run.flags.append({"interrupted", shareOf(run, interrupted, "interrupted sounds"),
            "there was a gap in what the listener heard"});
    }
    if (late.nTrials > 0) {
        run.flags.append(
            {"late", shareOf(run, late, QString("sounds up to %1 ms late").arg(worstMs)),
                "the silent intervals were not all as long as set"});
    }
    if (failed.nTrials > 0) {
        run.flags.append({"output failed", shareOf(run, failed, "a failed sound output"),
            "the listener may have heard nothing"});
    }
}

void flagCalibration(Run& run)
{
    if (run.levels && !run.levels->calibration.differences.isEmpty()) {
        run.flags.append({"calibration", run.levels->calibration.differences.join(", "),
            "the levels in dB SPL do not hold"});
    }
}

void flagAlone(Run& run)
{
    run.flags.clear();
    if (!run.departure.text.isEmpty()) {
        run.flags.append(
            {"unchecked", QString("line %1: %2").arg(run.departure.line).arg(run.departure.text),
                "the file is not as the application wrote it"});
    }
    flagDisturbances(run);
    flagCalibration(run);
    flagCeiling(run);
    flagGuessing(run);
    flagDrift(run);
    flagPositionBias(run);
    flagReactionTimes(run);
}

void flagStrangers(QVector<Run>& runs, const QVector<int>& condition)
{
    constexpr int fewest = 4;
    if (condition.size() < fewest) {
        return;
    }
    QVector<double> levels;
    for (const int i : condition) {
        levels.append(decibelsOf(runs[i].data, runs[i].data.threshold));
    }
    const QVector<double> probabilities = strangerProbabilities(levels);
    for (int i = 0; i < condition.size(); ++i) {
        if (probabilities[i] < levelOfStrangers / condition.size()) {
            QVector<double> others = levels;
            others.remove(i);
            Run& run = runs[condition[i]];
            run.flags.append({"unlike the others",
                QString("%1 %2, the geometric mean of the other %3 is %4 %2, p = %5")
                    .arg(shown(run.data.threshold), unitOf(run.data))
                    .arg(others.size())
                    .arg(shown(valueOfDecibels(run.data, meanEstimate(others).mean)),
                        inTwoDigits(probabilities[i])),
                "another listener, setting or state: look at the run before it is averaged"});
        }
    }
}

} // namespace

void flagRuns(QVector<Run>& runs)
{
    for (Run& run : runs) {
        flagAlone(run);
    }
    const QVector<QVector<int>> conditions = byCondition(runs);
    for (const QVector<int>& condition : conditions) {
        flagStrangers(runs, condition);
    }
}

QString flagNames(const Run& run)
{
    QStringList names;
    for (const Flag& flag : run.flags) {
        names.append(flag.name);
    }
    return names.join("; ");
}
