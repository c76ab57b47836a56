// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/ChartParts.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QTest>
#include <QtCharts/QValueAxis>

#include <limits>

using Points = QVector<QPointF>;

class TestChartParts : public WindowTest {
    Q_OBJECT

private slots:
    void points_areAsManyAsAskedFor_withinBothVectors_data()
    {
        QTest::addColumn<QVector<double>>("x");
        QTest::addColumn<QVector<double>>("y");
        QTest::addColumn<int>("n");
        QTest::addColumn<Points>("points");
        const QVector<double> x({1, 2, 3});
        const QVector<double> y({10, 20, 30});
        QTest::newRow("fewer") << x << y << 2 << Points({{1, 10}, {2, 20}});
        QTest::newRow("all") << x << y << 3 << Points({{1, 10}, {2, 20}, {3, 30}});
        QTest::newRow("more than there are") << x << y << 4 << Points({{1, 10}, {2, 20}, {3, 30}});
        QTest::newRow("fewer times") << x.mid(0, 1) << y << 3 << Points({{1, 10}});
        QTest::newRow("fewer samples") << x << y.mid(0, 2) << 3 << Points({{1, 10}, {2, 20}});
        QTest::newRow("none") << x << y << 0 << Points();
        QTest::newRow("negative") << x << y << std::numeric_limits<int>::min() << Points();
        QTest::newRow("empty vectors") << QVector<double>() << QVector<double>() << 3 << Points();
    }

    void points_areAsManyAsAskedFor_withinBothVectors()
    {
        QFETCH(QVector<double>, x);
        QFETCH(QVector<double>, y);
        QFETCH(int, n);
        QFETCH(Points, points);
        QCOMPARE(chartPoints(x, y, n), points);
    }

    void overwriting_keepsTheTail_whenTheListIsLonger()
    {
        Points points({{-1, -1}, {-2, -2}, {-3, -3}});
        overwritePoints(points, {1, 2, 3}, {10, 20, 30}, 2);
        QCOMPARE(points, Points({{1, 10}, {2, 20}, {-3, -3}}));
    }

    void overwriting_lengthensTheList_whenItIsTooShort()
    {
        Points points({{-1, -1}});
        overwritePoints(points, {1, 2, 3}, {10, 20, 30}, 3);
        QCOMPARE(points, Points({{1, 10}, {2, 20}, {3, 30}}));
    }

    void overwriting_changesNothing_whenThereAreNoPoints()
    {
        Points points({{-1, -1}});
        overwritePoints(points, {1, 2}, {10, 20}, -1);
        overwritePoints(points, {}, {10, 20}, 2);
        overwritePoints(points, {1, 2}, {}, 2);
        QCOMPARE(points, Points({{-1, -1}}));
    }

    void axis_takesTheRange_whenItsLimitsAreEqualToo()
    {
        QtCharts::QValueAxis axis;
        setAxisRange(&axis, {-2.0, 3.0});
        QCOMPARE(axis.min(), -2.0);
        QCOMPARE(axis.max(), 3.0);
        setAxisRange(&axis, {0.25, 0.25});
        QCOMPARE(axis.min(), 0.25);
        QCOMPARE(axis.max(), 0.25);
    }

    void axis_keepsItsRange_whenALimitIsNotFinite_data()
    {
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("upper");
        QTest::newRow("both NaN") << qQNaN() << qQNaN();
        QTest::newRow("lower NaN") << qQNaN() << 5.0;
        QTest::newRow("upper NaN") << 1.0 << qQNaN();
        QTest::newRow("upper infinite") << 1.0 << qInf();
    }

    void axis_keepsItsRange_whenALimitIsNotFinite()
    {
        QFETCH(double, lower);
        QFETCH(double, upper);
        tolerateUndefinedChartValues();
        QtCharts::QValueAxis axis;
        axis.setRange(-2.0, 3.0);
        setAxisRange(&axis, {lower, upper});
        QCOMPARE(axis.min(), -2.0);
        QCOMPARE(axis.max(), 3.0);
    }

    void missingObject_isMadeOnce()
    {
        QtCharts::QValueAxis* axis = nullptr;
        makeIfMissing(axis);
        QVERIFY(axis != nullptr);
        const QtCharts::QValueAxis* const first = axis;
        makeIfMissing(axis);
        QCOMPARE(axis, first);
        delete axis;
    }
};

QUORIN_TEST(TestChartParts);
#include "tst_chart_parts.moc"
