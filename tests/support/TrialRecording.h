// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/ScriptedListener.h"

#include <QString>
#include <QVector>

/// Samples as they are played.
QVector<float> singlePrecision(const QVector<double>& samples);

/// Rebuilds a recording from the sounds of a run's trials, as 32-bit floats at the places where
/// they are found one after the other, the deviant in its interval, and compares every sample.
/// Sounds that follow each other without silence may overlap by the server's blocks: they then add
/// up.
/// @return what is missing or differs; empty when the two agree
QString differenceFromRecording(
    const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording);

/// The samples of a recording at which differenceFromRecording finds the sounds to begin, four a
/// trial and in order, up to the first that is missing.
QVector<int> recordedOnsets(
    const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording);
