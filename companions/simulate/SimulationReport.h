// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Distribution.h"

class QTextStream;

/// Writes what was simulated: the listener and the settings, a line each.
void writeSettings(QTextStream& stream, const Simulation& simulation);

/// Writes the figures of a simulation, thresholds as fractions and in the application's unit.
void writeStatistics(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics);

/// Writes the line of names over a table of simulations that differ in their reversals.
void writeSweepHeader(QTextStream& stream, const Simulation& simulation);

/// Writes one simulation's line of that table.
void writeSweepRow(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics);
