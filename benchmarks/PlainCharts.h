// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QVector>
#include <QWidget>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

/// An axis as it is shown.
struct AxisContents {
    QString title;
    QFont titleFont;
    QString labelFormat;
    QFont labelsFont;
    bool hasLabels = true;
    int nTicks = 0;
    double min = 0.0;
    double max = 0.0;
};

/// A chart as it is shown: its place in the window, its texts and its line.
struct ChartContents {
    QRect place;
    QString title;
    QFont titleFont;
    AxisContents x;
    AxisContents y;
    bool hasPoints = false; ///< whether the line's points are drawn as well
    QVector<QPointF> points;
};
Q_DECLARE_TYPEINFO(ChartContents, Q_MOVABLE_TYPE);

QDataStream& operator<<(QDataStream& stream, const ChartContents& chart);
QDataStream& operator>>(QDataStream& stream, ChartContents& chart);

/// What the charts of a window show; the window must be shown and each chart have one line.
QVector<ChartContents> chartsOf(const QWidget& window);

/// Charts of their own that show what others do, by plain calls of Qt Charts, in a window as large:
/// what there is to compare the other window with.
class PlainCharts {
public:
    /// The window is not shown yet.
    /// @param geometry the window's place on the screen
    PlainCharts(const QRect& geometry, const QVector<ChartContents>& charts);

    /// Gives every chart its points and ranges: the whole line at once, or only its last point
    /// where the line has grown by that; then the axes.
    /// @param charts as many as there were
    void refresh(const QVector<ChartContents>& charts);

    QWidget& window() { return m_window; }

private:
    struct Line {
        QtCharts::QLineSeries* series;
        QtCharts::QValueAxis* axisX;
        QtCharts::QValueAxis* axisY;
    };
    void add(const ChartContents& contents);

    QWidget m_window;
    QVector<Line> m_lines;
};
