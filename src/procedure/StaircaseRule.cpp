// SPDX-License-Identifier: GPL-3.0-or-later
#include "procedure/StaircaseRule.h"

#include "session/Data.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double startDifference = 0.05;
constexpr double startDepth = 0.5;

void storeReversal(Data& data, double value)
{
    if (data.reversalCount >= data.reversals.size()) {
        data.reversals.resize(data.reversalCount + 1);
    }
    data.reversals[data.reversalCount] = value;
    ++data.reversalCount;
}

} // namespace

double steppedValue(double value, int stepDb, double ceiling)
{
    const double stepped = value * std::pow(10.0, stepDb / 20.0);
    return stepped > ceiling ? ceiling : stepped;
}

int nextStepDb(const Data& data)
{
    const int last = data.stepSizes.size() - 1;
    return data.stepFactor * data.stepSizes[std::min(data.reversalCount, last)];
}

bool hasCurrentRecord(const Data& data)
{
    return data.nTrials >= 1 && data.nTrials <= data.records.size();
}

double adaptedValue(const Data& data)
{
    switch (data.mainParameter) {
    case carrierFrequencyParameter:
        return data.fd[deviant];
    case modulationDepthParameter:
        return data.md[deviant];
    default:
        return 0.0;
    }
}

AfterTrial judgeTrial(Data& data, int trial)
{
    const Record& record = qAsConst(data.records)[trial];
    data.stepFactor = record.correctness ? data.stepFactorCorrect : data.stepFactorIncorrect;
    if (trial >= 1 && qAsConst(data.records)[trial - 1].correctness != record.correctness) {
        storeReversal(data, record.value);
    }
    return enoughReversals(data) ? AfterTrial::end : AfterTrial::nextTrial;
}

bool enoughReversals(const Data& data)
{
    return data.reversalCount >= data.nReversals;
}

void stepDeviant(Data& data)
{
    const int stepDb = nextStepDb(data);
    if (data.mainParameter == modulationDepthParameter) {
        data.md[deviant] = steppedValue(data.md[deviant], stepDb, fullModulation);
    } else if (data.mainParameter == carrierFrequencyParameter) {
        data.fd[deviant] = steppedValue(data.fd[deviant], stepDb, largestDifference);
        data.cf[deviant] = (1 - data.fd[deviant]) * data.cf[standard];
    }
}

void resetDeviant(Data& data)
{
    if (data.mainParameter == carrierFrequencyParameter) {
        data.md[deviant] = 0.0;
        data.fd[deviant] = startDifference;
        data.cf[deviant] = data.cf[standard] * (1 - startDifference);
    } else if (data.mainParameter == modulationDepthParameter) {
        data.md[deviant] = startDepth;
        data.fd[deviant] = 0.0;
        data.cf[deviant] = data.cf[standard];
    }
}

void clearRun(Data& data)
{
    data.nTrials = 0;
    data.reversals.fill(0.0);
    data.reversalCount = 0;
    data.records.clear();
    data.deviantPosition = 0;
    data.threshold = 0.0;
    data.meanReactionTime = 0.0;
    data.meanReactionTimeCorrect = 0.0;
    data.meanReactionTimeIncorrect = 0.0;
}
