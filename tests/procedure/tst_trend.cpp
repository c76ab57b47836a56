// SPDX-License-Identifier: GPL-3.0-or-later
// The points and the ranges of the trend.
#include "procedure/Records.h"
#include "procedure/SilentRun.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <cmath>

using namespace quorin;

using Values = QVector<double>;

namespace {

/// Adds an answered trial whose depth is shown as this many percent.
void addDepth(SilentRun& run, double depthPercent)
{
    run.data.md[deviant] = depthPercent / 100;
    addAnswer(run.data, true);
    run.window.updateTrend();
}

Values rangeOf(const QtCharts::QValueAxis* axis)
{
    return {axis->min(), axis->max()};
}

} // namespace

class TestTrend : public WindowTest {
    Q_OBJECT

private slots:
    void point_isTheDepthInPercent()
    {
        SilentRun run(modulationDepthParameter);
        run.play("c");
        QCOMPARE(Probe::trendX(run.window), Values {0.0});
        QCOMPARE(Probe::trendY(run.window), Values {50.0});
        run.answer(false);
        QCOMPARE(Probe::trendX(run.window), (Values {0.0, 1.0}));
        QCOMPARE(Probe::trendY(run.window)[1], 50 * 0.79432823472428150207);
    }

    void point_isTheDifferenceInHertz()
    {
        SilentRun run(carrierFrequencyParameter);
        run.data.cf[standard] = 3000.0;
        run.play("ww");
        QCOMPARE(Probe::trendX(run.window), (Values {0.0, 1.0}));
        QCOMPARE(Probe::trendY(run.window)[0], 150.0);
        QCOMPARE(Probe::trendY(run.window)[1], 150 * 1.5848931924611134852);
    }

    void series_holdsEveryPoint()
    {
        SilentRun run(modulationDepthParameter);
        for (const double depth : {50.0, 25.0, 75.0}) {
            addDepth(run, depth);
        }
        const QVector<QPointF> expected {{0, 50}, {1, 25}, {2, 75}};
        QCOMPARE(Probe::trendSeries(run.window)->pointsVector(), expected);
    }

    void onlyTheTrialIsCounted_forAnyOtherParameter()
    {
        SilentRun run(modulationDepthParameter);
        run.data.mainParameter = otherParameter;
        addAnswer(run.data, true);
        run.window.updateTrend();
        QCOMPARE(Probe::trendX(run.window), Values {0.0});
        QVERIFY(Probe::trendY(run.window).isEmpty());
        QCOMPARE(Probe::trendSeries(run.window)->count(), 0);
        QCOMPARE(Probe::trendAxisX(run.window)->tickCount(), 2);
        QCOMPARE(rangeOf(Probe::trendAxisY(run.window)), (Values {0, 100}));
    }

    void lastValueIsRepeated_whenTheParameterBecameAnother()
    {
        SilentRun run(modulationDepthParameter);
        addDepth(run, 25);
        run.data.mainParameter = otherParameter;
        addAnswer(run.data, true);
        run.window.updateTrend();
        QCOMPARE(Probe::trendY(run.window), Values {25.0});
        const QVector<QPointF> expected {{0, 25}, {1, 25}};
        QCOMPARE(Probe::trendSeries(run.window)->pointsVector(), expected);
    }

    void horizontalAxis_hasOneTickPerTrialBoundary()
    {
        SilentRun run(modulationDepthParameter);
        const auto* axis = Probe::trendAxisX(run.window);
        for (int nTrials = 1; nTrials <= 5; ++nTrials) {
            addDepth(run, 50);
            QCOMPARE(rangeOf(axis), (Values {0, static_cast<double>(nTrials)}));
            QCOMPARE(axis->tickCount(), nTrials + 1);
            QCOMPARE(axis->labelFormat(), QString("%g"));
            QVERIFY(!axis->labelsVisible());
        }
    }

    void verticalAxis_onlyWidens_data()
    {
        addColumns<Values, Values, Values>("depths", "limits", "range");
        QTest::newRow("one value") << Values {50} << Values {50, 50} << Values {0, 100};
        QTest::newRow("one value outside") << Values {150} << Values {150, 150} << Values {0, 100};
        QTest::newRow("larger") << Values {50, 75} << Values {50, 75} << Values {50, 75};
        QTest::newRow("smaller") << Values {50, 25} << Values {25, 50} << Values {25, 50};
        QTest::newRow("the same twice") << Values {50, 50} << Values {50, 50} << Values {0, 100};
        QTest::newRow("both sides") << Values {50, 75, 25} << Values {25, 75} << Values {25, 75};
        QTest::newRow("back between")
            << Values {50, 75, 25, 50} << Values {25, 75} << Values {25, 75};
        QTest::newRow("not a number between")
            << Values {50, std::nan(""), 75} << Values {50, 75} << Values {50, 75};
    }

    void verticalAxis_onlyWidens()
    {
        QFETCH(Values, depths);
        tolerateChartsOnNan();
        SilentRun run(modulationDepthParameter);
        for (const double depth : depths) {
            addDepth(run, depth);
        }
        QTEST((Values {Probe::trendYMin(run.window), Probe::trendYMax(run.window)}), "limits");
        QTEST(rangeOf(Probe::trendAxisY(run.window)), "range");
    }

    void verticalAxis_keepsItsRange_afterOneDifferenceOutsideIt()
    {
        SilentRun run(carrierFrequencyParameter);
        run.data.fd[deviant] = 0.25;
        run.play("c");
        QCOMPARE(Probe::trendY(run.window), Values {250.0});
        QCOMPARE(rangeOf(Probe::trendAxisY(run.window)), (Values {0, 100}));
    }

    void run_goesOn_afterAValueThatIsNotANumber()
    {
        tolerateChartsOnNan();
        SilentRun run(modulationDepthParameter);
        run.data.md[deviant] = std::nan("");
        run.play("cw");
        QCOMPARE(run.data.nTrials, 3);
        QCOMPARE(Probe::trendX(run.window), (Values {0, 1}));
        QVERIFY(std::isnan(Probe::trendY(run.window).last()));
        QCOMPARE(rangeOf(Probe::trendAxisX(run.window)), (Values {0, 2}));
        QCOMPARE(rangeOf(Probe::trendAxisY(run.window)), (Values {0, 100}));
    }

private:
    // The charts drop such points and keep their ranges, and say so.
    void tolerateChartsOnNan()
    {
        tolerateWarning(QRegularExpression("^Ignored NaN, Inf, or -Inf value\\.$"));
        tolerateWarning(QRegularExpression(
            "^Attempting to set invalid range for value axis: \\[ nan  -  nan \\]$"));
    }
};

QUORIN_TEST(TestTrend);
#include "tst_trend.moc"
