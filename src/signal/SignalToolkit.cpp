// SPDX-License-Identifier: GPL-3.0-or-later
// Noise, tones, ramps, random integers and levels.
#include "signal/SignalToolkit.h"

#include "session/Counts.h"
#include "signal/SampleArithmetic.h"

#include <QMessageBox>

#include <algorithm>
#include <cmath>
#include <ctime>

using namespace quorin;

namespace {

void warn(const QString& text)
{
    QMessageBox::warning(nullptr, "Warning", text, QMessageBox::Ok);
}

void seedWithTheTime()
{
    qsrand(static_cast<uint>(std::time(nullptr)));
}

// min + draw % (max - min + 1), always with one draw. In 64 bits nothing overflows; the range is
// cut back to 32 bits, and where that leaves 0 the answer is min.
int drawFrom(qint64 min, qint64 max)
{
    const int range = static_cast<int>(max - min + 1);
    const qint64 draw = qrand();
    return static_cast<int>(min + (range == 0 ? 0 : draw % range));
}

double cosGain(int i, int nPoints)
{
    return (1 - std::cos(static_cast<double>(i) / nPoints * pi)) * 0.5;
}

double cos2Gain(int i, int nPoints)
{
    const double gain = cosGain(i, nPoints);
    return gain * gain;
}

double linearGain(int i, int nPoints)
{
    return static_cast<double>(i) / nPoints;
}

void applyRamps(QVector<double>& samples, int nPoints, double (*gainAt)(int, int))
{
    const int size = samples.size();
    if (size < 2 * static_cast<qint64>(nPoints)) {
        warn("Vector size must be at least twice of nPoints");
    }
    for (int i = 0; i < nPoints && i < size; ++i) {
        const double gain = gainAt(i, nPoints);
        samples[i] *= gain;
        samples[size - 1 - i] *= gain;
    }
}

} // namespace

QVector<double> whiteNoise(int nSamples)
{
    seedWithTheTime();
    if (nSamples < 1) {
        return {};
    }
    QVector<double> noise(nSamples);
    for (double& sample : noise) {
        sample = qrand() / largestDraw;
    }
    return noise;
}

QVector<double> sine(double fs, double duration, double frequency, double amplitude, double phase)
{
    const int nSamples = flooredCount(duration * fs);
    if (nSamples < 1) {
        return {};
    }
    const Oscillation oscillation = {frequency, fs, phase * radiansPerDegree};
    QVector<double> tone(nSamples);
    double* samples = tone.data();
    for (int k = 0; k < nSamples; ++k) {
        samples[k] = std::sin(oscillation.angle(k)) * amplitude;
    }
    return tone;
}

QVector<double> sam(double fs, double duration, double fc, double fm, double m, double amplitude,
    double carrierPhase, double modulatorPhase, bool normalise)
{
    const int nSamples = flooredCount(duration * fs);
    if (nSamples < 1) {
        return {};
    }
    const Oscillation modulation = {fm, fs, modulatorPhase * radiansPerDegree};
    const double normalisation = 1 / (m + 1);
    QVector<double> tone(nSamples);
    double* samples = tone.data();
    for (int k = 0; k < nSamples; ++k) {
        const double carrier = std::sin(fc * twoPi * k / fs + carrierPhase * radiansPerDegree);
        const double modulator = std::cos(modulation.angle(k));
        samples[k] = carrier * ((modulator * m + 1) * amplitude);
        if (normalise) {
            samples[k] = samples[k] * normalisation;
        }
    }
    return tone;
}

QVector<double> cosRamp(QVector<double> samples, int nPoints)
{
    applyRamps(samples, nPoints, cosGain);
    return samples;
}

void cosRamp(QVector<double>* samples, int nPoints)
{
    applyRamps(*samples, nPoints, cosGain);
}

QVector<double> cos2Ramp(QVector<double> samples, int nPoints)
{
    applyRamps(samples, nPoints, cos2Gain);
    return samples;
}

void cos2Ramp(QVector<double>* samples, int nPoints)
{
    applyRamps(*samples, nPoints, cos2Gain);
}

QVector<double> linearRamp(QVector<double> samples, int nPoints)
{
    applyRamps(samples, nPoints, linearGain);
    return samples;
}

void linearRamp(QVector<double>* samples, int nPoints)
{
    applyRamps(*samples, nPoints, linearGain);
}

int randomInteger(int min, int max)
{
    if (max < min) {
        warn("min cannot be larger than max");
    }
    return drawFrom(min, max);
}

QVector<int> randomIntegers(int count, int min, int max)
{
    if (min > max) {
        warn("min cannot be larger than max; force min = max");
        min = max;
    }
    seedWithTheTime();
    if (count < 1) {
        return {};
    }
    QVector<int> integers(count);
    std::generate(integers.begin(), integers.end(), [=] { return drawFrom(min, max); });
    return integers;
}

double rms(QVector<int> values)
{
    quint64 sum = 0; // wraps where a signed sum would be undefined
    for (const int value : qAsConst(values)) {
        sum += static_cast<quint64>(static_cast<qint64>(value) * value);
    }
    return std::sqrt(static_cast<double>(static_cast<qint64>(sum)) / values.size());
}

double rms(QVector<double> samples)
{
    return rms(qAsConst(samples), {}).first;
}

QPair<double, double> rms(const QVector<double>& first, const QVector<double>& second)
{
    double firstSum = 0.0;
    double secondSum = 0.0;
    for (int k = 0; k < std::max(first.size(), second.size()); ++k) {
        firstSum += k < first.size() ? first[k] * first[k] : 0.0;
        secondSum += k < second.size() ? second[k] * second[k] : 0.0;
    }
    return {std::sqrt(firstSum / first.size()), std::sqrt(secondSum / second.size())};
}
