// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPair>
#include <QVector>

/// Names the toolkit; the functions below are free functions.
class TarvoClasses {
public:
    TarvoClasses() = default;
};

// Signals are vectors of samples at a rate that the caller passes; sample k stands for k / fs
// seconds. Random numbers come from Qt's global generator. All functions belong to the
// user-interface thread: some show a modal warning box and then carry on.

/// Uniform noise in 0 to 1, not centred. Seeds the generator with the time in whole seconds on
/// every call, so two calls within a second give the same noise.
/// @param nSamples below 1 gives an empty vector
QVector<double> whiteNoise(int nSamples);

/// A pure tone, sin(k * (frequency * 2pi) / fs + phase) * amplitude.
/// @param fs        sampling rate, Hz
/// @param duration  s; floor(duration * fs) samples, none when that is below 1
/// @param frequency Hz
/// @param amplitude linear factor
/// @param phase     starting phase, degrees
QVector<double> sine(double fs, double duration, double frequency, double amplitude, double phase);

/// A sinusoidally amplitude-modulated tone. The carrier is a sine and the modulator a cosine: with
/// both phases 0 the envelope starts at its maximum while the carrier starts at 0.
/// @param fs               sampling rate, Hz
/// @param duration         s; floor(duration * fs) samples, none when that is below 1
/// @param fc               carrier frequency, Hz
/// @param fm               modulation frequency, Hz
/// @param m                modulation depth, 1 is full modulation; more overmodulates
/// @param amplitude        linear factor
/// @param carrierPhase     degrees
/// @param modulatorPhase   degrees
/// @param normalise        whether to multiply by 1 / (m + 1), so that the peak is the amplitude
QVector<double> sam(double fs, double duration, double fc, double fm, double m, double amplitude,
    double carrierPhase, double modulatorPhase, bool normalise);

// Onset and offset ramps of nPoints samples each. Ramp position i, 0 to nPoints - 1, has a gain
// that is 0 at i = 0 and never reaches 1; the offset mirrors the onset. A vector shorter than two
// ramps is met with a warning box and then shaped all the same, the overlap with both gains; ramp
// positions beyond the vector are left out. nPoints below 1 changes nothing.

/// Raised-cosine ramps, gain (1 - cos(i / nPoints * pi)) / 2; returns the shaped copy.
QVector<double> cosRamp(QVector<double> samples, int nPoints);
/// Raised-cosine ramps in place.
void cosRamp(QVector<double>* samples, int nPoints);

/// Squared raised-cosine ramps; returns the shaped copy.
QVector<double> cos2Ramp(QVector<double> samples, int nPoints);
/// Squared raised-cosine ramps in place.
void cos2Ramp(QVector<double>* samples, int nPoints);

/// Linear ramps, gain i / nPoints; returns the shaped copy.
QVector<double> linearRamp(QVector<double> samples, int nPoints);
/// Linear ramps in place.
void linearRamp(QVector<double>* samples, int nPoints);

/// One random integer, min + draw % (max - min + 1), from wherever the generator stands. max below
/// min is met with a warning box and then computed all the same; the empty range max = min - 1
/// gives min. The generator is drawn from exactly once.
int randomInteger(int min, int max);

/// Random integers in min to max. Seeds the generator with the time in whole seconds. min above max
/// is met with a warning box and lowered to max.
/// @param count below 1 gives an empty vector
QVector<int> randomIntegers(int count, int min, int max);

/// Root mean square, summed in 64-bit integers; NaN for an empty vector.
double rms(QVector<int> values);

/// Root mean square, summed in index order; NaN for an empty vector.
double rms(QVector<double> samples);

/// Both root mean squares, summed side by side: within a sum each addition waits for the one
/// before. The lengths may differ.
QPair<double, double> rms(const QVector<double>& first, const QVector<double>& second);
