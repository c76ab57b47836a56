// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a sweep: bias and spread of the thresholds against trials and minutes.
#include "simulate/SweepPlot.h"

#include "plots/PictureFile.h"
#include "plots/PlotArea.h"
#include "session/Units.h"
#include "simulate/PlotHeading.h"
#include "simulate/SimulationReport.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostLabels = 40; // more would cover each other

struct Line {
    QString name; // empty if it is the only one
    QVector<SweepPoint> points;
    QStringList labels; // of each point
};

QString cutText(double shareCut)
{
    constexpr int digits = 3;
    return QString::number(inPercent(shareCut), 'g', digits) + " % cut";
}

// What stands beside a point.
QString labelOf(const QStringList& values, const SweepPoint& point)
{
    const QString label = values.join(", ");
    return point.shareCut > 0.0 ? label + " (" + cutText(point.shareCut) + ')' : label;
}

QVector<Line> linesOf(const Sweep& sweep, const QVector<SweepPoint>& points)
{
    const bool hasLines = sweep.options.size() > 1;
    QVector<Line> lines;
    for (int i = 0; i < points.size(); ++i) {
        const QStringList& values = sweep.simulations[i].values;
        const QString name = hasLines ? sweep.options[0] + ' ' + values[0] : QString();
        if (lines.isEmpty() || lines.constLast().name != name) {
            lines.append({name, {}, {}});
        }
        lines.last().points.append(points[i]);
        lines.last().labels.append(labelOf(values.mid(hasLines ? 1 : 0), points[i]));
    }
    return lines;
}

double mostCut(const QVector<Line>& lines)
{
    double most = 0.0;
    for (const Line& line : lines) {
        for (const SweepPoint& point : line.points) {
            most = std::max(most, point.shareCut);
        }
    }
    return most;
}

using Figure = double SweepPoint::*;

// An axis with room for the labels, which stand above and to the right of their points.
// room is a share of the range.
Axis axisOf(const QString& title, const QVector<Line>& lines, Figure figure, double room)
{
    QVector<double> values;
    for (const Line& line : lines) {
        for (const SweepPoint& point : line.points) {
            if (std::isfinite(point.*figure)) {
                values.append(point.*figure);
            }
        }
    }
    if (!values.isEmpty()) {
        const auto [least, most] = std::minmax_element(values.cbegin(), values.cend());
        values.append(*most + room * (*most - *least));
    }
    return Axis::covering(title, Axis::Scale::linear, values);
}

