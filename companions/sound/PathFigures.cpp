// SPDX-License-Identifier: GPL-3.0-or-later
// Levels, images and losses in recordings of the measuring sounds.
#include "sound/PathFigures.h"

#include "session/Counts.h"
#include "signal/Spectrum.h"
#include "sound/MeasuringSounds.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <complex>

using namespace quorin;

namespace {

constexpr double halfMagnitude = measuringAmplitude / 2.0;

double decibels(double amplitude)
{
    return 20.0 * std::log10(amplitude / measuringAmplitude);
}

// The minimum 4-term Blackman-Harris window: side lobes are 92 dB down (Harris, 1978, Proc. IEEE
// 66, 51-83, p. 65).
QVector<double> window(int nSamples)
{
    QVector<double> weights(nSamples);
    for (int k = 0; k < nSamples; ++k) {
        const double x = 2.0 * M_PI * k / nSamples;
        weights[k] = 0.35875 - 0.48829 * std::cos(x) + 0.14128 * std::cos(2.0 * x)
            - 0.01168 * std::cos(3.0 * x);
    }
    return weights;
}

double sumOf(const QVector<double>& values)
{
    double sum = 0.0;
    for (const double value : values) {
        sum += value;
    }
    return sum;
}

int firstBeyond(const QVector<float>& samples, double magnitude)
{
    const auto found = std::find_if(samples.cbegin(), samples.cend(),
        [magnitude](double sample) { return std::abs(sample) > magnitude; });
    return static_cast<int>(found - samples.cbegin());
}

// By the first sample of a tenth of the magnitude: the ramp of the first tone is long, and a tone
// of 100 Hz passes every path.
double beginSeconds(const QVector<float>& recording, int playedRate, int recordedRate)
{
    constexpr double audible = measuringAmplitude / 10.0;
    return firstBeyond(recording, audible) / double(recordedRate)
        - firstBeyond(toneSequence(playedRate), audible) / double(playedRate);
}

// The component of a frequency: 2 sum of w[k] x[k] exp(-i 2pi f k / rate) / sum of w[k]; its
// magnitude is the amplitude of a tone.
std::complex<double> componentAt(
    double frequency, const QVector<double>& samples, const QVector<double>& weights, double rate)
{
    std::complex<double> sum;
    for (int k = 0; k < samples.size(); ++k) {
        sum += weights[k] * samples[k] * std::polar(1.0, -2.0 * M_PI * frequency * k / rate);
    }
    return 2.0 * sum / sumOf(weights);
}

void takeAway(
    std::complex<double> component, double frequency, QVector<double>& samples, double rate)
{
    for (int k = 0; k < samples.size(); ++k) {
        samples[k] -= (component * std::polar(1.0, 2.0 * M_PI * frequency * k / rate)).real();
    }
}

void findImage(const QVector<double>& windowed, double weight, double rate, ToneFigures& figures)
{
    constexpr double besideHz = 45.0; // the window's main lobe ends 40 Hz beside the tone
    // Padded with silence, so that a component between two bins loses less than 0.06 dB.
    const qint64 length = 4 * spectrumLength(windowed.size());
    const QVector<double> amplitude = spectrumOf(windowed, length, windowed.size()).amplitude;
    const double perBin = rate / static_cast<double>(length);
    int strongest = 1;
    for (int bin = 1; bin < amplitude.size(); ++bin) { // bin 0 holds that of half the rate too
        if (std::abs(bin * perBin - figures.frequency) >= besideHz
            && amplitude[bin] > amplitude[strongest]) {
            strongest = bin;
        }
    }
    figures.imageHz = strongest * perBin;
    const int half = windowed.size() / 2; // which amplitudes were divided by
    figures.imageDb = decibels(amplitude[strongest] * half * 2.0 / weight);
}

// Without the tone itself, whose side lobes would hide what is weaker than they are.
ToneFigures figuresOf(double frequency, QVector<double> part, double rate)
{
    const QVector<double> weights = window(part.size());
    ToneFigures figures {frequency, decibels(0.0), 0.0, 0.0};
    if (frequency < rate / 2.0) {
        const std::complex<double> tone = componentAt(frequency, part, weights, rate);
        figures.levelDb = decibels(std::abs(tone));
        takeAway(tone, frequency, part, rate);
    }
    for (int k = 0; k < part.size(); ++k) {
        part[k] *= weights[k];
    }
    findImage(part, sumOf(weights), rate, figures);
    return figures;
}

// Where samples k and k + 1 lie on both sides of a value.
double crossing(const QVector<float>& samples, int k, double value)
{
    const double from = k < 0 ? 0.0F : samples[k];
    const double to = k + 1 < samples.size() ? samples[k + 1] : 0.0F;
    return k + (value - from) / (to - from);
}

int lastOf(const QVector<float>& samples, int from, bool (*isMeant)(double))
{
    int k = from;
    while (k >= 0 && !isMeant(samples[k])) {
        --k;
    }
    return k;
}

} // namespace

QVector<ToneFigures> toneFigures(const QVector<float>& recording, int playedRate, int recordedRate)
{
    constexpr double marginSeconds = 0.025; // the ramps, and what a path may shift
    const double begin = beginSeconds(recording, playedRate, recordedRate);
    const int nSamples = qRound((secondsPerTone - 2.0 * marginSeconds) * recordedRate);
    const QVector<double> frequencies = measuredFrequencies(playedRate);
    QVector<ToneFigures> figures;
    for (int i = 0; i < frequencies.size(); ++i) {
        const int from = qRound((begin + i * secondsPerTone + marginSeconds) * recordedRate);
        const QVector<float> found = recording.mid(from, nSamples);
        if (from < 0 || found.size() < nSamples) {
            return {};
        }
        figures.append(
            figuresOf(frequencies[i], QVector<double>(found.cbegin(), found.cend()), recordedRate));
    }
    return figures;
}

LostSamples lostSamples(
    const QVector<float>& recording, int nPlayed, int playedRate, int recordedRate)
{
    const auto isHigh = [](double sample) { return sample > halfMagnitude; };
    const auto isLow = [](double sample) { return sample < -halfMagnitude; };
    const auto begin = std::find_if(recording.cbegin(), recording.cend(), isHigh);
    const int end = lastOf(recording, recording.size() - 1, isLow);
    int middle = lastOf(recording, end, isHigh);
    if (begin == recording.cend() || middle < 0) {
        return {true, 0.0, 0.0};
    }
    while (recording[middle + 1] > 0.0F) {
        ++middle;
    }
    const double beginAt
        = crossing(recording, static_cast<int>(begin - recording.cbegin()) - 1, halfMagnitude);
    const double middleAt = crossing(recording, middle, 0.0);
    const double endAt = crossing(recording, end, -halfMagnitude);
    const double half = nPlayed / 2.0 * recordedRate / playedRate;
    return {false, half - (middleAt - beginAt), half - (endAt - middleAt)};
}

bool holdsExactly(const QVector<float>& recording, const QVector<float>& sound)
{
    return std::search(recording.cbegin(), recording.cend(), sound.cbegin(), sound.cend())
        != recording.cend();
}

double largestLossDb(const QVector<ToneFigures>& tones, double upToHz)
{
    double loss = 0.0;
    for (const ToneFigures& tone : tones) {
        if (tone.frequency <= upToHz) {
            loss = std::max(loss, -tone.levelDb);
        }
    }
    return loss;
}
