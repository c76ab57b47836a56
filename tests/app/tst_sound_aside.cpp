// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds that still play when the next one starts: what their end frees, and whose trial it ends.
#include "RunningTrial.h"
#include "support/AudioWarnings.h"
#include "support/WindowTest.h"

class TestSoundAside : public WindowTest {
    Q_OBJECT

private slots:
    void soundAside_freesItself_andLeavesTheTrialAlone_data()
    {
        addColumns<int, bool>("state", "isFreed");
        QTest::newRow("idle") << int(QAudio::IdleState) << true;
        QTest::newRow("stopped") << int(QAudio::StoppedState) << true;
        QTest::newRow("active") << int(QAudio::ActiveState) << false;
        QTest::newRow("suspended") << int(QAudio::SuspendedState) << false;
    }

    void soundAside_freesItself_andLeavesTheTrialAlone()
    {
        QFETCH(int, state);
        QFETCH(bool, isFreed);
        tolerateWarning(anyStopped);
        RunningTrial trial(4);
        const QPointer<QAudioOutput> aside(addSoundAside(trial.window));
        const QAudioOutput* const current = Probe::audioOutput(trial.window);
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        emit aside->stateChanged(static_cast<QAudio::State>(state));
        runDeferredDeletions();

        QCOMPARE(aside.isNull(), isFreed);
        QCOMPARE(Probe::soundsAside(trial.window).isEmpty(), isFreed);
        QCOMPARE(told.count(), 0);
        QCOMPARE(Probe::audioOutput(trial.window), current);
        QVERIFY(Probe::audioBuffer(trial.window)->isOpen());
        QVERIFY(Probe::timerPlay(trial.window)->isActive());
        trial.driver.endSound();
        QCOMPARE(told.count(), 1);
    }

    void fourthSound_endsTheTrial_whenATickHasPutItAside()
    {
        RunningTrial trial(4);
        MainWindow& window = trial.window;
        const QPointer<QAudioOutput> fourth(addSoundAside(window, 4));
        trial.driver.startSound();
        QCOMPARE(Probe::soundIndex(window), 5);
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        trial.driver.endSound(); // that of the empty sound
        QCOMPARE(told.count(), 0);
        QVERIFY(Probe::timerPlay(window)->isActive());

        emit fourth->stateChanged(QAudio::IdleState);
        QCOMPARE(told, QList<QVariantList>() << (QVariantList() << -1));
        QVERIFY(!Probe::timerPlay(window)->isActive());
        QCOMPARE(Probe::nReactionTimerStarts(window), 1);
        QVERIFY(Probe::soundsAside(window).isEmpty());
    }

    void fourthSound_endsNoTrial_whenItsOutputStopped()
    {
        tolerateWarning(anyStopped);
        RunningTrial trial(4);
        const QPointer<QAudioOutput> fourth(addSoundAside(trial.window, 4));
        trial.driver.startSound();
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        emit fourth->stateChanged(QAudio::StoppedState);
        QCOMPARE(told.count(), 0);
        QVERIFY(Probe::timerPlay(trial.window)->isActive());
    }

    void fourthSound_endsNoTrial_butItsOwn()
    {
        RunningTrial trial(4);
        MainWindow& window = trial.window;
        const QPointer<QAudioOutput> fourth(addSoundAside(window, 4));
        trial.driver.endSound();
        trial.driver.answer(2);
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        emit fourth->stateChanged(QAudio::IdleState);
        QCOMPARE(told.count(), 0);
        QVERIFY(Probe::timerPlay(window)->isActive());
    }
};

QUORIN_TEST(TestSoundAside);
#include "tst_sound_aside.moc"
