// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "procedure/Replay.h"

#include <QString>

class Data;

/// The run taken through the rule once more. Its values are those of a results file.
Replay replayOf(const Data& data);

/// What is wrong with a trial.
struct TrialFault {
    int trial = 0; ///< index among the run's
    QString text; ///< empty: nothing is wrong
};

/// The first trial that the rule cannot have made after those before it, or the last one if the run
/// does not end with a reversal; without text if the whole run is possible.
/// @param replay that of data
TrialFault departureOf(const Data& data, const Replay& replay);
