// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plots/Axis.h"

#include <QPointF>
#include <QRectF>
#include <QVector>

class QColor;
class QPainter;
class QPen;

/// A rectangle with two axes, and what is drawn into it by the axes' values. All but the frame is
/// clipped to the inside of the axes; a point that an axis cannot show is left out.
class PlotArea {
public:
    enum class Mark {
        dot,
        cross,
        ring,
        square,
        box, ///< an open square as large as a ring
    };

    /// Font sizes of every text in a picture, pixels.
    static constexpr int titlePixels = 15;
    static constexpr int textPixels = 12;

    /// @param outer what the plot takes up with its title, its axes' titles and labels, pixels
    PlotArea(QPainter& painter, const QRectF& outer, Axis x, Axis y);

    /// The title, both axes with ticks and labels, and a light grid. To be drawn first.
    void drawFrame(const QString& title);
    /// A line through the points, broken where one of them cannot be shown.
    void drawLine(const QVector<QPointF>& points, const QPen& pen);
    /// A mark of 7 pixels at each point; a ring and a box have 13.
    void drawMarks(const QVector<QPointF>& points, Mark mark, const QColor& color);
    /// A bar from the lower limit of the vertical axis up to a height.
    void drawBar(double left, double right, double height, const QColor& color);
    /// A line across the whole plot at one value of the horizontal or the vertical axis.
    void drawLineAtX(double x, const QPen& pen);
    void drawLineAtY(double y, const QPen& pen);
    /// Lines of text in the top right corner, each in its colour.
    void drawLegend(const QVector<QPair<QString, QColor>>& lines);

    /// Where a pair of values is drawn, pixels.
    QPointF at(const QPointF& values) const;
    /// The rectangle between the axes, pixels.
    QRectF inside() const { return m_inside; }

private:
    void drawHorizontalLabels();
    void drawVerticalLabels();
    void drawMark(const QPointF& point, Mark mark);

    QPainter& m_painter;
    QRectF m_outer;
    QRectF m_inside;
    Axis m_x;
    Axis m_y;
};
