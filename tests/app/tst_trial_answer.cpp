// SPDX-License-Identifier: GPL-3.0-or-later
// "I am ready" and the answers: what is recorded, and what starts the next trial.
#include "support/DrivenRun.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QAudioOutput>

#include <cmath>

using namespace quorin;

namespace {

constexpr int hourAndSound = 3600600; // period of a driven run, ms

} // namespace

class TestTrialAnswer : public WindowTest {
    Q_OBJECT

private slots:
    void ready_startsTheFirstTrial()
    {
        DrivenRun run;
        run.driver.open();
        Probe::soundIndex(run.window) = 3;
        const int linesBefore = debugLines().size();
        run.window.updateMainwindow(0);

        const int position = run.data.deviantPosition;
        QVERIFY(position == 2 || position == 3);
        QCOMPARE(debugLines().mid(linesBefore),
            QStringList({"Test just started", QString("stimPosition:  %1").arg(position)}));
        QCOMPARE(Probe::soundIndex(run.window), 0);
        QCOMPARE(run.data.nTrials, 1);
        QVERIFY(run.data.records.isEmpty());
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QCOMPARE(Probe::timerPlay(run.window)->interval(), hourAndSound);
    }

    void response_isRefused_outsideTheIntervals_data()
    {
        addIntegers("response", {-1, -100, 5, 100});
    }

    void response_isRefused_outsideTheIntervals()
    {
        QFETCH(int, response);
        DrivenRun run;
        run.driver.playToTheAnswer();
        const int linesBefore = debugLines().size();
        ModalBoxes boxes;
        int soundIndexAtBox = -1;
        boxes.onOpen([&](QWidget*) { soundIndexAtBox = Probe::soundIndex(run.window); });
        run.window.updateMainwindow(response);

        verifyOneWarning(boxes, "Invalid response");
        QCOMPARE(soundIndexAtBox, 0);
        QVERIFY(run.data.records.isEmpty());
        QCOMPARE(run.data.nTrials, 1);
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QCOMPARE(debugLines().size(), linesBefore);
    }

    void response_isRecorded_data()
    {
        addColumns<int, int, bool>("response", "position", "isCorrect");
        for (const int response : {1, 2, 3, 4}) {
            for (const int position : {2, 3}) {
                QTest::addRow("%d of deviant %d", response, position)
                    << response << position << (response == position);
            }
        }
    }

    void response_isRecorded()
    {
        QFETCH(int, response);
        QFETCH(int, position);
        DrivenRun run;
        run.driver.playToTheAnswer();
        run.data.deviantPosition = position;
        const int linesBefore = debugLines().size();
        run.window.updateMainwindow(response);

        QCOMPARE(run.data.records.size(), 1);
        const Record record = run.data.records.constFirst();
        QCOMPARE(record.value, 0.5);
        QCOMPARE(record.stimulusPosition, position);
        QCOMPARE(record.responsePosition, response);
        QTEST(record.correctness, "isCorrect");
        QCOMPARE(run.data.nTrials, 2);
        QCOMPARE(debugLines().mid(linesBefore),
            QStringList({QString("response:  %1").arg(response),
                QString("stimPosition:  %1").arg(run.data.deviantPosition)}));
    }

    void value_isTheAdaptedParameterOfTheTrial_data()
    {
        addColumns<int, double>("mainParameter", "value");
        QTest::newRow("carrier frequency") << 0 << 0.125;
        QTest::newRow("modulation depth") << 1 << 0.25;
        QTest::newRow("unknown") << 2 << 0.0;
    }

    void value_isTheAdaptedParameterOfTheTrial()
    {
        QFETCH(int, mainParameter);
        DrivenRun run;
        run.driver.playToTheAnswer();
        Data& data = run.data;
        data.mainParameter = mainParameter;
        data.fd = {0.5, 0.125};
        data.md = {0.75, 0.25};
        run.window.updateMainwindow(2);
        QTEST(run.data.records.constFirst().value, "value");
    }

    void reactionTime_isZero_whileTheClockWasNeverStarted()
    {
        DrivenRun run;
        run.driver.begin();
        QVERIFY(!Probe::timerReaction(run.window)->isValid());
        run.window.updateMainwindow(2);
        QCOMPARE(run.data.records.constFirst().reactionTime, 0.0);
    }

