// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"

#include <QStringList>

class OptionReader;
class QCommandLineParser;

/// Adds the options of listeners, experiments and what is random to a parser.
void addSimulationOptions(QCommandLineParser& parser);

/// Reads them. What is not given is the application's default, by the main parameter.
Simulation readSimulation(OptionReader& reader);

/// The names of the options whose value is a number.
QStringList numericOptions();
