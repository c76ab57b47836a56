// SPDX-License-Identifier: GPL-3.0-or-later
// Whole runs of known answers, without sound: values, reversals and results.
#include "procedure/SilentRun.h"
#include "support/WindowTest.h"

#include <cmath>

using namespace quorin;

using Values = QVector<double>;

namespace {

double afterDecibels(double start, int dB)
{
    return start * std::pow(10.0, dB / 20.0);
}

Values afterDecibels(double start, const QVector<int>& dBs)
{
    Values values;
    for (const int dB : dBs) {
        values.append(afterDecibels(start, dB));
    }
    return values;
}

Values valuesOf(const QVector<Record>& records)
{
    Values values;
    for (const Record& record : records) {
        values.append(record.value);
    }
    return values;
}

// Rounding of some forty products of ratios near 1; each is good to about 1e-16.
constexpr double stepTolerance = 1e-13;

bool areNear(const Values& actual, const Values& expected)
{
    if (actual.size() != expected.size()) {
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        if (!(std::abs(actual[i] - expected[i]) <= stepTolerance * std::abs(expected[i]))) {
            return false;
        }
    }
    return true;
}

QString alternating(int n)
{
    return QString("cw").repeated(n).left(n);
}

} // namespace

class TestStaircaseRun : public WindowTest {
    Q_OBJECT

private slots:
    // Two correct answers and a wrong one lead back to the same value, so each cycle is alike.
    void values_followTheAnswers_data()
    {
        addColumns<int, double>("mainParameter", "start");
        QTest::newRow("depth") << modulationDepthParameter << 0.5;
        QTest::newRow("frequency") << carrierFrequencyParameter << 0.05;
    }

