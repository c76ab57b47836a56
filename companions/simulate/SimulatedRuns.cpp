// SPDX-License-Identifier: GPL-3.0-or-later
// All runs of a simulation, shared out among threads.
#include "simulate/SimulatedRuns.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>

namespace {

constexpr int blockSize = 64; // runs that a thread takes at a time
constexpr std::chrono::milliseconds reportInterval(100);

struct SharedCounts {
    std::atomic<int> nTaken {0};
    std::atomic<int> nDone {0};
};

void simulateBlocks(Data data, const Simulation& simulation, std::vector<RunOutcome>& outcomes,
    SharedCounts& counts)
{
    for (;;) {
        const int begin = counts.nTaken.fetch_add(blockSize);
        const int end = std::min(begin + blockSize, runCount(simulation));
        if (begin >= end) {
            return;
        }
        for (int i = begin; i < end; ++i) {
            outcomes[static_cast<size_t>(i)] = simulateRun(data, simulation, i);
        }
        counts.nDone += end - begin;
    }
}

} // namespace

std::vector<RunOutcome> simulatedRuns(
    const Simulation& simulation, int nThreads, const RunsDone& runsDone)
{
    std::vector<RunOutcome> outcomes(static_cast<size_t>(runCount(simulation)));
    SharedCounts counts;
    std::vector<std::future<void>> workers;
    workers.reserve(static_cast<size_t>(nThreads));
    for (int i = 0; i < nThreads; ++i) {
        // The record is made here: it asks the desktop for its folder.
        workers.push_back(std::async(std::launch::async, simulateBlocks, preparedRun(simulation),
            std::cref(simulation), std::ref(outcomes), std::ref(counts)));
    }
    for (const std::future<void>& worker : workers) {
        while (worker.wait_for(reportInterval) != std::future_status::ready) {
            runsDone(counts.nDone);
        }
    }
    runsDone(runCount(simulation));
    return outcomes;
}
