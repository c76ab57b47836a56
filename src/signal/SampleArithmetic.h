// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorin {

// What every sample is computed with: the constants as these very doubles, and the angle of an
// oscillation.
constexpr double pi = 3.141592653589793;
constexpr double twoPi = 6.283185307179586;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double largestDraw = 2147483647.0; ///< qrand() gives integers from 0 to this

} // namespace quorin

/// A sinusoid over time.
struct Oscillation {
    double frequency; ///< Hz
    double fs; ///< sampling rate, Hz
    double phase; ///< radians

    /// The angle at sample k in radians, grouped as k * (frequency * 2pi) / fs + phase: other
    /// groupings differ in the last bits.
    double angle(int k) const { return k * (frequency * quorin::twoPi) / fs + phase; }
};
