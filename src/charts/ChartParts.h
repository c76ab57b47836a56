// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPointF>
#include <QString>
#include <QVector>
#include <QtCharts/QChartGlobal>

class QGridLayout;

QT_CHARTS_BEGIN_NAMESPACE
class QChart;
class QChartView;
class QLineSeries;
class QValueAxis;
QT_CHARTS_END_NAMESPACE

namespace quorin {

/// Rows of the chart grid; the stimulus charts' columns are the indices of standard and deviant.
constexpr int waveformRow = 0;
constexpr int spectrumRow = 1;
constexpr int trendRow = 2;

constexpr int stimulusChartWidth = 200; ///< least width, pixels

} // namespace quorin

/// A value axis with its title and the two axis fonts.
QtCharts::QValueAxis* makeAxis(
    const QString& title, const QFont& labelsFont, const QFont& titleFont);

/// Sets an axis to a two-element range. Limits that are not finite leave it as it was.
void setAxisRange(QtCharts::QValueAxis* axis, const QVector<double>& range);

/// The two limits of an axis.
QVector<double> axisRange(const QtCharts::QValueAxis* axis);

/// A line and the axes that it is drawn along.
struct ChartLine {
    QtCharts::QLineSeries* series = nullptr;
    QtCharts::QValueAxis* axisX = nullptr;
    QtCharts::QValueAxis* axisY = nullptr;
};

/// Gives a line its series where that is still null.
void makeSeriesIfMissing(ChartLine& line);

/// What one chart is made of. The view owns the chart, and the chart what its line is made of.
struct Chart {
    ChartLine line;
    QtCharts::QChart* chart = nullptr;
    QtCharts::QChartView* view = nullptr;
};

/// Gives a line its points and its axes their two-element ranges; limits that are not finite leave
/// an axis as it was.
void refreshChart(const ChartLine& line, const QVector<QPointF>& points,
    const QVector<double>& rangeX, const QVector<double>& rangeY);

/// How a chart looks and its cell in the chart grid.
struct ChartSettings {
    const char* viewName; ///< the view's object name
    QString title;
    QFont titleFont;
    int leastWidth; ///< pixels
    int row;
    int column;
    int columnSpan;
};

/// Makes the chart of a line over a bottom and a left axis, without legend and margins, and its
/// antialiased view in the grid; each only where it is still null. Series and axes must be there
/// and belong to the chart from then on, the chart to the view.
void completeChart(const ChartLine& line, QtCharts::QChart*& chart, QtCharts::QChartView*& view,
    const ChartSettings& settings, QGridLayout* grid);

/// Deletes series, axes, chart and view, in this order, and leaves them null; null is fine.
void deleteChart(Chart& chart);
