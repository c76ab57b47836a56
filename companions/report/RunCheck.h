// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "procedure/Replay.h"
#include "report/ResultsReader.h"

class Data;

/// The run taken through the rule once more. Its values are those of a results file.
Replay replayOf(const Data& data);

/// The first line of a results file that the rule cannot have written after those before it, or the
/// last one if the run does not end with a reversal; without text if the whole run is possible.
/// @param replay that of data
Complaint departureOf(const Data& data, const Replay& replay);
