// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointF>
#include <QVector>
#include <QtCharts/QChartGlobal>

QT_CHARTS_BEGIN_NAMESPACE
class QLineSeries;
QT_CHARTS_END_NAMESPACE

/// Decides when a line is laid out along its axes. Qt Charts builds the outline of a line as soon
/// as it hears of new points, which for the four lines of a trial takes longer than computing them:
/// it can wait until the next trial's timer has been started.
class LineLayout : public QObject {
    Q_OBJECT

public:
    /// The layout of a line, which owns it; made on the first call.
    static LineLayout& of(QtCharts::QLineSeries* series);

    /// Replaces the points and lays the line out at once.
    void replaceNow(const QVector<QPointF>& points);
    /// Replaces the points; the line is laid out, once, when the event loop runs, before it paints.
    /// Only then is pointsReplaced emitted, and only then does a picture taken of the chart show
    /// it.
    void replaceLater(const QVector<QPointF>& points);

protected:
    void customEvent(QEvent* event) override;

private:
    explicit LineLayout(QtCharts::QLineSeries* series);

    QtCharts::QLineSeries* m_series;
};
