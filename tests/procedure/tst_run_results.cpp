// SPDX-License-Identifier: GPL-3.0-or-later
// Threshold and mean reaction times.
#include "procedure/Records.h"
#include "procedure/RunResults.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

namespace {

using Values = QVector<double>;

// 1, 2, 4 ... 8192: every sum of some of them is exact and tells which ones they are.
Values powersOfTwo()
{
    Values values;
    for (int i = 0; i < 14; ++i) {
        values.append(std::ldexp(1.0, i));
    }
    return values;
}

} // namespace

class TestRunResults : public QuietTest {
    Q_OBJECT

private slots:
    void threshold_isTheMeanOfTheLastReversals_data()
    {
        addColumns<int, int, double>("nReversals", "n", "expected");
        QTest::newRow("defaults: entries 6 to 13") << 14 << 8 << (16384.0 - 64) / 8;
        QTest::newRow("all") << 14 << 14 << 16383.0 / 14;
        QTest::newRow("the last") << 14 << 1 << 8192.0;
        QTest::newRow("counted from the configured total") << 6 << 2 << 24.0;
        QTest::newRow("total beyond the list: what is missing adds nothing")
            << 16 << 4 << (4096.0 + 8192) / 4;
        QTest::newRow("wholly beyond the list") << 20 << 4 << 0.0;
        QTest::newRow("more than the total: none before the first") << 2 << 4 << 3.0 / 4;
    }

    void threshold_isTheMeanOfTheLastReversals()
    {
        QFETCH(int, nReversals);
        QFETCH(int, n);
        QTEST(meanOfLastReversals(powersOfTwo(), nReversals, n), "expected");
    }

    void threshold_isZeroDividedByTheCount_whenNoReversalIsAskedFor()
    {
        QVERIFY(std::isnan(meanOfLastReversals(powersOfTwo(), 14, 0)));
        QVERIFY(std::isnan(meanOfLastReversals(powersOfTwo(), 0, 0)));
        QCOMPARE(meanOfLastReversals(powersOfTwo(), 14, -2), 0.0);
        constexpr int lowest = std::numeric_limits<int>::min();
        QCOMPARE(meanOfLastReversals(powersOfTwo(), lowest, lowest), 0.0);
        QCOMPARE(meanOfLastReversals(powersOfTwo(), lowest, 8), 0.0);
    }

    void threshold_isZero_whenTheListIsEmpty() { QCOMPARE(meanOfLastReversals({}, 14, 8), 0.0); }

    void reactionTimes_areAveragedOverAllAndOverEachGroup()
    {
        const MeanReactionTimes means = meanReactionTimes(
            {answered(true, 0, 100), answered(false, 0, 1000), answered(true, 0, 300)});
        QCOMPARE(means.all, 1400.0 / 3);
        QCOMPARE(means.correct, 200.0);
        QCOMPARE(means.incorrect, 1000.0);
    }

    void reactionTime_isNan_whenItsGroupIsEmpty()
    {
        const MeanReactionTimes allCorrect
            = meanReactionTimes({answered(true, 0, 100), answered(true, 0, 200)});
        QCOMPARE(allCorrect.all, 150.0);
        QCOMPARE(allCorrect.correct, 150.0);
        QVERIFY(std::isnan(allCorrect.incorrect));

        const MeanReactionTimes allWrong = meanReactionTimes({answered(false, 0, 100)});
        QCOMPARE(allWrong.all, 100.0);
        QVERIFY(std::isnan(allWrong.correct));
        QCOMPARE(allWrong.incorrect, 100.0);
    }

    void reactionTimes_areAllNan_whenThereAreNoRecords()
    {
        const MeanReactionTimes means = meanReactionTimes({});
        QVERIFY(std::isnan(means.all));
        QVERIFY(std::isnan(means.correct));
        QVERIFY(std::isnan(means.incorrect));
    }

    void record_holdsAllFourResults_afterTheRun()
    {
        Data data;
        data.reversals = powersOfTwo();
        data.nReversals = 4;
        data.nReversalsToCalculate = 2;
        data.records = {answered(true, 0, 10), answered(false, 0, 40)};
        computeRunResults(data);
        QCOMPARE(data.threshold, 6.0);
        QCOMPARE(data.meanReactionTime, 25.0);
        QCOMPARE(data.meanReactionTimeCorrect, 10.0);
        QCOMPARE(data.meanReactionTimeIncorrect, 40.0);
    }
};

QUORIN_GUILESS_TEST(TestRunResults);
#include "tst_run_results.moc"
