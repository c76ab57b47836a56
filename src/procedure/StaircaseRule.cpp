// SPDX-License-Identifier: GPL-3.0-or-later
// The weighted up-down rule on the record of a run.
#include "procedure/StaircaseRule.h"

#include "session/AdaptedParameter.h"
#include "session/Data.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

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
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    if (adapted != nullptr) {
        setAdaptedValue(data, steppedValue(adaptedValue(data), nextStepDb(data), adapted->ceiling));
    }
}

void resetDeviant(Data& data)
{
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    if (adapted != nullptr) {
        data.md[deviant] = 0.0;
        data.fd[deviant] = 0.0;
        data.cf[deviant] = data.cf[standard];
        setAdaptedValue(data, adapted->start);
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
