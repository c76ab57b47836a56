// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"
#include "simulate/Detection.h"
#include "simulate/Sweep.h"
#include "simulate/TrackFiles.h"

/// What the simulator is told on its command line.
struct SimulateOptions {
    Simulation simulation; ///< the first one of a sweep
    Sweep sweep;
    bool isDetection = false; ///< whether the sizes of studies are asked for
    Comparison comparison {1.0, 0.0};
    int nThreads = 1;
    TrackTarget track; ///< an empty path: none
    QString plotPath; ///< empty: none
    QString csvPath; ///< of the runs; empty: none
    QString summaryCsvPath; ///< empty: none
    bool isForced = false; ///< whether tables and pictures of the companions may be replaced
    std::optional<Answer> answer; ///< in place of the simulation
};

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first
SimulateOptions simulateOptions(const QStringList& arguments);
