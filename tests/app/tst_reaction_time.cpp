// SPDX-License-Identifier: GPL-3.0-or-later
// The clock of the reaction time: when it starts, when it is read, and what is recorded of it.
#include "app/ReactionClock.h"
#include "support/DrivenRun.h"
#include "support/ExactVectors.h"
#include "support/WindowTest.h"

#include <QAudioOutput>

#include <functional>

namespace {

constexpr qint64 nsPerMs = 1000000;

// What a window did with its clock, and what the clock shows.
struct ClockUse {
    QStringList calls;
    qint64 shown = 0;
    std::function<void()> onCall = [] {};

    void note(const QString& call)
    {
        calls.append(call);
        onCall();
    }
};

class ShownClock : public ReactionClock {
public:
    explicit ShownClock(ClockUse& use)
        : m_use(use)
    {
    }

    void start() override { m_use.note("start"); }
    void restart() override { m_use.note("restart"); }
    qint64 elapsedMs() const override
    {
        m_use.note("read");
        return m_use.shown;
    }

private:
    ClockUse& m_use;
};

// A run in its first trial, with a clock that shows what the test wants.
struct ClockedRun : DrivenRun {
    ClockedRun()
    {
        Probe::reactionClock(window) = std::make_unique<ShownClock>(use);
        driver.begin();
        use.calls.clear();
    }

    ClockUse use;
};

// What a clock shows at a moment of its timer, in ns, that is the same before and after the look.
struct Look {
    qint64 ns;
    qint64 ms;
};

Look lookAt(const ReactionClock& clock, const QElapsedTimer& timer)
{
    while (true) {
        const qint64 msBefore = timer.nsecsElapsed() / nsPerMs;
        const qint64 ms = clock.elapsedMs();
        const qint64 after = timer.nsecsElapsed();
        // cppcheck-suppress knownConditionTrueFalse // the clock goes on between the two
        if (after / nsPerMs == msBefore) {
            return {after, ms};
        }
    }
}

} // namespace

class TestReactionTime : public WindowTest {
    Q_OBJECT

private slots:
    void reactionTime_isWhatTheClockShows_data()
    {
        QTest::addColumn<qint64>("shown");
        for (const qint64 shown : {0LL, 1LL, 2LL, 437LL, 999LL, 1000LL, 86400001LL, 4294967297LL}) {
            QTest::addRow("%lld ms", shown) << shown;
        }
    }

    void reactionTime_isWhatTheClockShows()
    {
        QFETCH(qint64, shown);
        ClockedRun run;
        for (int trial = 0; trial < 3; ++trial) {
            run.driver.playTrial();
            run.use.shown = shown + 10LL * trial;
            run.driver.answer(2);
            const double recorded = run.data.records[trial].reactionTime;
            QUORIN_COMPARE_EXACT(recorded, static_cast<double>(run.use.shown));
        }
    }

    void clock_startsOnceAndRestartsInEveryLaterTrial()
    {
        ClockedRun run;
        run.driver.playTrial();
        QCOMPARE(run.use.calls, QStringList({"start"}));
        for (int trial = 0; trial < 3; ++trial) {
            run.driver.answer(2);
            QCOMPARE(run.use.calls.takeLast(), QString("read"));
            run.driver.playTrial();
        }
        QCOMPARE(run.use.calls, QStringList({"start", "restart", "restart", "restart"}));
        QCOMPARE(Probe::nReactionTimerStarts(run.window), 4);

        run.driver.begin();
        run.use.calls.clear();
        run.driver.playTrial();
        QCOMPARE(run.use.calls, QStringList({"restart"}));
    }

    void clock_rests_untilTheFourthSoundHasEnded()
    {
        ClockedRun run;
        for (int sound = 1; sound <= 4; ++sound) {
            run.driver.startSound();
            QCOMPARE(run.use.calls, QStringList());
            run.driver.endSound();
            QCOMPARE(run.use.calls, sound < 4 ? QStringList() : QStringList({"start"}));
        }
    }

