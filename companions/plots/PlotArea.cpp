// SPDX-License-Identifier: GPL-3.0-or-later
// A rectangle with two axes, and the drawing of points, lines and bars in it.
#include "plots/PlotArea.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <cmath>

namespace {

constexpr qreal roomLeft = 72;
constexpr qreal roomRight = 18;
constexpr qreal roomTop = 34;
constexpr qreal roomBottom = 48;
constexpr qreal tickLength = 4;
constexpr qreal pixelsPerTickX = 70;
constexpr qreal pixelsPerTickY = 36;
constexpr qreal labelWidth = 80;
constexpr qreal lineHeight = 18;

const QColor& gridColor()
{
    static const QColor color(226, 226, 226);
    return color;
}

QString labelOf(double value)
{
    return QString::number(value, 'g', 6);
}

void setPixels(QPainter& painter, int pixels, bool isBold)
{
    QFont font = painter.font();
    font.setPixelSize(pixels);
    font.setBold(isBold);
    painter.setFont(font);
}

bool isDrawable(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

QRectF squareAround(const QPointF& point, qreal half)
{
    return {point.x() - half, point.y() - half, 2 * half, 2 * half};
}

// Saves the painter's state and draws inside a rectangle only, until its end.
class Clipped {
public:
    Clipped(QPainter& painter, const QRectF& rectangle)
        : m_painter(painter)
    {
        m_painter.save();
        m_painter.setClipRect(rectangle);
    }
    ~Clipped() { m_painter.restore(); }
    Q_DISABLE_COPY(Clipped)

private:
    QPainter& m_painter;
};

} // namespace

PlotArea::PlotArea(QPainter& painter, const QRectF& outer, Axis x, Axis y)
    : m_painter(painter)
    , m_outer(outer)
    , m_inside(outer.adjusted(roomLeft, roomTop, -roomRight, -roomBottom))
    , m_x(std::move(x))
    , m_y(std::move(y))
{
}

QPointF PlotArea::at(const QPointF& values) const
{
    return {m_inside.left() + m_x.position(values.x()) * m_inside.width(),
        m_inside.bottom() - m_y.position(values.y()) * m_inside.height()};
}

void PlotArea::drawFrame(const QString& title)
{
    m_painter.save();
    m_painter.setPen(Qt::black);
    setPixels(m_painter, titlePixels, true);
    m_painter.drawText(QRectF(m_inside.left(), m_outer.top(), m_inside.width(), roomTop),
        Qt::AlignLeft | Qt::AlignVCenter, title);
    setPixels(m_painter, textPixels, false);
    drawHorizontalLabels();
    drawVerticalLabels();
    m_painter.setPen(Qt::black);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(m_inside);
    m_painter.restore();
}

void PlotArea::drawHorizontalLabels()
{
    const QVector<double> ticks = m_x.ticks(qMax(2, int(m_inside.width() / pixelsPerTickX)));
    const qreal bottom = m_inside.bottom();
    for (const double tick : ticks) {
        const qreal x = at({tick, m_y.min()}).x();
        m_painter.setPen(gridColor());
        m_painter.drawLine(QPointF(x, m_inside.top()), QPointF(x, bottom));
        m_painter.setPen(Qt::black);
        m_painter.drawLine(QPointF(x, bottom), QPointF(x, bottom + tickLength));
        m_painter.drawText(QRectF(x - labelWidth / 2, bottom + tickLength, labelWidth, lineHeight),
            Qt::AlignCenter, labelOf(tick));
    }
    m_painter.drawText(QRectF(m_inside.left(), bottom + tickLength + lineHeight, m_inside.width(),
                           lineHeight + tickLength),
        Qt::AlignCenter, m_x.title());
}

void PlotArea::drawVerticalLabels()
{
    const QVector<double> ticks = m_y.ticks(qMax(2, int(m_inside.height() / pixelsPerTickY)));
    const qreal left = m_inside.left();
    for (const double tick : ticks) {
        const qreal y = at({m_x.min(), tick}).y();
        m_painter.setPen(gridColor());
        m_painter.drawLine(QPointF(left, y), QPointF(m_inside.right(), y));
        m_painter.setPen(Qt::black);
        m_painter.drawLine(QPointF(left - tickLength, y), QPointF(left, y));
        m_painter.drawText(
            QRectF(left - labelWidth - 2 * tickLength, y - lineHeight / 2, labelWidth, lineHeight),
            Qt::AlignRight | Qt::AlignVCenter, labelOf(tick));
    }
    m_painter.save();
    m_painter.translate(m_outer.left() + lineHeight / 2 + 2, m_inside.center().y());
    m_painter.rotate(-90);
    m_painter.drawText(
        QRectF(-m_inside.height() / 2, -lineHeight / 2, m_inside.height(), lineHeight),
        Qt::AlignCenter, m_y.title());
    m_painter.restore();
}

void PlotArea::drawLine(const QVector<QPointF>& points, const QPen& pen)
{
    const Clipped clipped(m_painter, m_inside);
    QPainterPath path;
    bool isBroken = true;
    for (const QPointF& values : points) {
        const QPointF point = at(values);
        if (!isDrawable(point)) {
            isBroken = true;
        } else if (isBroken) {
            path.moveTo(point);
            isBroken = false;
        } else {
            path.lineTo(point);
        }
    }
    m_painter.strokePath(path, pen);
}

void PlotArea::drawMarks(const QVector<QPointF>& points, Mark mark, const QColor& color)
{
    constexpr qreal penWidth = 1.5;
    const Clipped clipped(m_painter, m_inside);
    m_painter.setPen(QPen(color, penWidth));
    m_painter.setBrush(
        mark == Mark::dot || mark == Mark::square ? QBrush(color) : QBrush(Qt::NoBrush));
    for (const QPointF& values : points) {
        const QPointF point = at(values);
        if (isDrawable(point)) {
            drawMark(point, mark);
        }
    }
}

void PlotArea::drawMark(const QPointF& point, Mark mark)
{
    constexpr qreal dotRadius = 2.75;
    constexpr qreal crossArm = 3.5;
    constexpr qreal ringRadius = 6;
    switch (mark) {
    case Mark::dot:
        m_painter.drawEllipse(point, dotRadius, dotRadius);
        break;
    case Mark::cross:
        m_painter.drawLine(
            point - QPointF(crossArm, crossArm), point + QPointF(crossArm, crossArm));
        m_painter.drawLine(
            point - QPointF(crossArm, -crossArm), point + QPointF(crossArm, -crossArm));
        break;
    case Mark::ring:
        m_painter.drawEllipse(point, ringRadius, ringRadius);
        break;
    case Mark::square:
        m_painter.drawRect(squareAround(point, dotRadius));
        break;
    case Mark::box:
        m_painter.drawRect(squareAround(point, ringRadius));
        break;
    }
}

void PlotArea::drawBar(double left, double right, double height, const QColor& color)
{
    const QPointF topLeft = at({left, height});
    const QPointF bottomRight = at({right, m_y.min()});
    if (!isDrawable(topLeft) || !isDrawable(bottomRight)) {
        return;
    }
    const Clipped clipped(m_painter, m_inside);
    m_painter.setPen(QPen(Qt::white, 1));
    m_painter.setBrush(color);
    m_painter.drawRect(QRectF(topLeft, bottomRight));
}

void PlotArea::drawLineAtX(double x, const QPen& pen)
{
    drawLine({{x, m_y.min()}, {x, m_y.max()}}, pen);
}

void PlotArea::drawLineAtY(double y, const QPen& pen)
{
    drawLine({{m_x.min(), y}, {m_x.max(), y}}, pen);
}

void PlotArea::drawLegend(const QVector<QPair<QString, QColor>>& lines)
{
    const qreal margin = lineHeight / 2;
    m_painter.save();
    setPixels(m_painter, textPixels, false);
    qreal top = m_inside.top() + margin / 2;
    for (const auto& [text, color] : lines) {
        m_painter.setPen(color);
        m_painter.drawText(QRectF(m_inside.left(), top, m_inside.width() - margin, lineHeight),
            Qt::AlignRight | Qt::AlignVCenter, text);
        top += lineHeight;
    }
    m_painter.restore();
}
