// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"

/// quorin-sound check: what the running sound server does to the sounds.
/// @param arguments the program's name first, without the command
/// @return the exit status: success unless a line says stop
int runCheck(const QStringList& arguments, StandardStreams& streams);
