// SPDX-License-Identifier: GPL-3.0-or-later
// A sound server or a device that goes during a run, and comes back or does not.
#include "support/AudioWarnings.h"
#include "support/DrivenRun.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/TrialRecording.h"
#include "support/WindowWidgets.h"
#include "system/PhasedRun.h"
#include "system/RepeatedRuns.h"
#include "system/SoundLab.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

#include <memory>
#include <vector>

using namespace quorin;

namespace {

const QString notConnected("PulseAudioService: pa_context_connect() failed");

// A window of its own with a run that has come to a phase. Its sounds are long, and at a low rate,
// so that they still play when the server goes.
struct PhaseInAWindow {
    PhaseInAWindow(const Phase& phase, ModalBoxes& boxes)
        : run(window, boxes, PhasedRun::noiseAndDepth)
    {
        typeDurations(window, "10000");
        type(window, "lineEditSamplingRate", "8000");
        run.playTo(phase);
    }

    MainWindow window;
    PhasedRun run;
};

QStringList outcomeOfARun(MainWindow& window, ModalBoxes& boxes, PhasedRun::Kind kind)
{
    PhasedRun run(window, boxes, kind);
    run.open();
    run.playOn();
    return run.outcome();
}

} // namespace

class TestLostSoundServer : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override
    {
        QuietTest::init();
        tolerateWarning(QRegularExpression("^\"Stream error: "));
        // What a busy machine does to a sound is not asked here.
        tolerateWarning(QRegularExpression("^Sound interrupted: "));
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_lab->start());
        MainWindow window;
        ModalBoxes boxes;
        m_expected = outcomeOfARun(window, boxes, PhasedRun::noiseAndDepth);
        m_format = Probe::audioFormat(window);
    }

    void everyPhase_survivesTheLoss()
    {
        prepareSuccessor();
        ModalBoxes boxes;
        std::vector<std::unique_ptr<PhaseInAWindow>> phases;
        int nSounding = 0;
        for (const Phase& phase : phasesOfARun()) {
            phases.push_back(std::make_unique<PhaseInAWindow>(phase, boxes));
            if (phase.isSounding) {
                ++nSounding;
                announceWarning(stopped);
            }
        }
        loseTheServer();
        QCOMPARE(messages().count(stopped), nSounding);
        for (const auto& phase : phases) {
            QVERIFY(Probe::subjectWindow(phase->window)->isVisible());
            QVERIFY(phase->window.findChildren<QAudioOutput*>().size() <= 1);
        }
        waitForTheSuccessor();
        for (const auto& phase : phases) {
            boxes.answerNext(QMessageBox::Yes);
            QVERIFY(Probe::subjectWindow(phase->window)->close());
            QCOMPARE(outcomeOfARun(phase->window, boxes, PhasedRun::noiseAndDepth), m_expected);
        }
        QCOMPARE(messages().count(stopped), nSounding);
    }

    void run_goesOn_whenTheServerComesBack_data()
    {
        addColumns<int, bool, QString>("nSounds", "isSounding", "durationMs");
        QTest::newRow("before the first sound") << 0 << false << "40";
        QTest::newRow("during a sound") << 2 << true << "500";
        QTest::newRow("between two trials") << 4 << false << "40";
    }

    void run_goesOn_whenTheServerComesBack()
    {
        QFETCH(int, nSounds);
        QFETCH(bool, isSounding);
        QFETCH(QString, durationMs);
        prepareSuccessor();
        DrivenRun run;
        typeDurations(run.window, durationMs);
        run.driver.begin();
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        for (int sound = 1; sound < nSounds; ++sound) {
            playSound(run.window);
        }
        if (isSounding) {
            announceWarning(stopped);
            run.driver.startSound();
            QCOMPARE(Probe::audioOutput(run.window)->state(), QAudio::ActiveState);
        } else if (nSounds > 0) {
            playSound(run.window);
        }
        loseTheServer();
        QCOMPARE(messages().count(stopped), isSounding ? 1 : 0);
        waitForTheSuccessor();
        for (int sound = nSounds + 1; sound <= 4; ++sound) {
            playSound(run.window);
        }
        QCOMPARE(told, (QList<QVariantList> {{1}, {2}, {3}, {4}, {-1}}));
        run.driver.answer(2);
        compareTrialWithRecording(run.window);
        QCOMPARE(run.data.records.size(), 1);
        QVERIFY(run.subject().isEnabled());
    }

    void loss_isLogged_forASoundThatTheTrialHasLeftBehind()
    {
        prepareSuccessor();
        DrivenRun run;
        typeDurations(run.window, "10000");
        type(run.window, "lineEditSamplingRate", "8000");
        run.driver.begin();
        run.driver.startSound();
        run.driver.startSound();
        run.driver.endSound(); // the second one: the first plays on
        QCOMPARE(Probe::soundsAside(run.window).size(), 1);
        QCOMPARE(Probe::soundsAside(run.window).constFirst().output->state(), QAudio::ActiveState);
        QVERIFY(Probe::audioOutput(run.window) == nullptr);
        announceWarning(stopped);
        loseTheServer();
        QCOMPARE(messages().count(stopped), 1);
        QVERIFY(Probe::soundsAside(run.window).isEmpty());
        QVERIFY(run.window.findChildren<QAudioOutput*>().isEmpty());
        QCOMPARE(Probe::soundIndex(run.window), 2);
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        waitForTheSuccessor();
    }

    // A sound card that is pulled out while the server runs: Qt reports nothing.
    void nextRun_sounds_afterTheDeviceWasPulledOut()
    {
        DrivenRun run;
        ModalBoxes boxes;
        typeDurations(run.window, "40");
        run.driver.begin();
        run.driver.startSound();
        m_lab->server.removeSink();
        QTRY_VERIFY_WITH_TIMEOUT(QAudioDeviceInfo::defaultOutputDevice().isNull(), timeoutMs);
        announceWarning(stopped);
        announceWarning("using null output device, none available");
        run.driver.startSound();
        QCOMPARE(Probe::audioOutput(run.window)->error(), QAudio::OpenError);
        QVERIFY(run.subject().close());

        m_lab->server.addSink();
        QTRY_VERIFY_WITH_TIMEOUT(!QAudioDeviceInfo::defaultOutputDevice().isNull(), timeoutMs);
        run.driver.begin();
        compareTrialWithRecording(run.window);
        QVERIFY(run.subject().isEnabled());
    }

    // Stays the last: Qt looks for a server once, 3 s after it lost one, and then never again.
    void nothingPilesUp_whenTheServerStaysAway()
    {
        constexpr int nRuns = 50;
        MainWindow window;
        ModalBoxes boxes;
        announceWarning(notConnected);
        watchTheServer();
        loseTheServer();
        QTRY_VERIFY_WITH_TIMEOUT(messages().contains(notConnected), timeoutMs);
        tolerateWarning(anyStopped);
        QCOMPARE(pileAfterRuns(window, boxes, nRuns), QString());
        QCOMPARE(messages().count(stopped), nRuns * ticksPerRepeatedRun);
        QCOMPARE(outcomeOfARun(window, boxes, PhasedRun::noiseAndDepth), m_expected);
    }

