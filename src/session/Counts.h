// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorin {

/// The longest sound in samples: 209 s at 40 kHz. Whatever is typed, memory and time stay bounded.
constexpr int longestSound = 1 << 23;

/// The most points that a chart plots of a sound; with more the charts stop answering.
constexpr int mostPlottedPoints = 100000;

} // namespace quorin

/// A double cut toward zero to a count: NaN is 0, values beyond int become its nearest limit.
int truncatedCount(double value);

/// A double rounded down to a count, with the same treatment of NaN and large values.
int flooredCount(double value);

/// Samples of a sound, floor(fs * duration), at most longestSound. A negative product gives a
/// negative count, which every use as a size treats as 0.
/// @param fs       sampling rate, Hz
/// @param duration s
int soundLength(double fs, double duration);

/// Samples of a sound to plot: floor(fs * span), at most nSamples and mostPlottedPoints; may be
/// negative.
/// @param fs       sampling rate, Hz
/// @param span     stretch of the sound to plot, s
/// @param nSamples samples of the sound
int plottedPoints(double fs, double span, int nSamples);

/// FFT length for a sound: 2^ceil(ln(nSamples) / ln 2), at least 1.
long long spectrumLength(int nSamples);
