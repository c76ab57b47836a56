// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

/// Where the random numbers of a sound come from.
struct Draws {
    uint seed; ///< of Qt's generator; 1 is a program that never seeds it
    qint64 before; ///< numbers drawn since
};

/// What is played of a trial's standard and deviant: single-precision samples.
struct TrialSounds {
    QVector<QVector<float>> samples = QVector<QVector<float>>(2);
};

/// The two sounds as the main window makes them when View is pressed, bit for bit. Seeds Qt's
/// generator.
TrialSounds trialSounds(const Data& data, const Draws& draws);