// Colours that the colour-blind can tell apart, and dashes for prints without colours.
QPen penOf(int line)
{
    constexpr qreal width = 1.5;
    static const QVector<QColor> colors {
        {0, 114, 178}, {213, 94, 0}, {0, 158, 115}, {204, 121, 167}, {120, 120, 120}};
    static const QVector<Qt::PenStyle> styles {
        Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
    return {colors[line % colors.size()], width, styles[line % styles.size()]};
}

void setTextFont(QPainter& painter)
{
    QFont font = painter.font();
    font.setPixelSize(PlotArea::textPixels);
    painter.setFont(font);
}

void drawLabels(QPainter& painter, const PlotArea& area, const Line& line, Figure x, Figure y)
{
    const QPointF offset(6, -5);
    painter.save();
    setTextFont(painter);
    for (int i = 0; i < line.points.size(); ++i) {
        const QPointF place = area.at({line.points[i].*x, line.points[i].*y});
        if (std::isfinite(place.x()) && std::isfinite(place.y())) {
            painter.drawText(place + offset, line.labels[i]);
        }
    }
    painter.restore();
}

struct Panel {
    QString title;
    Figure x;
    QString xTitle;
    Figure y;
    QString yTitle;
};

void drawPanel(
    QPainter& painter, const QRectF& outer, const QVector<Line>& lines, const Panel& panel)
{
    constexpr double room = 0.12;
    constexpr double roomForShares = 0.35; // beside the points
    PlotArea area(painter, outer,
        axisOf(panel.xTitle, lines, panel.x, mostCut(lines) > 0.0 ? roomForShares : room),
        axisOf(panel.yTitle, lines, panel.y, room));
    area.drawFrame(panel.title);
    int nPoints = 0;
    for (int i = 0; i < lines.size(); ++i) {
        QVector<QPointF> points;
        QVector<QPointF> biased;
        for (const SweepPoint& point : lines[i].points) {
            points.append({point.*panel.x, point.*panel.y});
            if (point.shareCut > 0.0) {
                biased.append(points.constLast());
            }
        }
        nPoints += lines[i].points.size();
        area.drawLine(points, penOf(i));
        area.drawMarks(points, PlotArea::Mark::dot, penOf(i).color());
        area.drawMarks(biased, PlotArea::Mark::ring, Qt::red);
    }
    for (const Line& line : lines) {
        if (nPoints <= mostLabels) {
            drawLabels(painter, area, line, panel.x, panel.y);
        }
    }
}

// The key in one row: the meaning of labels and rings, and the names of the lines.
void drawKey(QPainter& painter, const QRectF& row, const Sweep& sweep, const QVector<Line>& lines)
{
    constexpr qreal gap = 16;
    constexpr qreal sampleLength = 28;
    const bool hasLines = sweep.options.size() > 1;
    const double most = mostCut(lines);
    painter.save();
    setTextFont(painter);
    QRectF drawn;
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
        "Labels: " + sweep.options.mid(hasLines ? 1 : 0).join(", ")
            + (most > 0.0 ? "; rings: biased, up to " + cutText(most) : QString()),
        &drawn);
    for (int i = 0; i < lines.size() && hasLines; ++i) {
        const QPointF left(drawn.right() + gap, row.center().y());
        painter.setPen(penOf(i));
        painter.drawLine(left, left + QPointF(sampleLength, 0));
        const QRectF rest(QPointF(left.x() + sampleLength + gap / 2, row.top()), row.bottomRight());
        painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, lines[i].name, &drawn);
    }
    painter.restore();
}

void drawPanels(QPainter& painter, const QRectF& below, const QVector<Line>& lines)
{
    const QVector<Panel> panels {
        {"Bias against trials", &SweepPoint::trials, "trials", &SweepPoint::biasDb, "bias (dB)"},
        {"Bias against time", &SweepPoint::minutes, "minutes", &SweepPoint::biasDb, "bias (dB)"},
        {"Spread against trials", &SweepPoint::trials, "trials", &SweepPoint::sdDb, "SD (dB)"},
        {"Spread against time", &SweepPoint::minutes, "minutes", &SweepPoint::sdDb, "SD (dB)"}};
    const QSizeF quarter(below.width() / 2, below.height() / 2);
    for (int i = 0; i < panels.size(); ++i) {
        const int column = i % 2;
        const int row = i / 2;
        const QPointF corner(
            below.left() + column * quarter.width(), below.top() + row * quarter.height());
        drawPanel(painter, QRectF(corner, quarter), lines, panels[i]);
    }
}

} // namespace

SweepPoint sweepPoint(const Simulation& simulation, const RunStatistics& statistics)
{
    const double trials = statistics.trials.mean();
    return {trials, minutesOf(simulation, trials), biasDb(statistics, simulation.listener),
        statistics.decibels.standardDeviation(), statistics.shareCut()};
}

QString writeSweepPlot(
    const QString& path, const Sweep& sweep, const QVector<SweepPoint>& points, bool isForced)
{
    constexpr QSize pictureSize(1000, 800);
    const QVector<Line> lines = linesOf(sweep, points);
    return writePicture(
        path, pictureSize,
        [&](QPainter& painter, const QSize& size) {
            const Simulation& first = sweep.simulations.constFirst().simulation;
            constexpr qreal keyHeight = 24;
            constexpr qreal margin = 18;
            const QRectF below = drawPlotHeading(painter, size, first, sweep.options);
            drawKey(painter,
                QRectF(below.left() + margin, below.top(), below.width() - 2 * margin, keyHeight),
                sweep, lines);
            drawPanels(painter, below.adjusted(0, keyHeight, 0, 0), lines);
        },
        isForced);
}
