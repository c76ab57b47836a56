// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Stimulus.h"

#include "signal/SignalConstants.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Oscillation {
    double circularFrequency;
    double fs;
    double phase;

    // Grouped as k * (f * 2pi) / fs: other groupings differ in the last bits.
    double angle(int k) const { return k * circularFrequency / fs + phase; }
};

// Carrier and modulator of samples start to start + n - 1.
template <typename Carrier>
void oscillate(double* carriers, double* modulators, int start, int n,
    const Oscillation& modulation, const Carrier& carrier)
{
    for (int i = 0; i < n; ++i) {
        carriers[i] = carrier(start + i);
        modulators[i] = std::cos(modulation.angle(start + i));
    }
}

void oscillate(
    double* carriers, double* modulators, int start, int n, const Data& data, int stimulus)
{
    const Oscillation modulation = {data.mf[stimulus] * twoPi, data.fs, data.mfPhase[stimulus]};
    const Oscillation tone = {data.cf[stimulus] * twoPi, data.fs, data.cfPhase[stimulus]};
    switch (data.soundType) {
    case sinusoidCarrier:
        oscillate(carriers, modulators, start, n, modulation,
            [tone](int k) { return std::sin(tone.angle(k)); });
        break;
    case noiseCarrier:
        oscillate(carriers, modulators, start, n, modulation, [](int /*k*/) {
            const double u = qrand() / largestDraw;
            return u + u - 1;
        });
        break;
    default:
        oscillate(carriers, modulators, start, n, modulation, [](int /*k*/) { return 0.0; });
    }
}

constexpr int blockLength = 256;

// The library calls of a block come first, so that its products go through the vector unit: the
// envelope times the amplitude, times the carrier, times the normalisation.
void fillBlock(double* samples, int start, int n, const Data& data, int stimulus)
{
    std::array<double, blockLength> block;
    double* const modulators = block.data();
    oscillate(samples, modulators, start, n, data, stimulus);
    const double depth = data.md[stimulus];
    const double amplitude = data.amp[stimulus];
    const double normalisation = data.normalizeMd ? 1 / (depth + 1) : 1.0;
    for (int i = 0; i < n; ++i) {
        samples[i] = (modulators[i] * depth + 1) * amplitude * samples[i] * normalisation;
    }
}

// rms(a) / rms(b). The sums run side by side: alone, each waits for its own last addition.
double levelRatio(const QVector<double>& a, const QVector<double>& b)
{
    double sumA = 0.0;
    double sumB = 0.0;
    const int n = std::min(a.size(), b.size());
    for (int i = 0; i < n; ++i) {
        sumA += a[i] * a[i];
        sumB += b[i] * b[i];
    }
    for (int i = n; i < a.size(); ++i) {
        sumA += a[i] * a[i];
    }
    for (int i = n; i < b.size(); ++i) {
        sumB += b[i] * b[i];
    }
    return std::sqrt(sumA / a.size()) / std::sqrt(sumB / b.size());
}

} // namespace

void synthesise(QVector<double>& sound, const Data& data, int stimulus)
{
    sound.resize(std::max(data.nSamples[stimulus], 0));
    for (int start = 0; start < sound.size(); start += blockLength) {
        const int n = std::min(blockLength, sound.size() - start);
        fillBlock(sound.data() + start, start, n, data, stimulus);
    }
}

void equaliseLevels(QVector<double>& standardSound, const QVector<double>& deviantSound)
{
    if (standardSound.isEmpty()) {
        return;
    }
    const double factor = levelRatio(deviantSound, standardSound);
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
