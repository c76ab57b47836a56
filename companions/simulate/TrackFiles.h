// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"

/// Where runs are saved to.
struct TrackTarget {
    QString path; ///< a file for the first run, or an existing folder for the first nRuns
    QString subCode; ///< subject code in the names of the files in a folder
    int nRuns; ///< at least 1; 1 for a file
};

/// Saves the first runs as results files, each whole or not at all. In a folder they have the names
/// that the application would give to test sessions 1, 2 and so on of the subject.
/// @return what went wrong with the first file that could not be written, or with the first run
///         that was cut and so has no results; empty if all were written
QString writeTracks(const TrackTarget& target, const Simulation& simulation);
