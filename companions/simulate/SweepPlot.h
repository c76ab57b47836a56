// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/RunStatistics.h"
#include "simulate/Sweep.h"

/// What the picture shows of a simulation.
struct SweepPoint {
    double trials; ///< mean
    double minutes; ///< mean
    double biasDb;
    double sdDb;
    double shareCut; ///< of the runs; if there are any, the figures are biased
};
Q_DECLARE_TYPEINFO(SweepPoint, Q_PRIMITIVE_TYPE);

SweepPoint sweepPoint(const Simulation& simulation, const RunStatistics& statistics);

/// Draws bias and spread of the thresholds against trials and minutes. With more than one swept
/// option, the first one's values are lines of their own.
/// @param points   of each of the sweep's simulations
/// @param path     ends in .png, .svg or .pdf
/// @param isForced whether a picture of a companion may be replaced
/// @return what went wrong; empty if the picture was written
QString writeSweepPlot(
    const QString& path, const Sweep& sweep, const QVector<SweepPoint>& points, bool isForced);
