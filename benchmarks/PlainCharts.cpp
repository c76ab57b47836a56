// SPDX-License-Identifier: GPL-3.0-or-later
// Charts of the same series as the application's, by plain calls of Qt Charts.
#include "PlainCharts.h"

#include <QtCharts/QLegend>

QT_CHARTS_USE_NAMESPACE

namespace {

QValueAxis* likeAxis(const QValueAxis& original)
{
    auto* const axis = new QValueAxis;
    axis->setLabelsFont(original.labelsFont());
    axis->setTitleFont(original.titleFont());
    axis->setTitleText(original.titleText());
    axis->setLabelFormat(original.labelFormat());
    axis->setLabelsVisible(original.labelsVisible());
    return axis;
}

} // namespace

PlainCharts::PlainCharts(const QWidget& original)
{
    m_window.setGeometry(original.geometry());
    const QList<QChartView*> views = original.findChildren<QChartView*>();
    for (const QChartView* view : views) {
        add(view);
    }
    refresh();
    m_window.show();
}

PlainCharts::Line PlainCharts::lineOf(const QChart* chart)
{
    return {qobject_cast<QLineSeries*>(chart->series().first()),
        qobject_cast<QValueAxis*>(chart->axes(Qt::Horizontal).first()),
        qobject_cast<QValueAxis*>(chart->axes(Qt::Vertical).first())};
}

void PlainCharts::add(const QChartView* original)
{
    const Line from = lineOf(original->chart());
    const Line to = {new QLineSeries, likeAxis(*from.axisX), likeAxis(*from.axisY)};
    to.series->setPointsVisible(from.series->pointsVisible());
    auto* const chart = new QChart;
    chart->setTitle(original->chart()->title());
    chart->setTitleFont(original->chart()->titleFont());
    chart->legend()->hide();
    chart->setMargins(QMargins(0, 0, 0, 0));
    chart->addSeries(to.series);
    chart->addAxis(to.axisX, Qt::AlignBottom);
    chart->addAxis(to.axisY, Qt::AlignLeft);
    to.series->attachAxis(to.axisX);
    to.series->attachAxis(to.axisY);
    auto* const view = new QChartView(chart, &m_window);
    view->setRenderHint(QPainter::Antialiasing);
    view->setGeometry(original->geometry());
    m_originals.append(from);
    m_lines.append(to);
}

void PlainCharts::refresh()
{
    for (int i = 0; i < m_lines.size(); ++i) {
        const Line& from = m_originals[i];
        const Line& to = m_lines[i];
        if (from.series->count() == to.series->count() + 1) {
            to.series->append(from.series->at(to.series->count()));
        } else {
            to.series->replace(from.series->pointsVector());
        }
        to.axisX->setRange(from.axisX->min(), from.axisX->max());
        to.axisX->setTickCount(from.axisX->tickCount());
        to.axisY->setRange(from.axisY->min(), from.axisY->max());
    }
}