private:
    // Qt looks for a server 3 s after it lost one. The successor is there in time, however busy the
    // machine is.
    void prepareSuccessor()
    {
        m_successor = std::make_unique<SoundLab>();
        QVERIFY(m_successor->start());
        watchTheServer();
    }

    void watchTheServer()
    {
        m_watch = std::make_unique<QAudioOutput>(m_format);
        m_watch->start();
        QCOMPARE(m_watch->state(), QAudio::IdleState);
    }

    // Returns when Qt has noticed: an output that is opened before waits for good.
    void loseTheServer()
    {
        m_lab->server.kill();
        QTRY_COMPARE_WITH_TIMEOUT(m_watch->state(), QAudio::StoppedState, timeoutMs);
    }

    void waitForTheSuccessor()
    {
        const auto canPlay = [this] {
            m_watch->start();
            return m_watch->state() != QAudio::StoppedState;
        };
        QTRY_VERIFY_WITH_TIMEOUT(canPlay(), timeoutMs);
        m_watch.reset();
        m_lab = std::move(m_successor);
    }

    static void playSound(MainWindow& window)
    {
        window.playOneSound();
        QTRY_VERIFY_WITH_TIMEOUT(Probe::audioOutput(window) == nullptr, timeoutMs);
    }

    void compareTrialWithRecording(MainWindow& window)
    {
        QVERIFY(m_lab->recorder.start());
        for (int sound = 1; sound <= 4; ++sound) {
            playSound(window);
        }
        const ScriptedListener::Trial trial = {Probe::stimuli(window)[standard].samples,
            Probe::stimuli(window)[deviant].samples, Probe::data(window).deviantPosition, true};
        QCOMPARE(differenceFromRecording({trial}, m_lab->recorder.stop()), QString());
    }

    std::unique_ptr<SoundLab> m_lab = std::make_unique<SoundLab>();
    std::unique_ptr<SoundLab> m_successor;
    std::unique_ptr<QAudioOutput> m_watch; ///< stops when Qt notices that the server is gone
    QAudioFormat m_format;
    QStringList m_expected;
};

QUORIN_TEST(TestLostSoundServer);
#include "tst_lost_sound_server.moc"
