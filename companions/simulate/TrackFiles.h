// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/SimulatedRuns.h"

#include <QStringList>

/// Where runs are saved to.
struct TrackTarget {
    QString path; ///< a file for the first run, or an existing folder for the first nRuns
    int nRuns; ///< at least 1; 1 for a file
};

/// Saves the first runs as results files, each whole or not at all; what is there already stays. In
/// a folder they have the names that the application would give to test sessions 1, 2 and so on of
/// the subject. A run that was cut has no results: its session is missing.
/// @return what went wrong with each file that is missing
QStringList writeTracks(
    const TrackTarget& target, const Simulation& simulation, const RunsDone& runsDone);
