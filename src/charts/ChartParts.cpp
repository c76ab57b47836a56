// SPDX-License-Identifier: GPL-3.0-or-later
// Charts, axes and views of Qt Charts: how they are made, refreshed and deleted.
#include "charts/ChartParts.h"

#include "app/WindowParts.h"

#include <QGridLayout>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <cmath>

QT_CHARTS_USE_NAMESPACE

namespace {

QChart* makeChart(const ChartLine& line, const ChartSettings& settings)
{
    auto* const chart = new QChart;
    // Set while the chart is empty: each of the two lays out all that is in it.
    chart->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    chart->setMinimumWidth(settings.leastWidth);
    chart->addSeries(line.series);
    chart->addAxis(line.axisX, Qt::AlignBottom);
    chart->addAxis(line.axisY, Qt::AlignLeft);
    line.series->attachAxis(line.axisX);
    line.series->attachAxis(line.axisY);
    chart->setTitleFont(settings.titleFont);
    chart->setTitle(settings.title);
    chart->legend()->hide();
    chart->setMargins(QMargins(0, 0, 0, 0));
    return chart;
}

bool hasLength(const QVector<double>& range)
{
    return range[0] < range[1] && std::isfinite(range[0]) && std::isfinite(range[1]);
}

} // namespace

QValueAxis* makeAxis(const QString& title, const QFont& labelsFont, const QFont& titleFont)
{
    auto* const axis = new QValueAxis;
    axis->setLabelsFont(labelsFont);
    axis->setTitleFont(titleFont);
    axis->setTitleText(title);
    return axis;
}

void makeSeriesIfMissing(ChartLine& line)
{
    if (line.series == nullptr) {
        line.series = new QLineSeries;
    }
}

void setAxisRange(QValueAxis* axis, const QVector<double>& range)
{
    axis->setRange(range[0], range[1]);
}

QVector<double> axisRange(const QValueAxis* axis)
{
    return {axis->min(), axis->max()};
}

// Qt Charts builds a line anew for every new range: ranges are set while the series is empty. For a
// range without length it builds no line: then the points are set first, under the old ranges.
void refreshChart(const ChartLine& line, const QVector<QPointF>& points,
    const QVector<double>& rangeX, const QVector<double>& rangeY)
{
    const bool pointsLast = hasLength(rangeX) && hasLength(rangeY);
    if (pointsLast) {
        line.series->clear();
    } else {
        line.series->replace(points);
    }
    setAxisRange(line.axisX, rangeX);
    setAxisRange(line.axisY, rangeY);
    if (pointsLast) {
        line.series->replace(points);
    }
}

void completeChart(const ChartLine& line, QChart*& chart, QChartView*& view,
    const ChartSettings& settings, QGridLayout* grid)
{
    if (chart == nullptr) {
        chart = makeChart(line, settings);
    }
    if (view == nullptr) {
        view = named(new QChartView(chart), settings.viewName);
        view->setRenderHint(QPainter::Antialiasing);
        view->setAccessibleName(settings.title);
        view->setFocusPolicy(Qt::NoFocus); // no key does anything here
        // A refresh changes nearly every item: repainting only what has changed takes longer and
        // leaves out the rim of a point that stands alone.
        view->setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
        grid->addWidget(view, settings.row, settings.column, 1, settings.columnSpan);
    }
}

void deleteChart(Chart& chart)
{
    deleteAndNull(chart.line.series);
    deleteAndNull(chart.line.axisX);
    deleteAndNull(chart.line.axisY);
    deleteAndNull(chart.chart);
    deleteAndNull(chart.view);
}
