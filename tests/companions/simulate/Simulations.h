// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/SimulatedRuns.h"

constexpr double depthThreshold = 0.056234; // -25 dB

/// The application's defaults with a listener.
/// @param start 0.5 in the panel for the depth, 0.05 for the frequency
inline Simulation simulationOf(const PsychometricFunction& listener,
    int mainParameter = modulationDepthParameter, double start = 0.5)
{
    Simulation simulation = {};
    simulation.listener = listener;
    simulation.mainParameter = mainParameter;
    simulation.startValue = start;
    simulation.nReversals = 14;
    simulation.nReversalsToCalculate = 8;
    simulation.nRuns = 2000;
    simulation.seed = 1;
    simulation.mostTrials = 10000;
    simulation.standardCarrier = 1000;
    simulation.soundMs = 600;
    simulation.silenceMs = 1000;
    simulation.reactionMs = 500;
    return simulation;
}

inline std::vector<RunOutcome> outcomesOf(const Simulation& simulation, int nThreads = 2)
{
    return simulatedRuns(simulation, nThreads, [](int) {});
}
