// SPDX-License-Identifier: GPL-3.0-or-later
// One simulated run: the application's staircase, answered by a psychometric function.
#include "simulate/Simulation.h"

#include "app/TrialSequence.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Units.h"

#include <cmath>
#include <limits>
#include <optional>

using namespace quorin;

namespace {

constexpr double secondsPerMinute = 60.0;
constexpr int soundsPerTrial = 4;
const char* const defaultSubject = "SIM";

// SplitMix64: its outputs for numbers in a row are unrelated. Steele, Lea and Flood (2014), Fast
// splittable pseudorandom number generators, OOPSLA.
quint64 mixed(quint64 number)
{
    number = (number ^ (number >> 30U)) * 0xbf58476d1ce4e5b9U;
    number = (number ^ (number >> 27U)) * 0x94d049bb133111ebU;
    return number ^ (number >> 31U);
}

// FNV-1a of 64 bits (Fowler, Noll and Vo).
quint64 keyOf(const QString& text)
{
    quint64 key = 0xcbf29ce484222325U;
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        key = (key ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return key;
}

quint64 seedOfRun(const Simulation& simulation, int index)
{
    constexpr quint64 goldenGamma = 0x9e3779b97f4a7c15U;
    const quint64 seed = simulation.seed ^ keyOf(simulation.subCode) ^ keyOf(defaultSubject);
    return mixed(mixed(seed) + static_cast<quint64>(index) * goldenGamma);
}

// Reaction times have numbers of their own: whatever they are, the answers stay the same.
class ReactionTimes {
public:
    ReactionTimes(const Simulation& simulation, quint64 seed)
        : m_meanMs(simulation.reactionMs)
    {
        if (simulation.reactionSdMs > 0.0) {
            m_generator.emplace(mixed(~seed));
            const double ratio = simulation.reactionSdMs / simulation.reactionMs;
            m_sigma = std::sqrt(std::log1p(ratio * ratio));
        }
    }

    double next()
    {
        if (!m_generator) {
            return m_meanMs;
        }
        const double z = nextNormal(*m_generator);
        return std::round(m_meanMs * std::exp(m_sigma * z - m_sigma * m_sigma / 2.0));
    }

private:
    double m_meanMs;
    double m_sigma = 0.0;
    std::optional<std::mt19937_64> m_generator;
};

Record listenersAnswer(double value, const PsychometricFunction& listener, double reactionMs,
    std::mt19937_64& generator)
{
    constexpr int twoAndThree = 5;
    const int position = nextFraction(generator) < 0.5 ? 2 : 3;
    const bool isRight = nextFraction(generator) < listener.probabilityRight(value);
    const int response = isRight ? position : twoAndThree - position;
    return answeredTrial(value, position, response, reactionMs);
}

} // namespace

int runCount(const Simulation& simulation)
{
    return simulation.nRuns * simulation.runsAveraged;
}

Simulation defaultSimulation(int mainParameter)
{
    constexpr double depthThreshold = 0.056234; // -25 dB
    constexpr double frequencyThreshold = 0.002;
    constexpr double slopeDb = 2.5;
    const Data data;
    const bool isDepth = mainParameter == modulationDepthParameter;
    Simulation simulation = {};
    simulation.listener = logisticListener(isDepth ? depthThreshold : frequencyThreshold, slopeDb);
    simulation.mainParameter = mainParameter;
    // Noise has no frequency to tell apart.
    simulation.soundType = isDepth ? noiseCarrier : sinusoidCarrier;
    simulation.startValue = adaptedParameter(mainParameter)->start;
    simulation.nReversals = data.nReversals;
    simulation.nReversalsToCalculate = data.nReversalsToCalculate;
    simulation.nRuns = 1000;
    simulation.runsAveraged = 1;
    simulation.seed = 1;
    simulation.subCode = defaultSubject;
    simulation.mostTrials = 10000;
    simulation.standardCarrier = data.cf[standard];
    simulation.soundMs = inMs(data.dur[standard]);
    simulation.silenceMs = inMs(data.silentInterval);
    simulation.reactionMs = 500.0;
    return simulation;
}

Data preparedRun(const Simulation& simulation)
{
    Data data;
    data.mainParameter = simulation.mainParameter;
    data.soundType = simulation.soundType;
    data.sesType = 1;
    data.subCode = simulation.subCode;
    data.nReversals = simulation.nReversals;
    data.nReversalsToCalculate = simulation.nReversalsToCalculate;
    data.cf.fill(simulation.standardCarrier);
    data.dur.fill(fromMs(simulation.soundMs));
    data.silentInterval = fromMs(simulation.silenceMs);
    return data;
}

RunOutcome simulateRun(Data& data, const Simulation& simulation, int index)
{
    const quint64 seed = seedOfRun(simulation, index);
    std::mt19937_64 generator(seed);
    ReactionTimes reactionTimes(simulation, seed);
    clearRun(data);
    resetDeviant(data);
    setAdaptedValue(data, simulation.startValue);
    int nCorrect = 0;
    while (data.nTrials < simulation.mostTrials) {
        const Record record = listenersAnswer(
            adaptedValue(data), simulation.listener, reactionTimes.next(), generator);
        nCorrect += record.correctness ? 1 : 0;
        data.records.append(record);
        ++data.nTrials;
        if (judgeTrial(data, data.nTrials - 1) == AfterTrial::end) {
            computeRunResults(data);
            return {data.threshold, data.nTrials, nCorrect, data.reversalCount};
        }
        stepDeviant(data);
    }
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    return {none, data.nTrials, nCorrect, data.reversalCount};
}

double secondsPerTrial(const Simulation& simulation)
{
    const double sound = fromMs(simulation.soundMs);
    const int periodMs = trialPeriodMs(fromMs(simulation.silenceMs), {sound, sound});
    return fromMs(soundsPerTrial * double(periodMs) + simulation.soundMs + simulation.reactionMs);
}

double minutesOf(const Simulation& simulation, double nTrials)
{
    return nTrials * secondsPerTrial(simulation) / secondsPerMinute;
}

QString shownUnit(const Simulation& simulation)
{
    return adaptedParameter(simulation.mainParameter)->unit;
}

double shownPerFraction(const Simulation& simulation)
{
    return adaptedParameter(simulation.mainParameter)->shown(1.0, simulation.standardCarrier);
}
