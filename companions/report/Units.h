// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

class Data;

namespace quorin {

constexpr double dbPerDecade = 20.0; ///< of depths and differences

} // namespace quorin

/// The level of a value of the run in dB: 20 log10 of the depth as a fraction, or of the difference
/// in Hz relative to 1 Hz. NaN for 0 and for values below.
double decibelsOf(const Data& data, double value);

/// The value of a level in dB: the inverse of decibelsOf.
double valueOfDecibels(const Data& data, double decibels);

/// A value relative to what it is a part of.
struct LevelOrShare {
    double decibels; ///< of a depth; NaN of a difference
    double percentOfCarrier; ///< of a difference if the carrier is known; NaN of a depth
};

/// @param value   of the run, % or Hz
/// @param carrier of the standard, Hz
LevelOrShare levelOrShare(const Data& data, double value, const std::optional<double>& carrier);
