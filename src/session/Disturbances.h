// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// What disturbed the sounds of one trial. All zero: every sound was played whole and in time, as
/// far as the program can tell.
struct Disturbances {
    int interruptedSounds = 0; ///< that ran dry and went on after a gap
    int lateSounds = 0; ///< whose tick or first samples came more than 10 ms late, or whose
                        ///< start was blocked for more than 25 ms
    int worstLatenessMs = 0; ///< of the late sounds, in ms rounded up; 0 without any
    bool hasOutputFailed = false; ///< an output of the trial stopped with an error, or its stream
                                  ///< was gone: a sound may be missing
};
Q_DECLARE_TYPEINFO(Disturbances, Q_PRIMITIVE_TYPE);
