// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// What can be heard in the recording of a trial of four sounds.
struct HeardTrial {
    int nSounds; ///< sounds that have ended
    int deviant; ///< 2 or 3: the interval whose sound differs from the first; 0: undecided
    int end; ///< index after the last sound that has ended; 0 without one
};

/// Finds the sounds of a trial and compares the second and the third with the first, sample by
/// sample. A trial's standards are the same samples, so a single different one tells the deviant.
/// @param recording       from before the trial's first sound on; it may end anywhere
/// @param shortestSilence samples of silence that end a sound
/// @return undecided unless exactly four sounds have ended and exactly one of the two differs
HeardTrial heardTrial(const QVector<float>& recording, int shortestSilence);
