// SPDX-License-Identifier: GPL-3.0-or-later
// How large a study must be: listeners simulated in two conditions, and studies drawn from them.
#include "simulate/Detection.h"

#include <array>
#include <cmath>

namespace {

constexpr int mostRunsTried = 8;
constexpr std::array<int, 6> runsTried {1, 2, 3, 4, 6, mostRunsTried};
constexpr double dbPerDecade = 20.0;

// The thresholds of one listener in one condition.
using Decibels = std::array<double, mostRunsTried>;

struct Listeners {
    std::vector<Decibels> first;
    std::vector<Decibels> second;
    qint64 nTrials = 0;
    int nRuns = 0;
    int nCut = 0;
};

Decibels thresholdsOf(Data& data, const Simulation& simulation, int index, Listeners& listeners)
{
    Decibels decibels = {};
    for (int i = 0; i < mostRunsTried; ++i) {
        const RunOutcome outcome = simulateRun(data, simulation, index * mostRunsTried + i);
        decibels[static_cast<size_t>(i)] = dbPerDecade * std::log10(outcome.threshold);
        listeners.nTrials += outcome.nTrials;
        ++listeners.nRuns;
        listeners.nCut += std::isnan(outcome.threshold) ? 1 : 0;
    }
    return decibels;
}

bool isWhole(const Decibels& decibels)
{
    double sum = 0.0;
    for (const double value : decibels) {
        sum += value;
    }
    return !std::isnan(sum);
}

// The seeds of both conditions and of the listeners' own thresholds differ.
Listeners simulatedListeners(
    const Simulation& simulation, const Comparison& comparison, const ShareDone& shareDone)
{
    Simulation first = simulation;
    Simulation second = simulation;
    second.seed = ~simulation.seed;
    std::mt19937_64 generator(simulation.seed);
    Data data = preparedRun(simulation);
    Listeners listeners;
    for (int i = 0; i < simulation.nRuns; ++i) {
        const double offsetDb = comparison.listenerSdDb * nextNormal(generator);
        first.listener.threshold
            = simulation.listener.threshold * std::pow(10.0, offsetDb / dbPerDecade);
        second.listener.threshold = first.listener.threshold * comparison.ratio;
        const Decibels one = thresholdsOf(data, first, i, listeners);
        const Decibels other = thresholdsOf(data, second, i, listeners);
        if (isWhole(one) && isWhole(other)) {
            listeners.first.push_back(one);
            listeners.second.push_back(other);
        }
        shareDone(static_cast<double>(i + 1) / simulation.nRuns);
    }
    return listeners;
}

// Means of nRuns runs in a row, as many as each listener has.
std::vector<double> meansOf(const std::vector<Decibels>& listeners, int nRuns)
{
    std::vector<double> means;
    for (const Decibels& decibels : listeners) {
        for (int first = 0; first + nRuns <= mostRunsTried; first += nRuns) {
            double sum = 0.0;
            for (int i = first; i < first + nRuns; ++i) {
                sum += decibels[static_cast<size_t>(i)];
            }
            means.push_back(sum / nRuns);
        }
    }
    return means;
}

StudySize studySize(const Listeners& listeners, int nRuns, quint64 seed)
{
    const std::vector<double> first = meansOf(listeners.first, nRuns);
    const std::vector<double> second = meansOf(listeners.second, nRuns);
    std::vector<double> differences;
    for (size_t i = 0; i < first.size(); ++i) {
        differences.push_back(second[i] - first[i]);
    }
    return {nRuns, groupsNeeded(first, second, seed), pairsNeeded(differences, seed)};
}

} // namespace

Detection detection(
    const Simulation& simulation, const Comparison& comparison, const ShareDone& shareDone)
{
    constexpr double shareOfListeners = 0.45; // of the time, about
    const Listeners listeners = simulatedListeners(
        simulation, comparison, [&](double share) { shareDone(share * shareOfListeners); });
    // Listeners with one threshold: their runs vary as those of a single listener.
    const Listeners alike = simulatedListeners(simulation, {comparison.ratio, 0.0},
        [&](double share) { shareDone((1.0 + share) * shareOfListeners); });
    Detection result = {{0, std::nan("")}, {}, 0.0, 0.0};
    const int nRuns = listeners.nRuns + alike.nRuns;
    result.trialsPerRun
        = static_cast<double>(listeners.nTrials + alike.nTrials) / static_cast<double>(nRuns);
    result.shareCut = static_cast<double>(listeners.nCut + alike.nCut) / nRuns;
    if (listeners.first.size() < 2 || alike.first.size() < 2) {
        return result;
    }
    result.runs = groupsNeeded(meansOf(alike.first, 1), meansOf(alike.second, 1), simulation.seed);
    for (const int n : runsTried) {
        result.studies.append(studySize(listeners, n, simulation.seed));
        const double shareOfSizes = static_cast<double>(result.studies.size()) / runsTried.size();
        shareDone(2.0 * shareOfListeners + (1.0 - 2.0 * shareOfListeners) * shareOfSizes);
    }
    return result;
}
