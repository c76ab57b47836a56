// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/RunStatistics.h"

/// Draws the distribution of the thresholds over the tracks of the first runs, and names listener,
/// rule and seed.
/// @param path     ends in .png, .svg or .pdf
/// @param isForced whether a picture of a companion may be replaced
/// @return what went wrong; empty if the picture was written
QString writeSimulationPlot(const QString& path, const Simulation& simulation,
    const RunStatistics& statistics, bool isForced);
