// SPDX-License-Identifier: GPL-3.0-or-later
// Steps, reversals, the end of a run, and the start of the deviant.
#include "procedure/Records.h"
#include "procedure/StaircaseRule.h"
#include "support/ExactVectors.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

constexpr double noCeiling = std::numeric_limits<double>::infinity();

using Steps = QVector<int>;
using Values = QVector<double>;

Data dataWith(int mainParameter)
{
    Data data;
    data.mainParameter = mainParameter;
    return data;
}

} // namespace

class TestStaircaseRule : public QuietTest {
    Q_OBJECT

private slots:
    void step_multipliesByAnAmplitudeRatio_data()
    {
        addColumns<int, double>("stepDb", "ratio");
        QTest::newRow("wrong, large step: 10^(1/5)") << 4 << 1.5848931924611136;
        QTest::newRow("correct, large step: 10^(-1/10)") << -2 << 0.79432823472428149;
        QTest::newRow("wrong, small step: 10^(1/10)") << 2 << 1.2589254117941673;
        QTest::newRow("correct, small step: 10^(-1/20)") << -1 << 0.89125093813374556;
    }

    void step_multipliesByAnAmplitudeRatio()
    {
        QFETCH(int, stepDb);
        QFETCH(double, ratio);
        for (const double value : {1.0, 0.5, 0.3, 0.05, 0.0123}) {
            QUORIN_COMPARE_EXACT(steppedValue(value, stepDb, noCeiling), value * ratio);
        }
    }

    void steppedValue_stopsAtTheCeiling_whenItWouldExceedIt()
    {
        QUORIN_COMPARE_EXACT(steppedValue(0.9, 4, 1.0), 1.0);
        QUORIN_COMPARE_EXACT(steppedValue(0.9, 4, 0.9999), 0.9999);
        QCOMPARE(steppedValue(1.0, 4, noCeiling), 1.5848931924611134852);
    }

    void steppedValue_hasNoLowerBound()
    {
        QCOMPARE(steppedValue(1e-300, -2, 1.0), 0.79432823472428150207e-300);
    }

    void steppedValue_staysNan_whenItIsNan()
    {
        QVERIFY(std::isnan(steppedValue(std::nan(""), 4, 1.0)));
    }

    void steps_followTheAnswers_data()
    {
        addColumns<QString, Steps>("answers", "expected");
        QTest::newRow("correct first trial") << "c" << Steps {-2};
        QTest::newRow("wrong first trial") << "w" << Steps {4};
        QTest::newRow("no reversal: large steps") << "ccc" << Steps {-2, -2, -2};
        QTest::newRow("first reversal: still large") << "cw" << Steps {-2, 4};
        QTest::newRow("second reversal: small at once") << "cwc" << Steps {-2, 4, -1};
        QTest::newRow("from wrong: the same") << "wcw" << Steps {4, -2, 2};
        QTest::newRow("small from then on") << "wcwwcc" << Steps {4, -2, 2, 2, -1, -1};
        QTest::newRow("one reversal at the first of two correct ones")
            << "wccw" << Steps {4, -2, -2, 2};
    }

    void steps_followTheAnswers()
    {
        QFETCH(QString, answers);
        Data data;
        Steps steps;
        for (const QChar answer : answers) {
            addAnswer(data, isCorrect(answer));
            judgeTrial(data, data.records.size() - 1);
            steps.append(nextStepDb(data));
        }
        QTEST(steps, "expected");
    }

    void stepSize_isTheLastOne_beyondTheTable()
    {
        Data data;
        data.stepSizes[14] = 5;
        data.reversalCount = 14;
        QCOMPARE(nextStepDb(data), -5);
        data.reversalCount = 15;
        QCOMPARE(nextStepDb(data), -5);
        data.reversalCount = 1000;
        QCOMPARE(nextStepDb(data), -5);
    }

    void reversals_areTheValuesWhereCorrectnessChanged_data()
    {
        addColumns<QString, Values>("answers", "expected");
        QTest::newRow("first trial") << "c" << Values {};
        QTest::newRow("first trial wrong") << "w" << Values {};
        QTest::newRow("all correct") << "cccccccc" << Values {};
        QTest::newRow("wrong after correct") << "cw" << Values {2};
        QTest::newRow("two correct after a wrong one: one reversal") << "wcc" << Values {2};
        QTest::newRow("both directions") << "ccwwc" << Values {3, 5};
        QTest::newRow("alternating: one a trial after the first") << "cwcwc" << Values {2, 3, 4, 5};
    }

    void reversals_areTheValuesWhereCorrectnessChanged()
    {
        QFETCH(QString, answers);
        QFETCH(Values, expected);
        Data data;
        for (int i = 0; i < answers.size(); ++i) {
            addAnswer(data, isCorrect(answers[i]), i + 1);
            judgeTrial(data, data.records.size() - 1);
        }
        QCOMPARE(data.reversalCount, expected.size());
        QCOMPARE(data.reversals.size(), 14);
        expected.resize(14);
        QCOMPARE(data.reversals, expected);
    }

    void reversals_grow_beyondFourteen()
    {
        Data data;
        Values expected;
        for (int i = 0; i < 41; ++i) {
            addAnswer(data, i % 2 == 0, i);
            judgeTrial(data, data.records.size() - 1);
        }
        for (int i = 1; i < 41; ++i) {
            expected.append(i);
        }
        QCOMPARE(data.reversalCount, 40);
        QCOMPARE(data.reversals, expected);
    }

