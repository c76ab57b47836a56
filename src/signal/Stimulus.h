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