    void answer_isOnlyRecorded_whenNoTrialWasStarted()
    {
        MainWindow window;
        window.updateMainwindow(3);
        QCOMPARE(Probe::data(window).records.size(), 1);
        QCOMPARE(Probe::data(window).nTrials, 0);
        QVERIFY(Probe::trendY(window).isEmpty());
        QVERIFY(!Probe::timerPlay(window)->isActive());
    }

    void answer_startsTheNextTrial()
    {
        DrivenRun run;
        run.driver.playToTheAnswer();
        QVERIFY(run.subject().isEnabled());
        run.driver.answerRightly(true);
        QVERIFY(!run.subject().isEnabled());
        QCOMPARE(Probe::soundIndex(run.window), 0);
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QCOMPARE(Probe::timerPlay(run.window)->interval(), hourAndSound);
        QCOMPARE(Probe::trendY(run.window), QVector<double>({50.0}));
        QVERIFY(run.data.md[deviant] < 0.5);
        QCOMPARE(run.data.nTrials, 2);
    }

    void updateAll_judgesTheRecordedTrial_data()
    {
        addColumns<bool, double>("isCorrect", "stepDb");
        addRow("right", true, -2.0);
        addRow("wrong", false, 4.0);
    }

    void updateAll_judgesTheRecordedTrial()
    {
        QFETCH(bool, isCorrect);
        QFETCH(double, stepDb);
        DrivenRun run;
        run.driver.begin();
        Record record;
        record.value = 0.5;
        record.correctness = isCorrect;
        run.data.records.append(record);
        run.window.updateAll();
        QCOMPARE(Probe::trendY(run.window), QVector<double>({50.0}));
        QCOMPARE(run.data.md[deviant], 0.5 * std::pow(10.0, stepDb / 20.0));
        QCOMPARE(run.data.nTrials, 2);
    }

    void deviantPosition_isSecondOrThird_aboutEquallyOften()
    {
        qsrand(1);
        MainWindow window;
        constexpr int nDraws = 1000;
        int nSecond = 0;
        for (int i = 0; i < nDraws; ++i) {
            window.genRandomSequence();
            const int position = Probe::data(window).deviantPosition;
            QVERIFY(position == 2 || position == 3);
            nSecond += position == 2 ? 1 : 0;
            QVector<bool> sequence(4, false);
            sequence[position - 1] = true;
            QCOMPARE(Probe::stimSequence(window), sequence);
            QCOMPARE(debugLines().constLast(), QString("stimPosition:  %1").arg(position));
        }
        // Five standard deviations of a fair draw, sqrt(1000) / 2 each.
        constexpr int tolerance = 79;
        QVERIFY(qAbs(nSecond - nDraws / 2) <= tolerance);
    }

    void timer_isNotStarted_whenTheReversalsAreComplete_data()
    {
        addColumns<int, bool>("reversalCount", "isStarted");
        QTest::newRow("none yet") << 0 << true;
        QTest::newRow("one missing") << 13 << true;
        QTest::newRow("complete") << 14 << false;
        QTest::newRow("more than enough") << 15 << false;
    }

    void timer_isNotStarted_whenTheReversalsAreComplete()
    {
        QFETCH(int, reversalCount);
        MainWindow window;
        Probe::data(window).reversalCount = reversalCount;
        window.playWav();
        QTEST(Probe::timerPlay(window)->isActive(), "isStarted");
        QCOMPARE(Probe::data(window).nTrials, 1);
        QVERIFY(Probe::data(window).deviantPosition >= 2);
    }

    void timer_ticksPreciselyAndRepeatedly()
    {
        MainWindow window;
        const QTimer* const timer = Probe::timerPlay(window);
        QCOMPARE(timer->timerType(), Qt::PreciseTimer);
        QVERIFY(!timer->isSingleShot());
        QCOMPARE(timer->parent(), &window);
        window.playWav();
        QCOMPARE(timer->interval(), 1600);
        QCOMPARE(Probe::soundIndex(window), 0);
    }

    void tick_startsTheNextSound()
    {
        MainWindow window;
        Probe::data(window).silentInterval = 0.0;
        Probe::data(window).dur = {0.001, 0.002};
        window.playWav();
        QCOMPARE(Probe::timerPlay(window)->interval(), 2);
        QTRY_COMPARE(Probe::soundIndex(window), 4);
        QVERIFY(Probe::timerPlay(window)->isActive());
    }
};

QUORIN_TEST(TestTrialAnswer);
#include "tst_trial_answer.moc"
