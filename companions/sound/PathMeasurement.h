// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/PathFigures.h"

#include <QString>

/// What is measured.
struct MeasuredPath {
    int playedRate; ///< that of the panel, Hz
    int outputRate; ///< Hz
    double durationMs; ///< of the sound whose losses are measured
};

/// What the running server did to sounds on their way to an output.
struct PathMeasurement {
    QVector<ToneFigures> tones;
    LostSamples lost {};
    bool isExact = false; ///< every sample arrived as it was played
    QString obstacle; ///< why nothing was measured; empty: all was
};

/// Plays measuring sounds as quorin-lab plays its own, into a null sink that the running server has
/// meanwhile, and records what arrives: some 5 s. Needs a QCoreApplication. Where its quit() is
/// called, the measurement ends early with an obstacle.
PathMeasurement measurePath(const MeasuredPath& path);
