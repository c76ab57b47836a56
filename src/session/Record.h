// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// One answered trial.
class Record {
public:
    /// Every field zero or false.
    Record();
    ~Record() = default;

    /// The deviant's adapted parameter at this trial, a fraction: of the standard's carrier
    /// frequency when the frequency difference is adapted, of full modulation when the depth is.
    double value;
    int stimulusPosition; ///< interval that held the deviant, 2 or 3; 0 before any trial
    int responsePosition; ///< interval that the listener chose, 1 to 4
    bool correctness; ///< whether the two positions are the same
    double reactionTime; ///< from the reported end of the fourth sound to the answer, ms
};

/// A trial that was answered.
/// @param value            of the adapted parameter, a fraction
/// @param stimulusPosition interval that held the deviant
/// @param responsePosition interval that the listener chose; the answer is correct if it is the
///                         deviant's
/// @param reactionTime     ms
Record answeredTrial(double value, int stimulusPosition, int responsePosition, double reactionTime);

Q_DECLARE_TYPEINFO(Record, Q_MOVABLE_TYPE);
