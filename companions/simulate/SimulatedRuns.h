// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"

#include <functional>
#include <vector>

/// Told from time to time how many runs are done. Called by the thread that waits for the runs.
using RunsDone = std::function<void(int nRuns)>;

/// All runs of a simulation, in their order. The same whatever the number of threads.
/// @param nThreads at least 1
std::vector<RunOutcome> simulatedRuns(
    const Simulation& simulation, int nThreads, const RunsDone& runsDone);
