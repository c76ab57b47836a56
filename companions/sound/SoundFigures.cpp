// SPDX-License-Identifier: GPL-3.0-or-later
// Levels of a sound, and the energy that it begins and ends with.
#include "sound/SoundFigures.h"

#include "session/Units.h"

#include <algorithm>
#include <cmath>

namespace {

double amplitudeDb(double ratio)
{
    return 20.0 * std::log10(ratio);
}

double powerDb(double ratio)
{
    return 10.0 * std::log10(ratio);
}

double meanSquare(const QVector<float>& samples, int begin, int count)
{
    double sum = 0.0;
    for (int i = begin; i < begin + count; ++i) {
        const double sample = samples[i];
        sum += sample * sample;
    }
    return sum / count;
}

} // namespace

double SoundFigures::rmsDb() const
{
    return amplitudeDb(rms);
}

double SoundFigures::peakDb() const
{
    return amplitudeDb(peak);
}

double SoundFigures::crestDb() const
{
    return amplitudeDb(peak / rms);
}

double SoundFigures::beginDb() const
{
    return powerDb(beginShare);
}

double SoundFigures::endDb() const
{
    return powerDb(endShare);
}

SoundFigures soundFigures(const QVector<float>& samples, double rate)
{
    const int n = samples.size();
    const int edge = std::min(static_cast<int>(std::ceil(fromMs(rate))), n);
    const double power = meanSquare(samples, 0, n);
    SoundFigures figures {};
    figures.rms = std::sqrt(power);
    for (const float sample : samples) {
        figures.peak = std::max<double>(figures.peak, std::abs(sample));
    }
    if (n > 0) {
        figures.firstSample = std::abs(samples.first());
        figures.lastSample = std::abs(samples.last());
    }
    figures.beginShare = meanSquare(samples, 0, edge) / power;
    figures.endShare = meanSquare(samples, n - edge, edge) / power;
    return figures;
}
