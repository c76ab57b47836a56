// SPDX-License-Identifier: GPL-3.0-or-later
// Charts that show what those of another window do, by plain calls of Qt Charts.
#include "PlainCharts.h"

#include <QDataStream>
#include <QtCharts/QLegend>

QT_CHARTS_USE_NAMESPACE

namespace {

AxisContents axisOf(const QChart& chart, Qt::Orientation orientation)
{
    const auto& axis = *qobject_cast<QValueAxis*>(chart.axes(orientation).first());
    return {axis.titleText(), axis.titleFont(), axis.labelFormat(), axis.labelsFont(),
        axis.labelsVisible(), axis.tickCount(), axis.min(), axis.max()};
}

QValueAxis* makeAxis(const AxisContents& contents)
{
    auto* const axis = new QValueAxis;
    axis->setLabelsFont(contents.labelsFont);
    axis->setTitleFont(contents.titleFont);
    axis->setTitleText(contents.title);
    axis->setLabelFormat(contents.labelFormat);
    axis->setLabelsVisible(contents.hasLabels);
    return axis;
}

QDataStream& operator<<(QDataStream& stream, const AxisContents& axis)
{
    return stream << axis.title << axis.titleFont << axis.labelFormat << axis.labelsFont
                  << axis.hasLabels << axis.nTicks << axis.min << axis.max;
}

QDataStream& operator>>(QDataStream& stream, AxisContents& axis)
{
    return stream >> axis.title >> axis.titleFont >> axis.labelFormat >> axis.labelsFont
        >> axis.hasLabels >> axis.nTicks >> axis.min >> axis.max;
}

} // namespace

QDataStream& operator<<(QDataStream& stream, const ChartContents& chart)
{
    return stream << chart.place << chart.title << chart.titleFont << chart.x << chart.y
                  << chart.hasPoints << chart.points;
}

QDataStream& operator>>(QDataStream& stream, ChartContents& chart)
{
    return stream >> chart.place >> chart.title >> chart.titleFont >> chart.x >> chart.y
        >> chart.hasPoints >> chart.points;
}

QVector<ChartContents> chartsOf(const QWidget& window)
{
    QVector<ChartContents> charts;
    const QList<QChartView*> views = window.findChildren<QChartView*>();
    for (const QChartView* view : views) {
        const QChart& chart = *view->chart();
        const auto& series = *qobject_cast<QLineSeries*>(chart.series().first());
        charts.append({QRect(view->mapTo(&window, QPoint()), view->size()), chart.title(),
            chart.titleFont(), axisOf(chart, Qt::Horizontal), axisOf(chart, Qt::Vertical),
            series.pointsVisible(), series.pointsVector()});
    }
    return charts;
}

PlainCharts::PlainCharts(const QRect& geometry, const QVector<ChartContents>& charts)
{
    m_window.setGeometry(geometry);
    for (const ChartContents& chart : charts) {
        add(chart);
    }
    refresh(charts);
}

void PlainCharts::add(const ChartContents& contents)
{
    const Line line = {new QLineSeries, makeAxis(contents.x), makeAxis(contents.y)};
    line.series->setPointsVisible(contents.hasPoints);
    auto* const chart = new QChart;
    chart->setTitle(contents.title);
    chart->setTitleFont(contents.titleFont);
    chart->legend()->hide();
    chart->setMargins(QMargins(0, 0, 0, 0));
    chart->addSeries(line.series);
    chart->addAxis(line.axisX, Qt::AlignBottom);
    chart->addAxis(line.axisY, Qt::AlignLeft);
    line.series->attachAxis(line.axisX);
    line.series->attachAxis(line.axisY);
    auto* const view = new QChartView(chart, &m_window);
    view->setRenderHint(QPainter::Antialiasing);
    view->setGeometry(contents.place);
    m_lines.append(line);
}

void PlainCharts::refresh(const QVector<ChartContents>& charts)
{
    for (int i = 0; i < m_lines.size(); ++i) {
        const ChartContents& chart = charts[i];
        const Line& line = m_lines[i];
        if (chart.points.size() == line.series->count() + 1) {
            line.series->append(chart.points.last());
        } else {
            line.series->replace(chart.points);
        }
        line.axisX->setRange(chart.x.min, chart.x.max);
        line.axisX->setTickCount(chart.x.nTicks);
        line.axisY->setRange(chart.y.min, chart.y.max);
    }
}
