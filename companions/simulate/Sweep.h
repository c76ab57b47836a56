// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"

#include <QStringList>
#include <QVector>

class OptionReader;
class QCommandLineParser;

/// One of the simulations of a sweep.
struct SweptSimulation {
    QStringList values; ///< of the swept options, as text
    Simulation simulation;
};

/// Simulations over every combination of values of some options.
struct Sweep {
    QStringList options; ///< their names; empty: no sweep was asked for
    QVector<SweptSimulation> simulations; ///< the last option's values vary fastest
};

/// Adds --sweep to a parser.
void addSweepOption(QCommandLineParser& parser);

/// Reads every --sweep and the simulations that they ask for. A range without a name is one of
/// numbers of reversals. Where these are swept, all reversals are averaged if there are fewer than
/// the last ones asked for.
/// @param reader gets what is wrong
Sweep readSweep(const QCommandLineParser& parser, OptionReader& reader);
