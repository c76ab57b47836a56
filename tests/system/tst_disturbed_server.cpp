// SPDX-License-Identifier: GPL-3.0-or-later
// The sound server stands still in a trial.
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/AudioWarnings.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "system/DisturbedTrial.h"

namespace {

// The phases of a trial in which the server is stopped, by the state that soundPlaying told last.
struct Phase {
    const char* name;
    int state; ///< 0: the listener is ready
    int afterMs;
};

constexpr Phase phases[] = {
    {"before the first sound", 0, 300},
    {"as the first sound starts", 1, 0},
    {"in the first sound", 1, 300},
    {"after the first sound", 1, 700},
    {"as the second sound starts", 2, 0},
    {"in the second sound", 2, 300},
    {"near the end of the second sound", 2, 480}, // all of it has been handed over
    {"after the second sound", 2, 700},
    {"in the third sound", 3, 300},
    {"after the third sound", 3, 700},
    {"as the fourth sound starts", 4, 0},
    {"in the fourth sound", 4, 300},
};

} // namespace

class TestDisturbedServer : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void init() override
    {
        QuietTest::init();
        tolerateWarning(QRegularExpression("^Sound interrupted: interval [1-4] of trial 1$"));
    }

    void trial_isWhole_andEndsOnce_whenTheServerStandsStill_data()
    {
        addColumns<int, int>("phase", "lengthMs");
        if (qEnvironmentVariableIsSet("QUORIN_ALL_STANDSTILLS")) {
            for (const int lengthMs : {500, 3000, 12000}) {
                for (size_t phase = 0; phase < std::size(phases); ++phase) {
                    QTest::addRow("%s, %d ms", phases[phase].name, lengthMs)
                        << int(phase) << lengthMs;
                }
            }
        } else {
            QTest::newRow("in the second sound, 3000 ms") << 5 << 3000;
            QTest::newRow("near the end of the second sound, 3000 ms") << 6 << 3000;
        }
    }

    void trial_isWhole_andEndsOnce_whenTheServerStandsStill()
    {
        QFETCH(int, phase);
        QFETCH(int, lengthMs);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        DisturbedTrial trial;
        const auto stopLater = [&] {
            QTimer::singleShot(phases[phase].afterMs, &trial.window,
                [this, lengthMs] { m_server.standStill(lengthMs); });
        };
        trial.disturb = [&](int state) {
            if (state == phases[phase].state) {
                stopLater();
            }
        };
        if (phases[phase].state == 0) {
            stopLater();
        }
        QVERIFY(trial.play());
        const QVector<SoundPlace> places = trial.placesIn(recorder.stop());
        QVERIFY2(!places.isEmpty(), qPrintable(trial.whatIsWrong()));
        QCOMPARE(trial.states().mid(0, 4), QVector<int>({1, 2, 3, 4}));
        QCOMPARE(trial.states().count(-1), 1);
        QCOMPARE(trial.states().constLast(), -1);
        QVERIFY(!Probe::timerPlay(trial.window)->isActive());
        QVERIFY(Probe::timerReaction(trial.window)->isValid());
    }

    // Qt does not report that the stream is gone, and the sound never ends.
    void soundWhoseSinkIsTaken_isTold_andHoldsNothingUp()
    {
        constexpr int patienceMs = 5000; // of a trial that waits for a sound's end
        tolerateWarning(QRegularExpression("^\"Stream error: "));
        announceWarning(stopped);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        DisturbedTrial trial;
        trial.disturb = [&](int state) {
            if (state == 2) {
                QTimer::singleShot(100, &trial.window, [this] {
                    m_server.removeSink();
                    m_server.addSink();
                });
            }
        };
        QVERIFY(trial.play());
        QCOMPARE(trial.states(), QVector<int>({1, 2, 3, 4, -1}));
        QVERIFY(trial.window.trialDisturbances().hasOutputFailed);
        QVERIFY(trial.window.trialDisturbances().worstLatenessMs < patienceMs);
    }

    // The next sound comes a whole period after the late one.
    void lateSounds_areTold_whenStartBlocks()
    {
        constexpr int lengthMs = 1500;
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        DisturbedTrial trial;
        QVector<qint64> startsMs;
        QElapsedTimer clock;
        clock.start();
        trial.disturb = [&](int state) {
            startsMs.append(clock.elapsed());
            if (state == 1) { // silent for the last 100 ms before the second sound is due
                QTimer::singleShot(800, &trial.window, [this] { m_server.standStill(lengthMs); });
            }
        };
        QVERIFY(trial.play());
        const QStringList late = messages().filter("Sound late: interval 2 of trial 1");
        QCOMPARE(late.size(), 1);
        const Disturbances& told = trial.window.trialDisturbances();
        QVERIFY(told.lateSounds >= 1);
        QVERIFY(told.worstLatenessMs > lengthMs / 2);
        QVERIFY(told.worstLatenessMs <= lengthMs + 1000);
        QCOMPARE(told.interruptedSounds, 0);
        // Nothing is earlier than a period after the one before.
        QVERIFY(startsMs[2] - startsMs[1]
            >= DisturbedTrial::soundMs + DisturbedTrial::defaultSilenceMs - 1);
        QVERIFY2(!trial.placesIn(recorder.stop()).isEmpty(), qPrintable(trial.whatIsWrong()));
    }

private:
    SoundServer m_server;
};

QUORIN_TEST(TestDisturbedServer);
#include "tst_disturbed_server.moc"
