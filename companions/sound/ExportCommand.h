// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"

/// quorin-sound export: the sounds of given settings as files, table and picture.
/// @param arguments the program's name first, without the command
/// @return the exit status
int runExport(const QStringList& arguments, StandardStreams& streams);
