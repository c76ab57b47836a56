// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>
#include <QWidget>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

/// Charts like those of another window, in a window of their own as large, that show the same
/// series by plain calls of Qt Charts: what there is to compare the other window's repainting with.
class PlainCharts {
public:
    /// @param original a window that is shown and has its charts
    explicit PlainCharts(const QWidget& original);

    /// Gives every chart the points and the ranges that the original's has now: the whole line at
    /// once, or only its last point where the line has grown by that; then the axes.
    void refresh();

private:
    struct Line {
        QtCharts::QLineSeries* series;
        QtCharts::QValueAxis* axisX;
        QtCharts::QValueAxis* axisY;
    };
    static Line lineOf(const QtCharts::QChart* chart);
    void add(const QtCharts::QChartView* original);

    QWidget m_window;
    QVector<Line> m_originals;
    QVector<Line> m_lines;
};
