// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// Amplitude and phase of the bins 0 to N/2 - 1 of a transform of length N.
struct Spectrum {
    QVector<double> amplitude; ///< linear
    QVector<double> phase; ///< radians, -pi to pi
};

/// Single-sided spectrum of a sound, padded with silence or cut to the transform's length. A tone
/// of amplitude A has a peak near A: amplitudes are divided by half the sound's own length,
/// truncated. Bin 0 takes the Nyquist term as its imaginary part.
/// @param length   transform length N, a power of two
/// @param nSamples length of the sound, below 2 the amplitudes are divided by 0
Spectrum spectrumOf(const QVector<double>& sound, qint64 length, int nSamples);

/// Multiplies a sound by a window in place: selector 1 is a Hann window, any other silences the
/// sound.
/// @param nSamples length of the window; 1 gives NaN
void applyWindow(QVector<double>& sound, int nSamples, int windowSelector);

/// Overwrites the first nBins entries of a frequency axis: bin k at resolution * k, Hz.
void overwriteFrequencies(QVector<double>& axis, int nBins, double resolution);
