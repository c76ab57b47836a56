// SPDX-License-Identifier: GPL-3.0-or-later
// Simulated trials a second on one core: items are trials.
#include "simulate/Simulation.h"

#include <benchmark/benchmark.h>

using namespace quorin;

namespace {

void simulate(benchmark::State& state, const PsychometricFunction& listener, int mainParameter)
{
    Simulation simulation = defaultSimulation(mainParameter);
    simulation.listener = listener;
    Data data = preparedRun(simulation);
    int index = 0;
    int64_t nTrials = 0;
    for (auto _ : state) {
        const RunOutcome outcome = simulateRun(data, simulation, index++);
        benchmark::DoNotOptimize(outcome.threshold);
        nTrials += outcome.nTrials;
    }
    state.SetItemsProcessed(nTrials);
}

void logisticDepth(benchmark::State& state)
{
    simulate(state, logisticListener(0.056234, 2.5), modulationDepthParameter);
}

void weibullDepth(benchmark::State& state)
{
    simulate(state, weibullListener(0.056234, 1.5), modulationDepthParameter);
}

void gaussianFrequency(benchmark::State& state)
{
    simulate(state, gaussianListener(0.002, 1.0), carrierFrequencyParameter);
}

void constantDepth(benchmark::State& state)
{
    simulate(state, constantListener(0.5), modulationDepthParameter);
}

BENCHMARK(logisticDepth);
BENCHMARK(weibullDepth);
BENCHMARK(gaussianFrequency);
BENCHMARK(constantDepth);

} // namespace
