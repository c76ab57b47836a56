// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds that show what a path does to sounds.
#include "sound/MeasuringSounds.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

constexpr double silentSeconds = 0.1;

double ramp(int k, int nSamples, double rate)
{
    constexpr double rampSeconds = 0.01;
    const double fromEdge = std::min(k, nSamples - 1 - k) / (rampSeconds * rate);
    return fromEdge >= 1.0 ? 1.0 : 0.5 - 0.5 * std::cos(M_PI * fromEdge);
}

} // namespace

QVector<double> measuredFrequencies(int rate)
{
    QVector<double> frequencies;
    for (const double frequency : {100.0, 250.0, 500.0, 1000.0, 2000.0, 4000.0, 6000.0, 8000.0,
             10000.0, 12000.0, 14000.0, 15000.0, 16000.0, 17000.0, 18000.0, 19000.0}) {
        if (frequency < rate / 2.0) {
            frequencies.append(frequency);
        }
    }
    return frequencies;
}

QVector<float> toneSequence(int rate)
{
    const QVector<double> frequencies = measuredFrequencies(rate);
    const int nSamples = qRound(secondsPerTone * rate);
    QVector<float> sequence;
    sequence.reserve(frequencies.size() * nSamples);
    for (const double frequency : frequencies) {
        for (int k = 0; k < nSamples; ++k) {
            const double tone = std::sin(2.0 * M_PI * frequency * k / rate);
            sequence.append(
                static_cast<float>(measuringAmplitude * ramp(k, nSamples, rate) * tone));
        }
    }
    // The end, which a server may not play, is none of the tones'.
    return sequence + QVector<float>(qRound(silentSeconds * rate), 0.0F);
}

QVector<float> steppedSound(int nSamples)
{
    const int half = (nSamples + 1) / 2;
    return QVector<float>(half, measuringAmplitude) + QVector<float>(half, -measuringAmplitude);
}
