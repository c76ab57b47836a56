// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"

/// quorin-sound calibrate: from a sound at a meter to a calibration note.
/// @param arguments the program's name first, without the command
/// @return the exit status: success if a note was written
int runCalibrate(const QStringList& arguments, StandardStreams& streams);
