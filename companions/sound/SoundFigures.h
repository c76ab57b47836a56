// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// Levels of a sound. Decibels are 20 log10 of amplitudes; full scale is 1, so a tone of amplitude
/// 1 has a level of -3.01 dB. The levels of silence are minus infinite or undefined.
struct SoundFigures {
    double rms; ///< root mean square
    double peak; ///< largest magnitude
    double firstSample; ///< magnitude: the jump from silence that the sound begins with
    double lastSample; ///< magnitude: the jump to silence that it ends with
    double beginShare; ///< mean square of the first millisecond by that of the sound
    double endShare; ///< of the last millisecond

    double rmsDb() const;
    double peakDb() const;
    double crestDb() const; ///< peak by RMS
    /// Energy of the first and of the last millisecond by that of a mean one: 0 dB where a sound is
    /// switched on at full strength, less where it swells.
    double beginDb() const;
    double endDb() const;
};

/// @param rate Hz; a sound shorter than a millisecond is its own first and last; an empty sound has
///             undefined levels
SoundFigures soundFigures(const QVector<float>& samples, double rate);
