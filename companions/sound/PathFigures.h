// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// What arrived of a tone. Decibels are relative to the tone as it was played.
struct ToneFigures {
    double frequency; ///< Hz
    double levelDb; ///< minus infinite if nothing arrived
    double imageHz; ///< the strongest component that was not played
    double imageDb;
};
Q_DECLARE_TYPEINFO(ToneFigures, Q_PRIMITIVE_TYPE);

/// The tones of a recorded toneSequence(). The level is that of the tone's own frequency; images
/// are looked for 45 Hz and more beside it. A tone above half the recording's rate cannot arrive.
/// @param playedRate, recordedRate Hz
/// @return empty if the recording is silent
QVector<ToneFigures> toneFigures(const QVector<float>& recording, int playedRate, int recordedRate);

/// What was lost of a sound, in samples at the recording's rate; negative: so much was added.
struct LostSamples {
    bool isSilent; ///< nothing, or not both halves, arrived
    double atBegin; ///< of the first half
    double atEnd; ///< of the second half
};

/// The losses of a recorded steppedSound(). Its edges are where the recording crosses half of its
/// magnitude, and zero in the middle: a linear-phase filter leaves these places where they are.
/// @param nPlayed samples of the sound at its own rate
LostSamples lostSamples(
    const QVector<float>& recording, int nPlayed, int playedRate, int recordedRate);

/// Whether a recording holds a sound sample for sample.
bool holdsExactly(const QVector<float>& recording, const QVector<float>& sound);

/// The largest loss of tones from 100 Hz to a frequency, dB; 0 without tones.
double largestLossDb(const QVector<ToneFigures>& tones, double upToHz);
