// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/RunStatistics.h"
#include "simulate/SimulatedRuns.h"
#include "simulate/Sweep.h"

// Comma-separated values with a line of headings. What does not exist is empty.

/// The headings of a table of runs, by the main parameter, without their end.
QString runHeadings(const Simulation& simulation);
/// A row a run, in their order.
QByteArray runRows(const Simulation& simulation, const std::vector<RunOutcome>& outcomes,
    const RunsDone& runsDone);

/// The headings of a table of figures: the swept options, then the figures.
QString summaryHeadings(const Sweep& sweep);
/// The row of one simulation with its values of the swept options.
QString summaryRow(
    const QStringList& values, const Simulation& simulation, const RunStatistics& statistics);
