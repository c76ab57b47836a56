// SPDX-License-Identifier: GPL-3.0-or-later
// The thread of the windows or the whole process stands still inside the sounds of a trial.
#include "soundlab/ChildProcess.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "system/DisturbedTrial.h"

#include <QLineEdit>

namespace {

constexpr int samplesPerMs = 40;
constexpr int samplesPerSound = samplesPerMs * DisturbedTrial::soundMs;

constexpr int blockMs = 5; // onsets are quantised to the server's blocks
// After a standstill of 200 to 220 ms, by how much was handed over last, the server's queue is
// empty for an instant, or nearly.
constexpr int nearlyQueueMs = 200;
constexpr int queueMs = 215;
constexpr int onTimeMs = 20; // a tick, and the first samples after it, are not late by 10 ms each

enum Standstill { ofTheThread, ofTheProcess };

void standStill(Standstill standstill, int ms)
{
    if (standstill == ofTheThread) {
        QThread::msleep(static_cast<unsigned long>(ms));
    } else {
        stopProcess(QCoreApplication::applicationPid(), ms);
    }
}

} // namespace

class TestInterruptedSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void init() override
    {
        QuietTest::init();
        tolerateWarning(QRegularExpression("^Sound interrupted: "));
    }

    void everySample_isPlayed_whenSomethingStandsStill_data()
    {
        addColumns<int, int, int>("standstill", "placeMs", "lengthMs");
        const bool all = qEnvironmentVariableIsSet("QUORIN_ALL_STANDSTILLS");
        const auto lengths
            = all ? QVector<int> {0, 100, nearlyQueueMs, 300, 500, 1000} : QVector<int> {500};
        const auto places = all ? QVector<int> {1, 300, 560} : QVector<int> {300};
        for (const int lengthMs : lengths) {
            for (const int placeMs : places) {
                QTest::addRow("thread for %d ms at %d ms", lengthMs, placeMs)
                    << int(ofTheThread) << placeMs << lengthMs;
                QTest::addRow("process for %d ms at %d ms", lengthMs, placeMs)
                    << int(ofTheProcess) << placeMs << lengthMs;
            }
        }
        if (all) {
            QTest::newRow("thread until the queue is empty") << int(ofTheThread) << 300 << queueMs;
            QTest::newRow("process until the queue is empty")
                << int(ofTheProcess) << 300 << queueMs;
        }
    }

    void everySample_isPlayed_whenSomethingStandsStill()
    {
        QFETCH(int, standstill);
        QFETCH(int, placeMs);
        QFETCH(int, lengthMs);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        DisturbedTrial trial;
        trial.disturb = [&](int state) {
            if (state > 0) {
                QTimer::singleShot(placeMs, Qt::PreciseTimer, &trial.window,
                    [=] { standStill(static_cast<Standstill>(standstill), lengthMs); });
            }
        };
        QVERIFY(trial.play());
        const QVector<SoundPlace> places = trial.placesIn(recorder.stop());
        QVERIFY2(!places.isEmpty(), qPrintable(trial.whatIsWrong()));
        QCOMPARE(trial.states(), QVector<int>({1, 2, 3, 4, -1}));
        verifyLines(interruptionLines(places, samplesPerSound), lengthMs);
        for (int i = 1; i < places.size(); ++i) {
            const int silence = places[i].begin - places[i - 1].end;
            const bool wasInterrupted = places[i - 1].length() > samplesPerSound;
            const int leastMs
                = DisturbedTrial::defaultSilenceMs - blockMs - (wasInterrupted ? 0 : onTimeMs);
            QVERIFY2(silence >= samplesPerMs * leastMs,
                qPrintable(QString("%1 samples before sound %2").arg(silence).arg(i + 1)));
        }
        verifyDisturbances(trial.window);
    }

private:
    // The program cannot know whether the server just avoided a gap: it tells every one, and where
    // the queue was empty for an instant perhaps others.
    void verifyLines(const QStringList& gaps, int lengthMs) const
    {
        const QStringList told = messages().filter("Sound interrupted");
        if (lengthMs != queueMs && lengthMs != nearlyQueueMs) {
            QCOMPARE(told, gaps);
        }
        for (const QString& gap : gaps) {
            QVERIFY2(told.contains(gap), qPrintable("not told: " + gap));
        }
    }

    void verifyDisturbances(const MainWindow& window)
    {
        const Disturbances& told = window.trialDisturbances();
        QCOMPARE(told.interruptedSounds, messages().filter("Sound interrupted").size());
        QCOMPARE(told.lateSounds, messages().filter("Sound late").size());
        QVERIFY(!told.hasOutputFailed);
    }

    SoundServer m_server;
};

QUORIN_TEST(TestInterruptedSounds);
#include "tst_interrupted_sounds.moc"
