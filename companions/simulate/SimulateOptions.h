// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"
#include "simulate/TrackFiles.h"

#include <QStringList>
#include <QVector>

/// What the simulator is told on its command line.
struct SimulateOptions {
    Simulation simulation;
    QVector<int> sweptReversals; ///< numbers of reversals to tabulate; empty: no table
    int nThreads;
    TrackTarget track; ///< an empty path: none
    QString plotPath; ///< empty: none
};

/// Reads the command line; --help and --version print theirs and end the program. Needs a
/// QCoreApplication.
/// @param errorText what is wrong with an argument; empty if the options can be used
SimulateOptions simulateOptions(const QStringList& arguments, QString& errorText);
