// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Distribution.h"

/// Draws the distribution of the thresholds over the tracks of the first runs.
/// @param path ends in .png, .svg or .pdf
/// @return what went wrong; empty if the picture was written
QString writeSimulationPlot(
    const QString& path, const Simulation& simulation, const RunStatistics& statistics);
