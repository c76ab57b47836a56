// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Stimulus.h"

#include "signal/SignalConstants.h"

#include <algorithm>
#include <cmath>

namespace {

// Sounds are made block by block: around the library calls, the arithmetic of a block goes through
// the vector unit, with the same results as one sample at a time.
constexpr int blockLength = 256;

// The angles of samples start to start + n - 1, grouped as k * (f * 2pi) / fs: other groupings
// differ in the last bits.
void fillAngles(double* angles, int start, int n, double frequency, double fs, double phase)
{
    const double circular = frequency * twoPi;
    for (int i = 0; i < n; ++i) {
        angles[i] = (start + i) * circular / fs + phase;
    }
}

// The carrier's call and the modulator's stand side by side, so that one works while the other
// waits.
template <typename Call> void callEach(double* carrier, double* modulator, int n, Call call)
{
    for (int i = 0; i < n; ++i) {
        carrier[i] = call(carrier[i]);
        modulator[i] = std::cos(modulator[i]);
    }
}

// Carriers of samples start to start + n - 1; the modulators' angles become the modulators.
void oscillate(double* carrier, double* modulator, int start, int n, const Data& data, int stimulus)
{
    switch (data.soundType) {
    case sinusoidCarrier:
        fillAngles(carrier, start, n, data.cf[stimulus], data.fs, data.cfPhase[stimulus]);
        callEach(carrier, modulator, n, [](double angle) { return std::sin(angle); });
        break;
    case noiseCarrier:
        callEach(carrier, modulator, n, [](double /*angle*/) {
            const double u = qrand() / largestDraw;
            return u + u - 1;
        });
        break;
    default:
        callEach(carrier, modulator, n, [](double /*angle*/) { return 0.0; });
    }
}

// The product is (envelope * amplitude) * carrier, then the normalisation.
void fillBlock(double* samples, int start, int n, const Data& data, int stimulus)
{
    double modulator[blockLength];
    fillAngles(modulator, start, n, data.mf[stimulus], data.fs, data.mfPhase[stimulus]);
    oscillate(samples, modulator, start, n, data, stimulus);
    const double depth = data.md[stimulus];
    const double amplitude = data.amp[stimulus];
    const double normalisation = data.normalizeMd ? 1 / (depth + 1) : 1.0;
    for (int i = 0; i < n; ++i) {
        samples[i] = (modulator[i] * depth + 1) * amplitude * samples[i] * normalisation;
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

QVector<double> synthesised(const Data& data, int stimulus)
{
    QVector<double> sound(std::max(data.nSamples[stimulus], 0));
    double* const samples = sound.data();
    for (int start = 0; start < sound.size(); start += blockLength) {
        const int n = std::min(blockLength, sound.size() - start);
        fillBlock(samples + start, start, n, data, stimulus);
    }
    return sound;
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
