// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "procedure/ResultsFormat.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "support/Files.h"

#include <random>

/// A run by the application's own rules whose listener answers 3 of 4 trials rightly at random, in
/// the units of the application, with its results.
inline Data simulatedRun(int mainParameter, unsigned seed, int nReversals = 14)
{
    std::mt19937 random(seed);
    Data data;
    data.mainParameter = mainParameter;
    data.cf[quorin::standard] = 1234.5;
    data.nReversals = nReversals;
    resetDeviant(data);
    while (true) {
        const int position = random() % 2 == 0 ? 2 : 3;
        const int response = random() % 4 != 0 ? position : 5 - position;
        const auto reactionTime = static_cast<double>(random() % 3000);
        data.records.append(answeredTrial(adaptedValue(data), position, response, reactionTime));
        data.nTrials = data.records.size();
        if (judgeTrial(data, data.nTrials - 1) == AfterTrial::end) {
            computeRunResults(data);
            return data;
        }
        stepDeviant(data);
    }
}
