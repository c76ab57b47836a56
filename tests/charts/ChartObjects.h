// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/MainWindowProbe.h"

#include <QByteArray>
#include <QTest>
#include <QVector>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

/// References to the members of a window that one of its charts is made of.
struct ChartObjects {
    QtCharts::QLineSeries*& series;
    QtCharts::QValueAxis*& axisX;
    QtCharts::QValueAxis*& axisY;
    QtCharts::QChart*& chart;
    QtCharts::QChartView*& view;

    /// The objects themselves, in the order in which they are deleted.
    QVector<QObject*> objects() const { return {series, axisX, axisY, chart, view}; }

    /// Takes the chart out of the window: deletes its objects and leaves the members null.
    void remove() const
    {
        qDeleteAll(objects());
        series = nullptr;
        axisX = nullptr;
        axisY = nullptr;
        chart = nullptr;
        view = nullptr;
    }
};

inline ChartObjects chartObjects(Chart& chart)
{
    return {chart.line.series, chart.line.axisX, chart.line.axisY, chart.chart, chart.view};
}

inline ChartObjects waveChart(MainWindow& window, int stimulus)
{
    return chartObjects(MainWindowProbe::waveCharts(window)[stimulus]);
}

inline ChartObjects spectrumChart(MainWindow& window, int stimulus)
{
    return chartObjects(MainWindowProbe::spectrumCharts(window)[stimulus]);
}

inline ChartObjects trend(MainWindow& window)
{
    return {Probe::trendSeries(window), Probe::trendAxisX(window), Probe::trendAxisY(window),
        Probe::trendChart(window), Probe::trendView(window)};
}

/// The five charts in the order in which the window deletes them.
inline QVector<ChartObjects> allCharts(MainWindow& window)
{
    return {waveChart(window, quorin::standard), waveChart(window, quorin::deviant),
        spectrumChart(window, quorin::standard), spectrumChart(window, quorin::deviant),
        trend(window)};
}

/// Fails the test unless an axis runs from min to max.
inline void verifyRange(const QtCharts::QValueAxis* axis, double min, double max)
{
    QCOMPARE(axis->min(), min);
    QCOMPARE(axis->max(), max);
}