    void enoughReversals_isReached_atTheConfiguredNumber()
    {
        Data data;
        data.reversalCount = 13;
        QVERIFY(!enoughReversals(data));
        data.reversalCount = 14;
        QVERIFY(enoughReversals(data));
        data.reversalCount = 15;
        QVERIFY(enoughReversals(data));
        data.nReversals = 0;
        data.reversalCount = 0;
        QVERIFY(enoughReversals(data));
        data.nReversals = -3;
        QVERIFY(enoughReversals(data));
    }

    void trial_isFollowedByTheEnd_onceEnoughReversalsWereCounted()
    {
        Data data;
        data.nReversals = 2;
        QVector<AfterTrial> after;
        for (const QChar answer : QString("ccwwcw")) {
            addAnswer(data, isCorrect(answer));
            after.append(judgeTrial(data, data.records.size() - 1));
        }
        const AfterTrial next = AfterTrial::nextTrial;
        const AfterTrial end = AfterTrial::end;
        QCOMPARE(after, QVector<AfterTrial>({next, next, next, next, end, end}));
    }

    void currentRecord_isThere_onlyWithinTheRecords()
    {
        Data data;
        QVERIFY(!hasCurrentRecord(data));
        data.records = {answered(true), answered(false)};
        data.nTrials = -1;
        QVERIFY(!hasCurrentRecord(data));
        data.nTrials = 1;
        QVERIFY(hasCurrentRecord(data));
        data.nTrials = 2;
        QVERIFY(hasCurrentRecord(data));
        data.nTrials = 3;
        QVERIFY(!hasCurrentRecord(data));
    }

    void step_movesWhatIsAdaptedAlone_data()
    {
        addColumns<int, double, double, double>("mainParameter", "md", "fd", "cf");
        const double ratio = 1.2589254117941672104;
        QTest::newRow("frequency: the deviant goes below the standard")
            << carrierFrequencyParameter << 0.5 << 0.05 * ratio << (1 - 0.05 * ratio) * 2000.0;
        QTest::newRow("depth") << modulationDepthParameter << 0.5 * ratio << 0.05 << 1500.0;
        QTest::newRow("other: nothing") << otherParameter << 0.5 << 0.05 << 1500.0;
    }

    void step_movesWhatIsAdaptedAlone()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, md);
        QFETCH(double, fd);
        QFETCH(double, cf);
        Data data = dataWith(mainParameter);
        data.cf = {2000.0, 1500.0};
        data.reversalCount = 2;
        data.stepFactor = data.stepFactorIncorrect;
        stepDeviant(data);
        QCOMPARE(data.md, (Values {0.0, md}));
        QCOMPARE(data.fd, (Values {0.0, fd}));
        QCOMPARE(data.cf, (Values {2000.0, cf}));
    }

    void deviant_isFullyModulated_atMost()
    {
        Data data = dataWith(modulationDepthParameter);
        data.md[deviant] = 0.9;
        data.stepFactor = data.stepFactorIncorrect;
        stepDeviant(data);
        QCOMPARE(data.md[deviant], 1.0);
        stepDeviant(data);
        QCOMPARE(data.md[deviant], 1.0);
    }

    void deviant_neverReachesZeroHertz()
    {
        Data data = dataWith(carrierFrequencyParameter);
        data.fd[deviant] = 0.9;
        data.stepFactor = data.stepFactorIncorrect;
        stepDeviant(data);
        QCOMPARE(data.fd[deviant], 0.9999);
        QCOMPARE(data.cf[deviant], (1 - 0.9999) * 1000.0);
    }

    void deviant_startsAtItsParametersValues_data()
    {
        addColumns<int, double, double, double>("mainParameter", "md", "fd", "cf");
        QTest::newRow("frequency") << carrierFrequencyParameter << 0.0 << 0.05 << 1900.0;
        QTest::newRow("depth") << modulationDepthParameter << 0.5 << 0.0 << 2000.0;
        QTest::newRow("other: unchanged") << otherParameter << 0.25 << 0.125 << 1500.0;
    }

    void deviant_startsAtItsParametersValues()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, md);
        QFETCH(double, fd);
        QFETCH(double, cf);
        Data data = dataWith(mainParameter);
        data.md = {0.75, 0.25};
        data.fd = {0.5, 0.125};
        data.cf = {2000.0, 1500.0};
        resetDeviant(data);
        QCOMPARE(data.md, (Values {0.75, md}));
        QCOMPARE(data.fd, (Values {0.5, fd}));
        QCOMPARE(data.cf, (Values {2000.0, cf}));
    }

    // Where cf - cf * 0.05 is the next larger number.
    void startCarrier_isTheProduct_toTheLastBit_data()
    {
        addColumns<double, double>("standardCarrier", "carrier");
        QTest::newRow("333 Hz") << 333.0 << 316.34999999999997;
        QTest::newRow("1234.5 Hz") << 1234.5 << 1172.7749999999999;
    }

    void startCarrier_isTheProduct_toTheLastBit()
    {
        QFETCH(double, standardCarrier);
        QFETCH(double, carrier);
        Data data = dataWith(carrierFrequencyParameter);
        data.cf = {standardCarrier, 0.0};
        resetDeviant(data);
        QUORIN_COMPARE_EXACT(data.cf[deviant], carrier);
        QUORIN_COMPARE_EXACT(data.fd[deviant], 0.05);
    }

    void clearedRun_keepsTheLengthOfTheReversals()
    {
        Data data;
        data.reversals = Values(20, 0.5);
        data.nReversals = 3;
        data.reversalCount = 20;
        addAnswer(data, true);
        data.deviantPosition = 3;
        data.threshold = data.meanReactionTime = 1.0;
        data.meanReactionTimeCorrect = data.meanReactionTimeIncorrect = 1.0;
        clearRun(data);
        verifyNothingOfARun(data, 20);
    }
};

QUORIN_GUILESS_TEST(TestStaircaseRule);
#include "tst_staircase_rule.moc"
