// SPDX-License-Identifier: GPL-3.0-or-later
// From an answer to the next trial, by kind of sound, duration, sampling rate and trial.
#include "BenchRun.h"

#include <benchmark/benchmark.h>
#include <string>

using namespace quorin;

namespace {

struct Case {
    std::string name;
    RunSettings settings;
    int trial = 20; ///< the first one measured
};

// The repetitions of a case measure one trial each of the same run. The last run is not deleted: at
// the end of the process the application is gone before it.
BenchRun& runOf(const Case& benchCase)
{
    static BenchRun* run = nullptr;
    static std::string name;
    if (name != benchCase.name) {
        delete run;
        run = new BenchRun(benchCase.settings);
        run->advanceTo(benchCase.trial - 1);
        run->answer(); // brings the charts up to date
        name = benchCase.name;
    }
    return *run;
}

void measure(benchmark::State& state, const Case& benchCase)
{
    BenchRun& run = runOf(benchCase);
    for (auto _ : state) {
        const BenchRun::Turnaround turnaround = run.answer();
        state.SetIterationTime(turnaround.free);
        state.counters["computing"] = turnaround.computing;
        state.counters["armed"] = turnaround.armed;
        state.counters["plain"] = turnaround.plain;
    }
}

void add(const Case& benchCase)
{
    constexpr int nTrials = 9;
    benchmark::RegisterBenchmark(
        benchCase.name.c_str(), [benchCase](benchmark::State& state) { measure(state, benchCase); })
        ->Iterations(1)
        ->Repetitions(nTrials)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

bool addAll()
{
    RunSettings sinusoid;
    sinusoid.soundType = sinusoidCarrier;
    sinusoid.mainParameter = carrierFrequencyParameter;
    add({"turnaround/noise", {}});
    add({"turnaround/sinusoid", sinusoid});
    RunSettings notShown;
    notShown.isShown = false;
    for (const int duration : {100, 300, 600, 1000, 3000, 10000}) {
        notShown.duration = duration;
        add({"growth/duration/" + std::to_string(duration), notShown});
    }
    notShown.duration = RunSettings().duration;
    for (const int rate : {8000, 22050, 40000, 96000, 192000}) {
        notShown.rate = rate;
        add({"growth/rate/" + std::to_string(rate), notShown});
    }
    notShown.rate = RunSettings().rate;
    for (const int trial : {10, 40, 100, 300}) {
        add({"growth/trial/" + std::to_string(trial), {}, trial});
    }
    return true;
}

const bool added = addAll();

} // namespace