    void clock_startsAfterTheRelease_beforeTheListenerIsTold_data()
    {
        QTest::addColumn<QString>("call");
        QTest::newRow("first trial") << "start";
        QTest::newRow("later trial") << "restart";
    }

    void clock_startsAfterTheRelease_beforeTheListenerIsTold()
    {
        QFETCH(QString, call);
        ClockedRun run;
        if (call == "restart") {
            run.driver.playTrial();
            run.driver.answer(2);
            run.use.calls.clear();
        }
        run.driver.playSounds(3);
        run.driver.startSound();
        const QPointer<QBuffer> buffer(Probe::audioBuffer(run.window));
        const QPointer<QAudioOutput> output(Probe::audioOutput(run.window));
        QVERIFY(!buffer.isNull() && !output.isNull());
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        run.use.onCall = [&] {
            QVERIFY(buffer.isNull());
            QVERIFY(output.isNull() || output->state() == QAudio::StoppedState);
            QVERIFY(Probe::audioBytes(run.window) == nullptr);
            QVERIFY(Probe::audioBuffer(run.window) == nullptr);
            QVERIFY(Probe::audioOutput(run.window) == nullptr);
            QVERIFY(!Probe::timerPlay(run.window)->isActive());
            QCOMPARE(told.count(), 0);
            QVERIFY(!run.subject().isEnabled());
        };
        run.driver.endSound();
        QCOMPARE(run.use.calls, QStringList({call}));
        QCOMPARE(told.count(), 1);
        QVERIFY(run.subject().isEnabled());
    }

    // What the program does with an answer takes time of its own.
    void clock_isReadOnce_beforeTheAnswerIsHandled()
    {
        ClockedRun run;
        run.driver.playTrial();
        run.use.calls.clear();
        const int linesBefore = debugLines().size();
        run.use.onCall = [&] {
            QCOMPARE(debugLines().size(), linesBefore);
            QCOMPARE(Probe::soundIndex(run.window), 4);
            QVERIFY(run.data.records.isEmpty());
        };
        run.driver.answer(3);
        QCOMPARE(run.use.calls, QStringList({"read"}));
        QCOMPARE(run.data.records.size(), 1);
    }

    void programsClock_showsZero_whileItWasNeverStarted()
    {
        QElapsedTimer timer;
        const ElapsedTimerClock clock(timer);
        QCOMPARE(clock.elapsedMs(), qint64(0));
    }

    void programsClock_startsItsTimer()
    {
        QElapsedTimer timer;
        ElapsedTimerClock clock(timer);
        clock.start();
        QVERIFY(timer.isValid());
        const qint64 first = timer.msecsSinceReference();
        QTRY_VERIFY(timer.elapsed() > 1);
        clock.restart();
        QVERIFY(timer.msecsSinceReference() > first);
    }

    void programsClock_showsWholeMs_roundedDown()
    {
        QElapsedTimer timer;
        ElapsedTimerClock clock(timer);
        clock.start();
        Look look = lookAt(clock, timer);
        QCOMPARE(look.ms, look.ns / nsPerMs);
        // Near the end of a ms rounding to the nearest would show the next one.
        constexpr qint64 late = nsPerMs * 9 / 10;
        QTRY_VERIFY((look = lookAt(clock, timer)).ns % nsPerMs > late);
        QCOMPARE(look.ms, look.ns / nsPerMs);
    }

    void windowsClock_isItsTimer()
    {
        DrivenRun run;
        const ReactionClock& clock = *Probe::reactionClock(run.window);
        QVERIFY(!Probe::timerReaction(run.window)->isValid());
        QCOMPARE(clock.elapsedMs(), qint64(0));
        run.driver.playToTheAnswer();
        QVERIFY(Probe::timerReaction(run.window)->isValid());
        const Look look = lookAt(clock, *Probe::timerReaction(run.window));
        QCOMPARE(look.ms, look.ns / nsPerMs);
    }
};

QUORIN_TEST(TestReactionTime);
#include "tst_reaction_time.moc"
