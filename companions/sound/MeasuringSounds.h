// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

namespace quorin {

/// Magnitude of all measuring sounds: what resampling adds has room below full scale.
constexpr double measuringAmplitude = 0.5;
/// Seconds from a tone of the sequence to the next.
constexpr double secondsPerTone = 0.15;

} // namespace quorin

/// The tones that a path is measured with: 100 Hz to 19 kHz, those below half the rate.
/// @param rate Hz
QVector<double> measuredFrequencies(int rate);

/// These tones one after the other, each with raised-cosine ramps of 10 ms, and 0.1 s of silence.
/// @param rate Hz, above 0
QVector<float> toneSequence(int rate);

/// A sound whose begin, middle and end can be told to a fraction of a sample: a positive constant,
/// then as many samples of the negative one.
/// @param nSamples made even
QVector<float> steppedSound(int nSamples);
