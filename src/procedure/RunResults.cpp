// SPDX-License-Identifier: GPL-3.0-or-later
// The threshold and the mean reaction times of a run.
#include "procedure/RunResults.h"

#include "session/Data.h"

#include <algorithm>

double meanOfLastReversals(const QVector<double>& reversals, int nReversals, int n)
{
    const qint64 first = std::max<qint64>(static_cast<qint64>(nReversals) - n, 0);
    const qint64 end = std::min<qint64>(nReversals, reversals.size());
    double sum = 0.0;
    for (qint64 i = first; i < end; ++i) {
        sum += reversals[static_cast<int>(i)];
    }
    return sum / n;
}

MeanReactionTimes meanReactionTimes(const QVector<Record>& records)
{
    double sum = 0.0;
    double sumCorrect = 0.0;
    double sumIncorrect = 0.0;
    int nCorrect = 0;
    int nIncorrect = 0;
    for (const Record& record : records) {
        sum += record.reactionTime;
        if (record.correctness) {
            ++nCorrect;
            sumCorrect += record.reactionTime;
        } else {
            ++nIncorrect;
            sumIncorrect += record.reactionTime;
        }
    }
    return {sum / records.size(), sumCorrect / nCorrect, sumIncorrect / nIncorrect};
}

void computeRunResults(Data& data)
{
    data.threshold
        = meanOfLastReversals(data.reversals, data.nReversals, data.nReversalsToCalculate);
    const MeanReactionTimes means = meanReactionTimes(data.records);
    data.meanReactionTime = means.all;
    data.meanReactionTimeCorrect = means.correct;
    data.meanReactionTimeIncorrect = means.incorrect;
}
