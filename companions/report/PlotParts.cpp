// SPDX-License-Identifier: GPL-3.0-or-later
// What the pictures of runs and of subjects share.
#include "report/PlotParts.h"

#include "session/AdaptedParameter.h"
#include "session/Data.h"

#include <QPainter>
#include <QSize>

#include <algorithm>
#include <iterator>

using namespace quorin;

namespace {

constexpr qreal margin = 18;
constexpr qreal lineHeight = 24;

void setFont(QPainter& painter, int pixels, bool isBold)
{
    QFont font = painter.font();
    font.setPixelSize(pixels);
    font.setBold(isBold);
    painter.setFont(font);
}

} // namespace

QRectF drawHeading(QPainter& painter, const QSize& size, const QString& title, const QString& text)
{
    const QRectF line(margin, margin / 2, size.width() - 2 * margin, lineHeight);
    painter.setPen(Qt::black);
    setFont(painter, PlotArea::titlePixels, true);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    setFont(painter, PlotArea::textPixels, false);
    painter.drawText(line.translated(0, lineHeight), Qt::AlignLeft | Qt::AlignVCenter, text);
    return QRectF(QPointF(), QSizeF(size)).adjusted(0, 2 * lineHeight + margin / 2, 0, 0);
}

void drawKey(
    QPainter& painter, const QRectF& inside, const QVector<QPair<QString, QColor>>& entries)
{
    setFont(painter, PlotArea::textPixels, false);
    QRectF box(inside.left(), inside.top() - lineHeight, inside.width(), lineHeight);
    for (const auto& [text, color] : entries) {
        painter.setPen(color);
        QRectF drawn;
        painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, text, &drawn);
        box.setLeft(drawn.right() + margin);
    }
}

Axis axisOfValues(const QString& title, const QVector<double>& values)
{
    const bool isPositive
        = std::all_of(values.cbegin(), values.cend(), [](double value) { return value > 0.0; });
    return Axis::covering(
        title, isPositive ? Axis::Scale::logarithmic : Axis::Scale::linear, values);
}

QString adaptedQuantity(const Data& data)
{
    return adaptedParameter(data.mainParameter)->columnHeading;
}

QVector<double> valuesOf(const QVector<QVector<QPointF>>& lines)
{
    QVector<double> values;
    for (const QVector<QPointF>& line : lines) {
        for (const QPointF& point : line) {
            values.append(point.y());
        }
    }
    return values;
}

void drawReactionTimes(QPainter& painter, const QRectF& outer, const Axis& x,
    const QVector<QPointF>& correct, const QVector<QPointF>& wrong, bool hasKey)
{
    const QVector<double> shown = valuesOf({correct, wrong, {QPointF(0, 0)}});
    PlotArea area(
        painter, outer, x, Axis::covering("reaction time (ms)", Axis::Scale::linear, shown));
    area.drawFrame("");
    area.drawMarks(correct, PlotArea::Mark::dot, correctColor);
    area.drawMarks(wrong, PlotArea::Mark::cross, wrongColor);
    if (hasKey) {
        drawKey(painter, area.inside(),
            {{"\u2022 correct", correctColor}, {"\u00d7 wrong", wrongColor}});
    }
}

PlotArea::Mark markOf(const Run& run)
{
    constexpr int test = 1;
    const bool isTest = run.isNamed && run.data.sesType == test;
    if (run.isNamed && run.data.soundType == sinusoidCarrier) {
        return isTest ? PlotArea::Mark::dot : PlotArea::Mark::ring;
    }
    return isTest ? PlotArea::Mark::square : PlotArea::Mark::box;
}

QPen penOf(const Run& run)
{
    constexpr qreal width = 1.5;
    const bool isNoise = run.isNamed && run.data.soundType == noiseCarrier;
    return isNoise ? QPen(thresholdColor, width, Qt::DashLine) : QPen(correctColor, width);
}

QVector<QPair<QString, QColor>> keyOfRuns()
{
    return {{"\u2022 \u2014 sinusoid", correctColor}, {"\u25aa - - noise", thresholdColor},
        {"\u25cb \u25a1 practice or unknown", reversalColor}};
}

QVector<QVector<Run>> byParameter(const QVector<Run>& runs)
{
    QVector<QVector<Run>> columns;
    for (const int parameter : {carrierFrequencyParameter, modulationDepthParameter}) {
        QVector<Run> column;
        std::copy_if(runs.cbegin(), runs.cend(), std::back_inserter(column),
            [parameter](const Run& run) { return run.data.mainParameter == parameter; });
        if (!column.isEmpty()) {
            columns.append(column);
        }
    }
    return columns;
}
