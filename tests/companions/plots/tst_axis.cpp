// SPDX-License-Identifier: GPL-3.0-or-later
// Ticks, positions and ranges of axes.
#include "plots/Axis.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

using Scale = Axis::Scale;
using Values = QVector<double>;

namespace {

} // namespace

Q_DECLARE_METATYPE(Axis::Scale)

class TestAxis : public QuietTest {
    Q_OBJECT

private slots:
    void ticks_areRoundNumbers_data()
    {
        addColumns<Scale, double, double, int, Values>("scale", "min", "max", "most", "expected");
        addRow("steps of 1", Scale::linear, 0.0, 4.0, 5, Values {0, 1, 2, 3, 4});
        addRow("steps of 2", Scale::linear, 1.0, 9.5, 5, Values {2, 4, 6, 8});
        addRow("steps of 5", Scale::linear, -5.0, 10.0, 4, Values {-5, 0, 5, 10});
        addRow("steps of 10", Scale::linear, 3.0, 31.0, 4, Values {10, 20, 30});
        addRow("decades", Scale::logarithmic, 0.5, 2e3, 5, Values {1, 10, 100, 1000});
        addRow("every other decade", Scale::logarithmic, 1.0, 1e6, 4, Values {1, 100, 1e4, 1e6});
        addRow("within decades", Scale::logarithmic, 4.0, 30.0, 5, Values {5, 10, 20});
        addRow("narrow", Scale::logarithmic, 11.0, 14.0, 4, Values {11, 12, 13, 14});
    }

    void ticks_areRoundNumbers()
    {
        QFETCH(Scale, scale);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(int, most);
        QTEST(Axis("", scale, min, max).ticks(most), "expected");
    }

    void position_isTheShareOfTheRange()
    {
        const Axis linear("", Scale::linear, 10, 20);
        QCOMPARE(linear.position(10), 0.0);
        QCOMPARE(linear.position(12.5), 0.25);
        QCOMPARE(linear.position(30), 2.0);
        const Axis logarithmic("", Scale::logarithmic, 1, 100);
        QCOMPARE(logarithmic.position(10), 0.5);
        QVERIFY(!std::isfinite(logarithmic.position(0)));
        QVERIFY(!std::isfinite(logarithmic.position(-1)));
    }

    void covering_leavesRoomAtBothEnds()
    {
        const Axis linear = Axis::covering("", Scale::linear, {7, 2, std::nan(""), qInf(), 3});
        QCOMPARE(linear.min(), 1.8);
        QCOMPARE(linear.max(), 7.2);
        const Axis logarithmic = Axis::covering("", Scale::logarithmic, {100, 0, -3, 1});
        QCOMPARE(logarithmic.min(), std::pow(10.0, -0.08));
        QCOMPARE(logarithmic.max(), std::pow(10.0, 2.08));
    }

    void covering_hasARange_whenTheValuesHaveNone()
    {
        QCOMPARE(Axis::covering("", Scale::linear, {}).max(), 1.0);
        QCOMPARE(Axis::covering("", Scale::logarithmic, {0}).min(), 1.0);
        QCOMPARE(Axis::covering("", Scale::logarithmic, {0}).max(), 10.0);
        const Axis one = Axis::covering("", Scale::linear, {50, 50});
        QCOMPARE(one.min(), 48.0);
        QCOMPARE(one.max(), 52.0);
        const Axis zero = Axis::covering("", Scale::linear, {0, 5e-324});
        QCOMPARE(zero.min(), -0.04);
        QCOMPARE(zero.ticks(2), Values({0.0}));
    }

    void covering_leavesOutWhatNoAxisCanShow()
    {
        const Axis linear = Axis::covering("", Scale::linear, {-1e300, 2, 7, 1e300});
        QCOMPARE(linear.max(), 7.2);
        const Axis logarithmic = Axis::covering("", Scale::logarithmic, {1e-300, 1, 100});
        QCOMPARE(logarithmic.max(), std::pow(10.0, 2.08));
    }

    void counts_haveNoTicksBetweenWholeNumbers()
    {
        QCOMPARE(Axis("", Axis::Scale::counts, 0, 2).ticks(10), QVector<double>({0, 1, 2}));
        QCOMPARE(
            Axis("", Axis::Scale::counts, 0, 40).ticks(5), QVector<double>({0, 10, 20, 30, 40}));
    }
};

QUORIN_GUILESS_TEST(TestAxis);
#include "tst_axis.moc"
