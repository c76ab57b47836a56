// SPDX-License-Identifier: GPL-3.0-or-later
// Times, points and ranges of the charts.
#include "charts/ChartData.h"
#include "signal/StatedSound.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <cmath>
#include <limits>

using Points = QVector<QPointF>;

class TestChartData : public QObject {
    Q_OBJECT

private slots:
    void times_areInMilliseconds_bitForBit()
    {
        QCOMPARE(firstDifference(plottedTimes(300, 40000.0), statedTimes(300, 40000.0)), -1);
        QUORIN_COMPARE_EXACT(plottedTimes(300, 40000.0).last(), 7.475);
        QVERIFY(plottedTimes(0, 40000.0).isEmpty());
        QVERIFY(plottedTimes(-5, 40000.0).isEmpty());
    }

    void times_areLengthenedAndNeverShortened_whenExtended()
    {
        QVector<double> times({0.5, 1.5});
        extendTimeAxis(times, 1, 1000.0);
        QCOMPARE(times, QVector<double>({0.5, 1.5}));
        extendTimeAxis(times, 4, 1000.0);
        QCOMPARE(times, QVector<double>({0.5, 1.5, 2.0, 3.0}));
    }

    void range_isTheSmallestAndTheLargest()
    {
        QCOMPARE(amplitudeRange({0.5, -3.0, 2.0, 0.0}), QVector<double>({-3.0, 2.0}));
        QCOMPARE(amplitudeRange({7.0}), QVector<double>({7.0, 7.0}));
        QCOMPARE(amplitudeRange({}), QVector<double>({-1.0, 1.0}));
    }

    // 0 and -0 are equal, and only their signs show which of the two was taken.
    void range_takesTheFirst_onTies()
    {
        QVERIFY(!std::signbit(amplitudeRange({0.0, -0.0})[0]));
        QVERIFY(!std::signbit(amplitudeRange({0.0, -0.0})[1]));
        QVERIFY(std::signbit(amplitudeRange({-0.0, 0.0})[0]));
        QVERIFY(std::signbit(amplitudeRange({-0.0, 0.0})[1]));
    }

    void points_areAsManyAsAskedFor_withinBothVectors_data()
    {
        addColumns<QVector<double>, QVector<double>, int, Points>("x", "y", "n", "points");
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
        QTEST(chartPoints(x, y, n), "points");
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
};

QUORIN_APPLESS_TEST(TestChartData);
#include "tst_chart_data.moc"
