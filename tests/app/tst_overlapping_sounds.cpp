// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds that still play when the next one starts, on a real sound server.
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/AudioWarnings.h"
#include "support/DrivenRun.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"

#include <QAudioOutput>

namespace {

constexpr int soundTimeoutMs = 30000;

const QList<QVariantList> endOfTrial = {{-1}};

// The timer paces the trials of this run.
void openPacedRun(MainWindow& window, const QString& soundMs, const QString& silenceMs)
{
    typeDurations(window, soundMs);
    type(window, "lineEditSilentInterval", silenceMs);
    window.on_pushButtonView_clicked();
    window.on_pushButtonGo_clicked();
}

// A run whose sounds take a tenth of a second each.
struct BriefRun : DrivenRun {
    BriefRun()
    {
        typeDurations(window, "100.00");
        driver.begin();
    }
};

} // namespace

// The sounds of this test play on a real sound server, so they have an end and report it.
class TestOverlappingSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        // Without a recorder the sink works in blocks of seconds, and ends are reported late.
        QVERIFY2(m_recorder.start(), qPrintable(m_recorder.errorText()));
    }

    void end_isReportedByTheOutput_andReleasesIt()
    {
        BriefRun run;
        run.driver.startSound();
        const QPointer<QAudioOutput> output(Probe::audioOutput(run.window));
        QCOMPARE(output->format(), Probe::audioFormat(run.window));
        QTRY_VERIFY_WITH_TIMEOUT(Probe::audioOutput(run.window) == nullptr, soundTimeoutMs);
        QVERIFY(Probe::audioBytes(run.window) == nullptr);
        QVERIFY(Probe::audioBuffer(run.window) == nullptr);
        QTRY_VERIFY(output.isNull());
        QVERIFY(Probe::timerPlay(run.window)->isActive());
    }

    void stop_isNotLogged_whenItIsNoError()
    {
        BriefRun run;
        run.driver.startSound();
        QAudioOutput* const output = Probe::audioOutput(run.window);
        QSignalSpy changes(output, SIGNAL(stateChanged(QAudio::State)));
        output->stop();
        QCOMPARE(changes.count(), 1);
        QCOMPARE(output->state(), QAudio::StoppedState);
        QCOMPARE(output->error(), QAudio::NoError);
        QVERIFY(!messages().contains(stopped));
        QCOMPARE(Probe::audioOutput(run.window), output);
    }

    void soundThatStillPlays_isPutAside_andFreesItself()
    {
        BriefRun run;
        run.driver.startSound();
        const QPointer<QAudioOutput> first(Probe::audioOutput(run.window));
        const QPointer<QBuffer> firstBuffer(Probe::audioBuffer(run.window));
        run.driver.startSound();
        QVERIFY(Probe::audioOutput(run.window) != first);
        QCOMPARE(Probe::soundsAside(run.window).size(), 1);
        QVERIFY(firstBuffer->isOpen());
        QCOMPARE(first->state(), QAudio::ActiveState);
        QTRY_VERIFY_WITH_TIMEOUT(first.isNull(), soundTimeoutMs);
        QVERIFY(firstBuffer.isNull());
        QVERIFY(Probe::soundsAside(run.window).isEmpty());
    }

    void trial_endsOnce_whenItsSoundsOverlap()
    {
        BriefRun run;
        for (int i = 0; i < 4; ++i)
            run.driver.startSound();
        QCOMPARE(Probe::soundsAside(run.window).size(), 3);
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        QTRY_VERIFY_WITH_TIMEOUT(!told.isEmpty(), soundTimeoutMs);
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QVERIFY(Probe::timerReaction(run.window)->isValid());
        QTRY_VERIFY_WITH_TIMEOUT(
            run.window.findChildren<QAudioOutput*>().isEmpty(), soundTimeoutMs);
        QCOMPARE(told, endOfTrial);
        QCOMPARE(Probe::nReactionTimerStarts(run.window), 1);
    }

    void trial_ends_withoutASilentInterval()
    {
        MainWindow window;
        openPacedRun(window, "100.00", "0");
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        window.updateMainwindow(0);
        QCOMPARE(Probe::timerPlay(window)->interval(), 100);
        QTRY_COMPARE_WITH_TIMEOUT(told.count(), 5, soundTimeoutMs);
        QCOMPARE(told.constLast(), endOfTrial.constFirst());
        QCOMPARE(Probe::soundIndex(window), 4);
    }

    // Their output takes the first samples only after the next tick. A busy machine may disturb one
    // trial or another.
    void soundsShorterThanTheOnset_areNotLate()
    {
        MainWindow window;
        openPacedRun(window, "10.00", "5");
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        int nTrials = 0;
        do {
            told.clear();
            window.updateMainwindow(0);
            QCOMPARE(Probe::timerPlay(window)->interval(), 15);
            QTRY_VERIFY_WITH_TIMEOUT(told.contains(endOfTrial.constFirst()), soundTimeoutMs);
        } while (window.trialDisturbances().lateSounds > 0 && ++nTrials < 20);
        QCOMPARE(window.trialDisturbances().lateSounds, 0);
    }

    void sounds_areKept_upToALimit()
    {
        BriefRun run;
        for (int tick = 0; tick < 12; ++tick) {
            Probe::soundIndex(run.window) = 0;
            run.driver.startSound();
        }
        QCOMPARE(Probe::soundsAside(run.window).size(), 8);
        QCOMPARE(run.window.findChildren<QAudioOutput*>().size(), 9);
        QTRY_VERIFY_WITH_TIMEOUT(
            run.window.findChildren<QAudioOutput*>().isEmpty(), soundTimeoutMs);
    }

    void emptySound_isReleasedByTheNextOne()
    {
        DrivenRun run;
        run.driver.open();
        run.data.nSamples = {0, 0};
        for (int tick = 0; tick < 300; ++tick) {
            Probe::soundIndex(run.window) = tick % 4;
            run.driver.startSound();
            QVERIFY(Probe::soundsAside(run.window).isEmpty());
        }
        QCOMPARE(run.window.findChildren<QAudioOutput*>().size(), 1);
    }

    void window_canGo_whileSoundsPlay()
    {
        QPointer<QAudioOutput> first;
        QPointer<QAudioOutput> second;
        {
            BriefRun run;
            run.driver.startSound();
            first = Probe::audioOutput(run.window);
            run.driver.startSound();
            second = Probe::audioOutput(run.window);
        }
        QVERIFY(first.isNull());
        QVERIFY(second.isNull());
    }

private:
    SoundServer m_server;
    SoundRecorder m_recorder {m_server};
};

QUORIN_TEST(TestOverlappingSounds);
#include "tst_overlapping_sounds.moc"
