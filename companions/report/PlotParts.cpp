// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/PlotParts.h"

#include "plots/PlotArea.h"
#include "session/AdaptedParameter.h"
#include "session/Data.h"

#include <QPainter>
#include <QSize>

#include <algorithm>

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
    const QVector<QPointF>& correct, const QVector<QPointF>& wrong)
{
    const QVector<double> shown = valuesOf({correct, wrong, {QPointF(0, 0)}});
    PlotArea area(
        painter, outer, x, Axis::covering("reaction time (ms)", Axis::Scale::linear, shown));
    area.drawFrame("");
    area.drawMarks(correct, PlotArea::Mark::dot, correctColor);
    area.drawMarks(wrong, PlotArea::Mark::cross, wrongColor);
    drawKey(
        painter, area.inside(), {{"\u2022 correct", correctColor}, {"\u00d7 wrong", wrongColor}});
}
