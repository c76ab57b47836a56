// SPDX-License-Identifier: GPL-3.0-or-later
// A refreshed chart looks like one whose points were set before its ranges.
#include "charts/ChartParts.h"
#include "support/WindowTest.h"

#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

QT_CHARTS_USE_NAMESPACE

namespace {

struct State {
    double lastX;
    QVector<double> rangeX;
    QVector<double> rangeY;
};

struct LineChart {
    QLineSeries* const series = new QLineSeries;
    QValueAxis* const axisX = new QValueAxis;
    QValueAxis* const axisY = new QValueAxis;
    QChartView view {new QChart};

    LineChart()
    {
        view.chart()->addSeries(series);
        view.chart()->addAxis(axisX, Qt::AlignBottom);
        view.chart()->addAxis(axisY, Qt::AlignLeft);
        series->attachAxis(axisX);
        series->attachAxis(axisY);
        view.resize(400, 200);
        view.show();
    }

    // Points, then ranges.
    void setInOrder(const QVector<QPointF>& points, const State& state) const
    {
        series->replace(points);
        axisX->setRange(state.rangeX[0], state.rangeX[1]);
        axisY->setRange(state.rangeY[0], state.rangeY[1]);
    }

    ChartLine line() const { return {series, axisX, axisY}; }
    QImage picture()
    {
        QCoreApplication::processEvents();
        return view.grab().toImage();
    }
};

QVector<QPointF> zigzag(double lastX, const QVector<double>& rangeY)
{
    QVector<QPointF> points;
    for (int i = 0; i <= 10; ++i) {
        points.append({lastX * i / 10, rangeY[i % 2]});
    }
    return points;
}

const State usual = {50, {0, 50}, {-1, 1}};
const State another = {20, {0, 20}, {-0.5, 2}};
const State level = {50, {0, 50}, {0.25, 0.25}};
const State silent = {50, {0, 50}, {0, 0}};
const State noTime = {50, {0, 0}, {-1, 1}};
const State undefined = {50, {0, 50}, {qQNaN(), qQNaN()}};
const State backwards = {50, {0, -3}, {-1, 1}};

} // namespace

Q_DECLARE_METATYPE(State)
Q_DECLARE_TYPEINFO(State, Q_MOVABLE_TYPE);

class TestChartRefresh : public WindowTest {
    Q_OBJECT

private slots:
    void picture_isThatOfPointsBeforeRanges_data()
    {
        addColumns<QVector<State>, bool>("states", "isPaintedBetween");
        const auto row = [](const char* name, const QVector<State>& states) {
            QTest::newRow(name) << states << true;
            QTest::addRow("%s, painted once", name) << states << false;
        };
        row("usual", {usual, another, usual, usual});
        row("constant sound", {usual, level, level, usual, another});
        row("silent sound", {usual, silent, silent, another});
        row("no time to show", {usual, noTime, level, noTime, usual});
        row("undefined sound", {usual, undefined, another, undefined});
        row("undefined after silent", {usual, silent, undefined, undefined, usual});
        row("negative time", {usual, backwards, another});
    }

    void picture_isThatOfPointsBeforeRanges()
    {
        QFETCH(QVector<State>, states);
        QFETCH(bool, isPaintedBetween);
        tolerateUndefinedChartValues();
        LineChart refreshed;
        LineChart plain;
        for (int i = 0; i < states.size(); ++i) {
            const State& state = states[i];
            const QVector<QPointF> points = zigzag(state.lastX, state.rangeY);
            refreshChart(refreshed.line(), points, state.rangeX, state.rangeY);
            plain.setInOrder(points, state);
            if (isPaintedBetween || i == states.size() - 1)
                QVERIFY2(refreshed.picture() == plain.picture(), qPrintable(QString::number(i)));
            QCOMPARE(axisRange(refreshed.axisX), axisRange(plain.axisX));
            QCOMPARE(axisRange(refreshed.axisY), axisRange(plain.axisY));
        }
    }

    void points_areShown_whateverTheRanges_data()
    {
        QTest::addColumn<State>("state");
        QTest::newRow("usual") << usual;
        QTest::newRow("constant") << level;
        QTest::newRow("no time") << noTime;
    }

    void points_areShown_whateverTheRanges()
    {
        QFETCH(State, state);
        LineChart chart;
        const QVector<QPointF> points = zigzag(state.lastX, state.rangeY);
        refreshChart(chart.line(), points, state.rangeX, state.rangeY);
        QCOMPARE(chart.series->pointsVector(), points);
    }
};

QUORIN_TEST(TestChartRefresh);
#include "tst_chart_refresh.moc"
