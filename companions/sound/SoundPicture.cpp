// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of two sounds: waveforms above, spectra below.
#include "sound/SoundPicture.h"

#include "plots/PictureFile.h"
#include "plots/PlotArea.h"
#include "session/Counts.h"
#include "session/Units.h"
#include "signal/Spectrum.h"
#include "sound/ShownFigures.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

constexpr int mostPoints = 1000; // of a spectrum: more are not seen, and a vector file grows
constexpr double lowestDb = -120.0;
const QColor lineColor(0, 114, 178);

QString nameOf(int index)
{
    return index == standard ? "Standard" : "Deviant";
}

double largestMagnitude(const TrialSounds& sounds)
{
    double largest = 0.0;
    for (const QVector<float>& samples : sounds.samples) {
        for (const float sample : samples) {
            largest = std::max<double>(largest, std::abs(sample));
        }
    }
    return std::isfinite(largest) && largest > 0.0 ? largest : 1.0;
}

void drawWaveform(
    QPainter& painter, const QRectF& outer, const TrialSounds& sounds, int index, double rate)
{
    constexpr double shownMs = 50.0;
    const QVector<float>& samples = sounds.samples[index];
    const double limit = largestMagnitude(sounds) * 1.05;
    QVector<QPointF> points;
    for (int k = 0; k < samples.size() && inMs(k / rate) <= shownMs; ++k) {
        points.append({inMs(k / rate), samples[k]});
    }
    PlotArea plot(painter, outer, Axis("time (ms)", Axis::Scale::linear, 0, shownMs),
        Axis("amplitude", Axis::Scale::linear, -limit, limit));
    plot.drawFrame(nameOf(index) + ", as it begins");
    plot.drawLine(points, QPen(lineColor, 1.0));
}

/// Of neighbouring bins, which share a point, the strongest is drawn.
QVector<QPointF> spectrumPoints(const QVector<float>& samples, double rate)
{
    const qint64 length = spectrumLength(samples.size());
    const QVector<double> sound(samples.cbegin(), samples.cend());
    const QVector<double> amplitude = spectrumOf(sound, length, samples.size()).amplitude;
    const int stride = std::max(amplitude.size() / mostPoints, 1);
    QVector<QPointF> points;
    for (int k = 1; k < amplitude.size(); k += stride) { // bin 0 holds that of half the rate too
        const int end = std::min(k + stride, amplitude.size());
        const double strongest
            = *std::max_element(amplitude.cbegin() + k, amplitude.cbegin() + end);
        const double hertz = k * rate / static_cast<double>(length);
        points.append({hertz, std::max(20.0 * std::log10(strongest), lowestDb)});
    }
    return points;
}

void drawSpectrum(
    QPainter& painter, const QRectF& outer, const TrialSounds& sounds, int index, double rate)
{
    QVector<QPointF> points = spectrumPoints(sounds.samples[index], rate);
    for (QPointF& point : points) {
        point.rx() /= hertzPerKilohertz;
    }
    PlotArea plot(painter, outer,
        Axis("frequency (kHz)", Axis::Scale::linear, 0, rate / 2 / hertzPerKilohertz),
        Axis("amplitude (dB re full scale)", Axis::Scale::linear, lowestDb, 6.0));
    plot.drawFrame(nameOf(index) + ", spectrum of the whole sound");
    plot.drawLine(points, QPen(lineColor, 1.0));
}

} // namespace

QString writeSoundPicture(
    const QString& path, const TrialSounds& sounds, double rate, bool isForced)
{
    constexpr QSize pictureSize(1000, 720);
    const auto draw = [&sounds, rate](QPainter& painter, const QSize& size) {
        const QSizeF quarter(size.width() / 2.0, size.height() / 2.0);
        for (const int i : {standard, deviant}) {
            const double left = i * quarter.width();
            drawWaveform(painter, QRectF(QPointF(left, 0), quarter), sounds, i, rate);
            drawSpectrum(
                painter, QRectF(QPointF(left, quarter.height()), quarter), sounds, i, rate);
        }
    };
    return writePicture(path, pictureSize, draw, isForced);
}
