// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Detection.h"
#include "simulate/RunStatistics.h"
#include "simulate/Sweep.h"

class QTextStream;

/// "logistic, slope (dB) 2.5, threshold 0.05, lapse rate 0" and the like.
QString listenerText(const PsychometricFunction& listener);

/// "14 reversals, the last 8 averaged".
QString ruleText(const Simulation& simulation);

/// "biased: 1.5 % cut", to stand beside figures that runs without an end bias; empty without any.
QString cutWarning(double shareCut);

/// Writes what was simulated: the listener and the settings, a line each.
void writeSettings(QTextStream& stream, const Simulation& simulation);

/// Writes the figures of a simulation, thresholds as fractions, in the application's unit and in
/// dB.
void writeStatistics(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics);

/// Writes the line of names over a table of simulations.
void writeSweepHeader(QTextStream& stream, const Sweep& sweep);

/// Writes one simulation's line of that table.
void writeSweepRow(
    QTextStream& stream, const SweptSimulation& swept, const RunStatistics& statistics);

/// Writes how large studies must be.
void writeDetection(QTextStream& stream, const Simulation& simulation, const Comparison& comparison,
    const Detection& detection);
