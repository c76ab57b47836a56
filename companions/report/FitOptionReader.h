// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectFits.h"

class QCommandLineParser;

/// Adds --fit and what goes with it to the options.
void addFitOptions(QCommandLineParser& parser);

/// Reads them.
/// @return the first thing that is wrong with one; empty if all can be used
QString readFitOptions(const QCommandLineParser& parser, FitOptions& options);
