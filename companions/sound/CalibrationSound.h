// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

namespace quorin {

constexpr double calibrationRampMs = 50.0;

} // namespace quorin

/// A steady sound for a sound level meter.
struct CalibrationSound {
    bool isNoise = false; ///< the experiment's noise; else a tone
    double frequency = 1000.0; ///< of a tone, Hz
    int rate = 40000; ///< Hz
    double durationMs = 10000.0; ///< with its ramps, two of which it must hold
};

/// Which channels play.
enum class Ear { both, left, right };

/// The level at which the largest sample may be 1, dB re full scale.
double highestLevelDb(const CalibrationSound& sound);

/// The next level: higher by a step, but no higher than the highest.
double raisedLevelDb(double levelDb, double stepDb, double highestDb);

/// The samples, with raised-cosine ramps. Seeds Qt's generator: a noise is the same each time.
/// @param levelDb of the sound between its ramps, RMS in dB re full scale; a noise's own differs by
///                some thousandths of a dB
QVector<double> calibrationSamples(const CalibrationSound& sound, double levelDb);

/// Channels that are played for an ear: one for both, which the server gives to each.
int channelsOf(Ear ear);

/// What is played: frames of 32-bit floats, with a tenth of a second of silence behind the sound.
QByteArray calibrationFrames(const QVector<double>& samples, Ear ear, int rate);
