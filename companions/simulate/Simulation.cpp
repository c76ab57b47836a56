// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/Simulation.h"

#include "app/TrialSequence.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Units.h"

#include <cmath>
#include <limits>

namespace {

constexpr int soundsPerTrial = 4;

// SplitMix64: its outputs for numbers in a row are unrelated. Steele, Lea and Flood (2014), Fast
// splittable pseudorandom number generators, OOPSLA.
quint64 mixed(quint64 number)
{
    number = (number ^ (number >> 30U)) * 0xbf58476d1ce4e5b9U;
    number = (number ^ (number >> 27U)) * 0x94d049bb133111ebU;
    return number ^ (number >> 31U);
}

quint64 seedOfRun(quint64 seed, int index)
{
    constexpr quint64 goldenGamma = 0x9e3779b97f4a7c15U;
    return mixed(mixed(seed) + static_cast<quint64>(index) * goldenGamma);
}

Record listenersAnswer(double value, const Simulation& simulation, std::mt19937_64& generator)
{
    constexpr int twoAndThree = 5;
    const int position = nextFraction(generator) < 0.5 ? 2 : 3;
    const bool isRight = nextFraction(generator) < simulation.listener.probabilityRight(value);
    const int response = isRight ? position : twoAndThree - position;
    return answeredTrial(value, position, response, simulation.reactionMs);
}

} // namespace

Data preparedRun(const Simulation& simulation)
{
    Data data;
    data.mainParameter = simulation.mainParameter;
    // What the main parameter goes with: noise has no frequency to tell apart.
    data.soundType
        = simulation.mainParameter == modulationDepthParameter ? noiseCarrier : sinusoidCarrier;
    data.sesType = 1;
    data.nReversals = simulation.nReversals;
    data.nReversalsToCalculate = simulation.nReversalsToCalculate;
    data.cf.fill(simulation.standardCarrier);
    data.dur.fill(fromMs(simulation.soundMs));
    data.silentInterval = fromMs(simulation.silenceMs);
    return data;
}

RunOutcome simulateRun(Data& data, const Simulation& simulation, int index)
{
    std::mt19937_64 generator(seedOfRun(simulation.seed, index));
    clearRun(data);
    resetDeviant(data);
    setAdaptedValue(data, simulation.startValue);
    int nCorrect = 0;
    while (data.nTrials < simulation.mostTrials) {
        const Record record = listenersAnswer(adaptedValue(data), simulation, generator);
        nCorrect += record.correctness ? 1 : 0;
        data.records.append(record);
        ++data.nTrials;
        if (judgeTrial(data, data.nTrials - 1) == AfterTrial::end) {
            computeRunResults(data);
            return {data.threshold, data.nTrials, nCorrect};
        }
        stepDeviant(data);
    }
    return {std::numeric_limits<double>::quiet_NaN(), data.nTrials, nCorrect};
}

double secondsPerTrial(const Simulation& simulation)
{
    const double sound = fromMs(simulation.soundMs);
    const int periodMs = trialPeriodMs(fromMs(simulation.silenceMs), {sound, sound});
    return fromMs(soundsPerTrial * double(periodMs) + simulation.soundMs + simulation.reactionMs);
}

QString shownUnit(const Simulation& simulation)
{
    return adaptedParameter(simulation.mainParameter)->unit;
}

double shownPerFraction(const Simulation& simulation)
{
    return adaptedParameter(simulation.mainParameter)->shown(1.0, simulation.standardCarrier);
}
