// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of what resampling does: levels near 0 dB above, all down to the images below.
#include "sound/MeasurePicture.h"

#include "plots/PictureFile.h"
#include "plots/PlotArea.h"
#include "sound/ShownFigures.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

using namespace quorin;

namespace {

constexpr double highestKilohertz = 20.0;
const QColor levelColor(0, 114, 178);
const QColor imageColor(213, 94, 0);

QVector<QPointF> points(
    const QVector<ToneFigures>& tones, double ToneFigures::*figure, double lowestDb)
{
    QVector<QPointF> found;
    for (const ToneFigures& tone : tones) {
        found.append({tone.frequency / hertzPerKilohertz, std::max(tone.*figure, lowestDb)});
    }
    return found;
}

void drawLevels(QPainter& painter, const QRectF& outer, const MeasuredPath& measured,
    const QVector<ToneFigures>& tones)
{
    constexpr double lowestDb = -15.0;
    PlotArea plot(painter, outer,
        Axis("frequency (kHz)", Axis::Scale::linear, 0.0, highestKilohertz),
        Axis("level (dB re the tone as played)", Axis::Scale::linear, lowestDb, 1.0));
    plot.drawFrame(QString("Tones at %1 Hz, as they arrive at an output of %2 Hz")
                       .arg(measured.playedRate)
                       .arg(measured.outputRate));
    const QVector<QPointF> levels = points(tones, &ToneFigures::levelDb, lowestDb);
    plot.drawLine(levels, QPen(levelColor, 1.0));
    plot.drawMarks(levels, PlotArea::Mark::dot, levelColor);
}

void drawImages(QPainter& painter, const QRectF& outer, const QVector<ToneFigures>& tones)
{
    constexpr double lowestDb = -140.0;
    PlotArea plot(painter, outer,
        Axis("frequency of the tone (kHz)", Axis::Scale::linear, 0.0, highestKilohertz),
        Axis("level (dB re the tone as played)", Axis::Scale::linear, lowestDb, 40.0));
    plot.drawFrame("The tone, and the strongest of what was not played");
    const QVector<QPointF> levels = points(tones, &ToneFigures::levelDb, lowestDb);
    const QVector<QPointF> images = points(tones, &ToneFigures::imageDb, lowestDb);
    plot.drawLine(levels, QPen(levelColor, 1.0));
    plot.drawMarks(levels, PlotArea::Mark::dot, levelColor);
    plot.drawLine(images, QPen(imageColor, 1.0));
    plot.drawMarks(images, PlotArea::Mark::cross, imageColor);
    plot.drawLegend({{"tone", levelColor}, {"strongest image", imageColor}});
}

} // namespace

QString writeMeasurePicture(const QString& path, const MeasuredPath& measured,
    const QVector<ToneFigures>& tones, bool isForced)
{
    constexpr QSize pictureSize(800, 720);
    const auto draw = [&measured, &tones](QPainter& painter, const QSize& size) {
        const QSizeF half(size.width(), size.height() / 2.0);
        drawLevels(painter, QRectF(QPointF(0.0, 0.0), half), measured, tones);
        drawImages(painter, QRectF(QPointF(0.0, half.height()), half), tones);
    };
    return writePicture(path, pictureSize, draw, isForced);
}
