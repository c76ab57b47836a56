// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when an output is idle or has stopped, and what is released then.
#include "RunningTrial.h"
#include "support/AudioWarnings.h"
#include "support/WindowTest.h"

class TestSoundEnd : public WindowTest {
    Q_OBJECT

private slots:
    void idle_releasesTheSound()
    {
        RunningTrial trial(1);
        const QPointer<QBuffer> buffer(Probe::audioBuffer(trial.window));
        const QPointer<QAudioOutput> output(Probe::audioOutput(trial.window));
        emit output->stateChanged(QAudio::IdleState);
        QVERIFY(holdsNoSound(trial.window));
        QVERIFY(buffer.isNull());
        QVERIFY(!output.isNull()); // its signal may still be being handled
        QVERIFY(output->parent() == nullptr);
        const bool wasConnected = disconnect(output, nullptr, &trial.window, nullptr);
        QVERIFY(!wasConnected);
        runDeferredDeletions();
        QVERIFY(output.isNull());
    }

    void idle_changesNothingElse_beforeTheFourthSound_data() { addIntegers("sound", {1, 2, 3}); }

    void idle_changesNothingElse_beforeTheFourthSound()
    {
        QFETCH(int, sound);
        RunningTrial trial(sound);
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        trial.driver.endSound();
        QVERIFY(holdsNoSound(trial.window));
        QCOMPARE(told.count(), 0);
        QCOMPARE(Probe::soundIndex(trial.window), sound);
        QVERIFY(Probe::timerPlay(trial.window)->isActive());
        QVERIFY(!Probe::timerReaction(trial.window)->isValid());
        QCOMPARE(Probe::nReactionTimerStarts(trial.window), 0);
    }

    void idle_endsTheTrial_afterTheFourthSound()
    {
        RunningTrial trial(4);
        MainWindow& window = trial.window;
        int nTold = 0;
        connect(&window, &MainWindow::soundPlaying, &window, [&](int state) {
            ++nTold;
            QCOMPARE(state, -1);
            QVERIFY(holdsNoSound(window));
            QVERIFY(!Probe::timerPlay(window)->isActive());
            QVERIFY(Probe::timerReaction(window)->isValid());
            QCOMPARE(Probe::nReactionTimerStarts(window), 1);
        });
        emit Probe::audioOutput(window)->stateChanged(QAudio::IdleState);
        QCOMPARE(nTold, 1);
        QVERIFY(!Probe::timerPlay(window)->isActive());
        QVERIFY(Probe::subjectWindow(window)->isEnabled());
    }

    void releasedOutput_isHeardNoMore()
    {
        RunningTrial trial(4);
        const QPointer<QAudioOutput> output(Probe::audioOutput(trial.window));
        emit output->stateChanged(QAudio::IdleState);
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        emit output->stateChanged(QAudio::IdleState);
        QCOMPARE(told.count(), 0);
        QCOMPARE(Probe::nReactionTimerStarts(trial.window), 1);
    }

    void stop_keepsTheSound_andIsLoggedWhenItWasAnError()
    {
        RunningTrial trial(4);
        QAudioOutput* const output = Probe::audioOutput(trial.window);
        const bool isError = output->error() != QAudio::NoError;
        if (isError) {
            announceWarning(stopped);
        }
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        trial.window.handleStateChanged(QAudio::StoppedState);
        QCOMPARE(messages().count(stopped), isError ? 1 : 0);
        QCOMPARE(Probe::audioOutput(trial.window), output);
        QVERIFY(Probe::audioBuffer(trial.window)->isOpen());
        QVERIFY(Probe::audioBytes(trial.window) != nullptr);
        QCOMPARE(told.count(), 0);
        QVERIFY(Probe::timerPlay(trial.window)->isActive());
    }

    void stop_isNothing_withoutASound()
    {
        MainWindow window;
        window.handleStateChanged(QAudio::StoppedState);
        QCOMPARE(messages().count(stopped), 0);
    }

    void otherStates_areIgnored_data()
    {
        QTest::addColumn<int>("state");
        QTest::newRow("active") << int(QAudio::ActiveState);
        QTest::newRow("suspended") << int(QAudio::SuspendedState);
        QTest::newRow("interrupted") << int(QAudio::InterruptedState);
    }

