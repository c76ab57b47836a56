// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/SignalConstants.h"

/// A sinusoid over time.
struct Oscillation {
    double frequency; ///< Hz
    double fs; ///< sampling rate, Hz
    double phase; ///< radians

    /// The angle at sample k in radians, grouped as k * (frequency * 2pi) / fs + phase: other
    /// groupings differ in the last bits.
    double angle(int k) const { return k * (frequency * twoPi) / fs + phase; }
};
