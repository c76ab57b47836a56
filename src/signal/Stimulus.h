// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <QVector>

/// Synthesises one stimulus from the session record, a carrier under a sinusoidal envelope:
///   sample k = (cos(k (mf 2pi) / fs + mfPhase) md + 1) amp carrier(k),
/// times 1 / (md + 1) if normalised.
/// The carrier is a sine, or uniform noise in -1 to 1 of one qrand() a sample; any other sound type
/// is silent. The generator is never seeded here.
/// @param sound becomes nSamples[stimulus] samples; empty when that count is 0 or negative
/// @param stimulus standard or deviant
void synthesise(QVector<double>& sound, const Data& data, int stimulus);

/// Scales the standard to the deviant's RMS level, never the other way round. An empty standard
/// stays empty; a silent standard or an empty deviant makes the standard NaN.
void equaliseLevels(QVector<double>& standardSound, const QVector<double>& deviantSound);

/// The time of sample k in ms, k / fs * 1000.
double sampleTime(int k, double fs);

/// Lengthens a time axis in ms to at least nPoints entries, entry k at sampleTime(k); never
/// shortens.
void extendTimeAxis(QVector<double>& timeAxis, int nPoints, double fs);

/// The time axis of the plotted samples in ms, one entry a sample.
/// @param nPoints below 1 gives an empty axis
QVector<double> plottedTimes(int nPoints, double fs);

/// Smallest and largest element, the first found on ties; {-1, 1} for an empty vector, so that an
/// empty sound still has a range that an axis can show.
QVector<double> amplitudeRange(const QVector<double>& samples);
