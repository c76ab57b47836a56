// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <QVector>

#include <cmath>

/// The sounds that the window must make, from their formulas.

/// A sound sample by sample from its formula.
/// @param draws     what Qt's generator gives; a noise carrier takes one a sample
/// @param firstDraw place of the first sample's draw
inline QVector<double> statedSound(
    const Data& data, int stimulus, const QVector<int>& draws = {}, int firstDraw = 0)
{
    const double fullTurn = 6.283185307179586;
    const double m = data.md[stimulus];
    QVector<double> sound;
    double c = 0.0;
    for (int k = 0; k < data.nSamples[stimulus]; ++k) {
        if (data.soundType == 1) {
            const double u = draws[firstDraw + k] / 2147483647.0;
            c = u + u - 1;
        } else if (data.soundType == 0) {
            c = std::sin(k * (data.cf[stimulus] * fullTurn) / data.fs + data.cfPhase[stimulus]);
        }
        const double e
            = std::cos(k * (data.mf[stimulus] * fullTurn) / data.fs + data.mfPhase[stimulus]) * m
            + 1;
        const double x = e * data.amp[stimulus] * c;
        sound.append(data.normalizeMd ? x * (1 / (m + 1)) : x);
    }
    return sound;
}

/// Root mean square, summed in index order.
inline double statedRms(const QVector<double>& sound)
{
    double sum = 0.0;
    for (const double sample : sound) {
        sum += sample * sample;
    }
    return std::sqrt(sum / sound.size());
}

/// The standard at the deviant's level.
inline QVector<double> statedEqualised(QVector<double> standardSound, const QVector<double>& other)
{
    const double factor = statedRms(other) / statedRms(standardSound);
    for (double& sample : standardSound) {
        sample *= factor;
    }
    return standardSound;
}

/// The times of the first samples, ms.
inline QVector<double> statedTimes(int nPoints, double fs)
{
    QVector<double> times;
    for (int k = 0; k < nPoints; ++k) {
        times.append(k / fs * 1000.0);
    }
    return times;
}
