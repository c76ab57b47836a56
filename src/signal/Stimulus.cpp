// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Stimulus.h"

#include "signal/SignalConstants.h"
#include "signal/SignalToolkit.h"

#include <algorithm>
#include <cmath>

namespace {

struct Noise {
    double operator()(int /*k*/) const
    {
        const double u = qrand() / largestDraw;
        return u + u - 1;
    }
};

struct Sinusoid {
    double fs;
    double frequency; // times 2 pi
    double phase;
    double operator()(int k) const { return std::sin(k * frequency / fs + phase); }
};

struct Silence {
    double operator()(int /*k*/) const { return 0.0; }
};

// The grouping is k * (f * 2pi) / fs and (envelope * amplitude) * carrier: others differ in the
// last bits.
template <typename Carrier>
void fill(QVector<double>& sound, const Data& data, int stimulus, Carrier carrier)
{
    const double fs = data.fs;
    const double frequency = data.mf[stimulus] * twoPi;
    const double phase = data.mfPhase[stimulus];
    const double depth = data.md[stimulus];
    const double amplitude = data.amp[stimulus];
    const double normalisation = data.normalizeMd ? 1 / (depth + 1) : 1.0;
    int k = 0;
    for (double& sample : sound) {
        const double c = carrier(k);
        const double envelope = std::cos(k * frequency / fs + phase) * depth + 1;
        sample = envelope * amplitude * c * normalisation;
        ++k;
    }
}

} // namespace

QVector<double> synthesised(const Data& data, int stimulus)
{
    QVector<double> sound(std::max(data.nSamples[stimulus], 0));
    switch (data.soundType) {
    case sinusoidCarrier:
        fill(sound, data, stimulus,
            Sinusoid {data.fs, data.cf[stimulus] * twoPi, data.cfPhase[stimulus]});
        break;
    case noiseCarrier:
        fill(sound, data, stimulus, Noise());
        break;
    default:
        fill(sound, data, stimulus, Silence());
    }
    return sound;
}

void equaliseLevels(QVector<double>& standardSound, const QVector<double>& deviantSound)
{
    if (standardSound.isEmpty()) {
        return;
    }
    const double factor = rms(deviantSound) / rms(standardSound);
    for (double& sample : standardSound) {
        sample *= factor;
    }
}

double sampleTime(int k, double fs)
{
    return k / fs * 1000.0;
}

void extendTimeAxis(QVector<double>& timeAxis, int nPoints, double fs)
{
    timeAxis.reserve(nPoints);
    for (int k = timeAxis.size(); k < nPoints; ++k) {
        timeAxis.append(sampleTime(k, fs));
    }
}

QVector<double> plottedTimes(int nPoints, double fs)
{
    QVector<double> times;
    extendTimeAxis(times, nPoints, fs);
    return times;
}

QVector<double> amplitudeRange(const QVector<double>& samples)
{
    if (samples.isEmpty()) {
        return {-1.0, 1.0};
    }
    const double smallest = *std::min_element(samples.begin(), samples.end());
    const double largest = *std::max_element(samples.begin(), samples.end());
    return {smallest, largest};
}
