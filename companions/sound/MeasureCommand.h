// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"

/// quorin-sound measure: what the running sound server does to tones and to a sound's ends.
/// @param arguments the program's name first, without the command
/// @return the exit status
int runMeasure(const QStringList& arguments, StandardStreams& streams);