    void otherStates_areIgnored()
    {
        QFETCH(int, state);
        RunningTrial trial(4);
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        emit Probe::audioOutput(trial.window)->stateChanged(static_cast<QAudio::State>(state));
        QCOMPARE(told.count(), 0);
        QVERIFY(!holdsNoSound(trial.window));
        QVERIFY(Probe::timerPlay(trial.window)->isActive());
    }

    void idle_isTakenForTheSounds_whenNoOutputSentIt_data()
    {
        QTest::addColumn<bool>("isCall");
        QTest::newRow("direct call") << true;
        QTest::newRow("another object's signal") << false;
    }

    void idle_isTakenForTheSounds_whenNoOutputSentIt()
    {
        QFETCH(bool, isCall);
        MainWindow window;
        connect(&window, SIGNAL(stateChanged(QAudio::State)), &window,
            SLOT(handleStateChanged(QAudio::State)));
        Probe::soundIndex(window) = 4;
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        if (isCall) {
            window.handleStateChanged(QAudio::IdleState);
        } else {
            emit window.stateChanged(QAudio::IdleState);
        }
        QCOMPARE(told, QList<QVariantList>() << (QVariantList() << -1));
        QVERIFY(holdsNoSound(window));
    }

    void disturbances_areToldForTheTrialAndForEachRecord()
    {
        RunningTrial trial(4);
        MainWindow& window = trial.window;
        QVERIFY(window.runDisturbances().isEmpty());
        const bool hasNoDevice = Probe::audioOutput(window)->error() != QAudio::NoError;
        QCOMPARE(window.trialDisturbances().hasOutputFailed, hasNoDevice);
        QCOMPARE(window.trialDisturbances().interruptedSounds, 0);
        QCOMPARE(window.trialDisturbances().lateSounds, 0);
        trial.driver.endSound();
        trial.driver.answer(2);
        QCOMPARE(window.runDisturbances().size(), 1);
        QCOMPARE(window.runDisturbances()[0].hasOutputFailed, hasNoDevice);
        QVERIFY(!window.trialDisturbances().hasOutputFailed);
        trial.driver.playTrial();
        trial.driver.answer(2);
        QCOMPARE(window.runDisturbances().size(), Probe::data(window).records.size());
        window.resetTrend();
        QVERIFY(window.runDisturbances().isEmpty());
    }

    void strangersIdle_isIgnored()
    {
        RunningTrial trial(4);
        QAudioOutput stranger(Probe::audioFormat(trial.window));
        connect(&stranger, SIGNAL(stateChanged(QAudio::State)), &trial.window,
            SLOT(handleStateChanged(QAudio::State)));
        QSignalSpy told(&trial.window, SIGNAL(soundPlaying(int)));
        emit stranger.stateChanged(QAudio::IdleState);
        QCOMPARE(told.count(), 0);
        QVERIFY(!holdsNoSound(trial.window));
    }

    void nothingPilesUp_whenNoEndIsReported()
    {
        MainWindow window;
        QVector<QPointer<QAudioOutput>> outputs;
        QVector<QPointer<QBuffer>> buffers;
        for (int tick = 0; tick < 300; ++tick) {
            Probe::soundIndex(window) = tick % 4;
            window.playOneSound();
            outputs.append(Probe::audioOutput(window));
            buffers.append(Probe::audioBuffer(window));
        }
        runDeferredDeletions();
        // Without a sound device only the last one; a device lets eight earlier ones play on.
        const bool plays = Probe::audioOutput(window)->error() == QAudio::NoError;
        const int mostAtOnce = plays ? 9 : 1;
        const auto alive = [](const auto& pointers) {
            return std::count_if(pointers.cbegin(), pointers.cend(),
                [](const auto& pointer) { return !pointer.isNull(); });
        };
        QVERIFY(window.findChildren<QAudioOutput*>().size() <= mostAtOnce);
        QVERIFY(alive(outputs) <= mostAtOnce);
        QVERIFY(alive(buffers) <= mostAtOnce);
    }

    void window_canGo_whileSoundsPlay()
    {
        QPointer<QAudioOutput> current;
        QPointer<QAudioOutput> aside;
        {
            RunningTrial trial(4);
            current = Probe::audioOutput(trial.window);
            aside = addSoundAside(trial.window);
        }
        QVERIFY(current.isNull());
        QVERIFY(aside.isNull());
    }
};

QUORIN_TEST(TestSoundEnd);
#include "tst_sound_end.moc"