    void values_followTheAnswers()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, start);
        SilentRun run(mainParameter);
        run.play("ccwccwccw");
        QVERIFY(areNear(
            valuesOf(run.data.records), afterDecibels(start, {0, -2, -4, 0, -1, -2, 0, -1, -2})));
        QCOMPARE(run.data.reversalCount, 5);
        QVERIFY(areNear(run.data.reversals.mid(0, 5), afterDecibels(start, {-4, 0, -2, 0, -2})));
        QCOMPARE(run.data.reversals.mid(5), Values(9, 0.0));
    }

    void run_endsWithoutAnotherTrial_atTheFirstReversalAskedFor()
    {
        SilentRun run(modulationDepthParameter, 1);
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.play("cc");
        QCOMPARE(done.count(), 0);
        Probe::timerPlay(run.window)->stop();
        const QString shown = textOf(run.window, "lineEditDevModDepth");
        run.answer(false);
        QCOMPARE(done.count(), 1);
        QCOMPARE(run.data.nTrials, 3);
        QCOMPARE(run.data.records.size(), 3);
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QCOMPARE(textOf(run.window, "lineEditDevModDepth"), shown);
        QCOMPARE(run.data.reversals[0], run.data.records[2].value);
        QCOMPARE(run.data.nReversalsToCalculate, 1);
        QCOMPARE(run.data.threshold, run.data.records[2].value);
    }

    void run_hasOneReversalPerTrialAfterTheFirst_whenAnswersAlternate()
    {
        SilentRun run(modulationDepthParameter);
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.play(alternating(14));
        QCOMPARE(done.count(), 0);
        QCOMPARE(run.data.reversalCount, 13);
        run.answer(true);
        QCOMPARE(done.count(), 1);
        QCOMPARE(run.data.nTrials, 15);
        QCOMPARE(run.data.reversals, valuesOf(run.data.records).mid(1));
    }

    void run_neverEnds_whenAllAnswersAreCorrect()
    {
        SilentRun run(modulationDepthParameter);
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.play(QString(40, 'c'));
        QCOMPARE(done.count(), 0);
        QCOMPARE(run.data.reversalCount, 0);
        QCOMPARE(run.data.nTrials, 41);
        QVERIFY(areNear({run.data.md[deviant]}, {afterDecibels(0.5, -80)}));
    }

    void run_goesOnInSmallSteps_beyondTheTableOfSteps()
    {
        SilentRun run(carrierFrequencyParameter, 20);
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.play(alternating(20));
        QCOMPARE(done.count(), 0);
        run.answer(true);
        QCOMPARE(done.count(), 1);
        QCOMPARE(run.data.reversals.size(), 20);
        QCOMPARE(run.data.reversals, valuesOf(run.data.records).mid(1));
        // 0, -2, +2, +1, +3, +2, +4 ... dB: each pair of a correct and a wrong answer adds 1 dB.
        QVERIFY(areNear(
            {run.data.reversals[18], run.data.reversals[19]}, afterDecibels(0.05, {9, 11})));
        run.view();
        QCOMPARE(run.data.reversals, Values(20, 0.0));
    }

    void firstAnswer_endsTheRun_whenNoReversalIsAskedFor()
    {
        SilentRun run(modulationDepthParameter, 0);
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.begin();
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QCOMPARE(run.data.nTrials, 1);
        run.answer(true);
        QCOMPARE(done.count(), 1);
        QCOMPARE(run.data.nTrials, 1);
        QVERIFY(std::isnan(run.data.threshold));
    }

    void results_areTheMeansOfTheRun_data()
    {
        addColumns<int, double, double>("mainParameter", "start", "carrier");
        QTest::newRow("depth") << modulationDepthParameter << 0.5 << 1000.0;
        QTest::newRow("frequency") << carrierFrequencyParameter << 0.05 << 2000.0;
    }

    // The last three of five reversals are 2, 0 and 2 dB below the start; the mean is linear.
    void results_areTheMeansOfTheRun()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, start);
        QFETCH(double, carrier);
        SilentRun run(mainParameter, 5, 3);
        type(run.window, "lineEditStdCarrierFreq", QString::number(carrier));
        run.view();
        QSignalSpy done(&run.window, &MainWindow::doneDataCollection);
        run.play("ccwccwccw");
        QCOMPARE(done.count(), 1);
        const double threshold = start * (1 + 2 * 0.79432823472428150207) / 3;
        QVERIFY(areNear({done[0][0].toDouble()}, {threshold}));
        QVERIFY(areNear({run.data.threshold}, {threshold}));
        QCOMPARE(done[0][1].toDouble(), run.data.meanReactionTime);
        QCOMPARE(done[0][2].toInt(), mainParameter);
        QCOMPARE(done[0][3].toDouble(), carrier);
    }

    void meanReactionTimes_areThoseOfTheRecords()
    {
        SilentRun run(modulationDepthParameter);
        run.play("ccwc");
        run.data.nReversals = 3;
        const Values times {500, 700, 1000, 600};
        for (int i = 0; i < times.size(); ++i) {
            run.data.records[i].reactionTime = times[i];
        }
        run.window.computeResults();
        QCOMPARE(run.data.meanReactionTime, 700.0);
        QCOMPARE(run.data.meanReactionTimeCorrect, 600.0);
        QCOMPARE(run.data.meanReactionTimeIncorrect, 1000.0);
    }

    void listener_seesTheResult_data()
    {
        addColumns<int, QString>("mainParameter", "shown");
        QTest::newRow("depth") << modulationDepthParameter << "Modulation Threshold = 43.1443 %";
        QTest::newRow("frequency")
            << carrierFrequencyParameter << "Frequency Difference = 43.1443 Hz";
    }

    void listener_seesTheResult()
    {
        QFETCH(int, mainParameter);
        QFETCH(QString, shown);
        SilentRun run(mainParameter, 5, 3);
        run.driver.open();
        run.play("ccwccwccw");
        const QLabel* const label = labelOf(run.subject(), "labelThreshold");
        QVERIFY(label->isVisible());
        // The trials had no sound, so their reaction clock never ran.
        QCOMPARE(label->text(), shown + ",   Reaction Time = 0 ms");
    }
};

QUORIN_TEST(TestStaircaseRun);
#include "tst_staircase_run.moc"
