// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/SimulatedRuns.h"

#include <QMetaType>

Q_DECLARE_METATYPE(Simulation)

constexpr double depthThreshold = 0.056234; // -25 dB

/// The defaults with a listener.
inline Simulation simulationOf(
    const PsychometricFunction& listener, int mainParameter = quorin::modulationDepthParameter)
{
    Simulation simulation = defaultSimulation(mainParameter);
    simulation.listener = listener;
    simulation.nRuns = 2000;
    return simulation;
}

inline std::vector<RunOutcome> outcomesOf(const Simulation& simulation, int nThreads = 2)
{
    return simulatedRuns(simulation, nThreads, [](int) {});
}
