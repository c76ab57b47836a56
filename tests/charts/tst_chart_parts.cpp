// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges of axes.
#include "charts/ChartParts.h"
#include "support/WindowTest.h"

#include <QtCharts/QValueAxis>

class TestChartParts : public WindowTest {
    Q_OBJECT

private slots:
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
        addColumns<double, double>("lower", "upper");
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
};

QUORIN_TEST(TestChartParts);
#include "tst_chart_parts.moc"
