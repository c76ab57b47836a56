// SPDX-License-Identifier: GPL-3.0-or-later
// Runs on a real sound server: what the record says of each sound is what was heard, and the loss
// of the server is told.
#include "app/MainWindow.h"
#include "drivers/RunDriver.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "session/FlightRecorder.h"
#include "session/Recomputation.h"
#include "soundlab/RecordedSounds.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/AudioWarnings.h"
#include "support/Files.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"
#include "support/TestProgram.h"
#include "support/WindowWidgets.h"
#include "system/SoundLab.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <memory>

namespace {

constexpr int shortestSilence = 1000; // samples: a quarter of a sound
constexpr int soundSamples = 4000; // 100 ms

QStringList digestsOf(const QVector<float>& recording)
{
    QStringList digests;
    for (const RecordedSound& sound : recordedSounds(recording, shortestSilence)) {
        const auto* const first
            = reinterpret_cast<const char*>(recording.constData() + sound.begin);
        const QByteArray bytes(first, sound.length * int(sizeof(float)));
        digests.append(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
    }
    return digests;
}

} // namespace

class TestRecordedSession : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void record_tellsWhatWasHeard_andIsOnTheDiskBeforeTheNextSound()
    {
        const QTemporaryDir folder;
        qsrand(11);
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        typeShortRun(window);
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));

        QVector<int> onDisk; // sounds whose lines are there when the next one starts
        connect(&window, &MainWindow::soundPlaying, this, [&](int state) {
            if (state > 0) {
                const QString path = QDir(folder.path()).filePath(recorder.recordName());
                onDisk.append(contentOf(path).count(R"("event":"sound")"));
            }
        });
        ScriptedListener listener(window, "cwc");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), timeoutMs);
        const QVector<float> recording = microphone.stop();

        const ReadRecord read = readRecordFile(folder.filePath(recorder.recordName()));
        QCOMPARE(read.error, QString());
        QStringList digests;
        QVector<int> before;
        for (const RecordedTrial& trial : read.run.trials) {
            QCOMPARE(trial.ends.size(), 4);
            for (const SoundStarted& sound : trial.sounds) {
                before.append(digests.size());
                digests.append(sound.sha256);
            }
        }
        QCOMPARE(digests.size(), 12);
        QCOMPARE(onDisk, before);
        QCOMPARE(digestsOf(recording), digests);
        QCOMPARE(recordedSounds(recording, shortestSilence)[0].length, soundSamples);
        QCOMPARE(differencesOf(read.run), QStringList());
        QCOMPARE(contradictionOf(read.run).text, QString());
        const QJsonObject sink = read.run.begun.audio["server"].toObject();
        QCOMPARE(sink["sink"].toString(), QString("lab"));
        QCOMPARE(sink["sink_format"].toString(), QString("float32le 1ch 40000Hz"));
    }

    void interruptedSound_hasItsLine()
    {
        tolerateWarning(QRegularExpression("^Sound (interrupted|late): "));
        const QTemporaryDir folder;
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        typeShortRun(window);
        for (const char* field : {"lineEditStdDuration", "lineEditDevDuration"})
            type(window, field, "600");
        connect(&window, &MainWindow::soundPlaying, this, [&](int state) {
            if (state == 2)
                QTimer::singleShot(100, this, [] { QThread::msleep(450); });
        });
        ScriptedListener listener(window, "c");
        listener.stopAfter(1);
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), timeoutMs);
        recorder.close(); // as at the program's end

        const ReadRecord read = readRecordFile(folder.filePath(recorder.recordName()));
        QCOMPARE(read.error, QString());
        const RecordedTrial& trial = read.run.trials.constFirst();
        QCOMPARE(trial.interruptions.size(), 1);
        QCOMPARE(trial.interruptions[0].interval, 2);
        QCOMPARE(trial.ends.size(), 4);
        QVERIFY(trial.ends[1].isInterrupted);
    }

    // The samples need 10 s: the device goes while they are played.
    void trial_isEndedFromOutside_whenItsDeviceWasPulledOut()
    {
        tolerateWarning(QRegularExpression("^\"Stream error: "));
        announceWarning(stopped);
        const QTemporaryDir folder;
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        const QSignalSpy lost(&recorder, &FlightRecorder::trialLost);
        RunDriver driver(window);
        for (const char* field : {"lineEditStdDuration", "lineEditDevDuration"})
            type(window, field, "10000");
        type(window, "lineEditSamplingRate", "8000");
        driver.begin();
        for (int i = 0; i < 3; ++i) {
            driver.startSound();
            driver.endSound();
        }
        driver.startSound();
        m_server.removeSink();
        tickSoon(window);
        QTRY_VERIFY_WITH_TIMEOUT(!lost.isEmpty(), timeoutMs);
        m_server.addSink();
        QTRY_VERIFY_WITH_TIMEOUT(!QAudioDeviceInfo::defaultOutputDevice().isNull(), timeoutMs);
        recorder.endLostTrial();
        driver.answer(2);
        recorder.close(); // as at the program's end

        const ReadRecord read = readRecordFile(folder.filePath(recorder.recordName()));
        QCOMPARE(read.error, QString());
        QCOMPARE(read.run.trials[0].ends.size(), 4);
        QVERIFY(read.run.trials[0].answer->hasOutputFailed);
    }

    void run_goesOn_whereTheServerIsLostInAFourthSoundAndComesBack()
    {
        tolerateLoss();
        m_successor = std::make_unique<SoundServer>();
        QVERIFY2(m_successor->start(), qPrintable(m_successor->errorText()));
        const QTemporaryDir folder;
        qsrand(11);
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        const QSignalSpy lost(&recorder, &FlightRecorder::trialLost);
        typeShortRun(window);
        int nTrials = 0;
        connect(&window, &MainWindow::soundPlaying, this, [&](int state) {
            nTrials += int(state == 1);
            if (state == 4 && nTrials < 3)
                tickSoon(window); // in the first trial the sound is not lost
            if (state == 4 && nTrials == 2)
                m_server.kill();
        });
        ScriptedListener listener(window, "cwc");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(!lost.isEmpty(), timeoutMs);
        QCOMPARE(lost[0], QVariantList {2});
        SoundRecorder microphone(*m_successor);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        QTRY_VERIFY_WITH_TIMEOUT(canPlay(), timeoutMs);
        recorder.endLostTrial();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), timeoutMs);

        const ReadRecord read = readRecordFile(folder.filePath(recorder.recordName()));
        QCOMPARE(read.error, QString());
        QVERIFY(std::holds_alternative<RunSaved>(read.run.end));
        QStringList digests;
        for (const SoundStarted& sound : read.run.trials[2].sounds)
            digests.append(sound.sha256);
        QCOMPARE(digestsOf(microphone.stop()), digests);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(read.run.trials[i].answer->hasOutputFailed, i == 1);
        QCOMPARE(differencesOf(read.run), QStringList());
        QCOMPARE(contradictionOf(read.run).text, QString());
    }

    // The last test: there is no server after it.
    void everyTrial_isLost_whereTheServerStaysAway()
    {
        tolerateLoss();
        const QTemporaryDir folder;
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        typeShortRun(window);
        int nTrials = 0;
        connect(&window, &MainWindow::soundPlaying, this, [&](int state) {
            nTrials += int(state == 1);
            if (state == 2 && nTrials == 2)
                m_successor->kill();
            if (state == 4 && nTrials >= 2)
                tickSoon(window);
        });
        const QSignalSpy lost(&recorder, &FlightRecorder::trialLost);
        ScriptedListener listener(window, "cwc");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(lost.contains(QVariantList {2}), timeoutMs);
        recorder.endLostTrial();
        QTRY_VERIFY_WITH_TIMEOUT(lost.contains(QVariantList {3}), timeoutMs);
        recorder.close(); // as at the program's end

        const ReadRecord read = readRecordFile(folder.filePath(recorder.recordName()));
        QCOMPARE(read.error, QString());
        QVERIFY(std::holds_alternative<RunAbandoned>(read.run.end));
        QCOMPARE(read.run.trials.size(), 3);
        QVERIFY(!read.run.trials[0].answer->hasOutputFailed);
        QVERIFY(read.run.trials[1].answer->hasOutputFailed);
        QVERIFY(!read.run.trials[2].answer);
    }

private:
    static void typeShortRun(MainWindow& window)
    {
        for (const char* field : {"lineEditStdDuration", "lineEditDevDuration"})
            type(window, field, "100");
        type(window, "lineEditSilentInterval", "150");
        type(window, "lineEditNReversals", "2");
        type(window, "lineEditNReversalsToCalc", "2");
    }

    // Seconds are not waited for: a tick follows the fourth sound at once.
    static void tickSoon(MainWindow& window) { Probe::timerPlay(window)->setInterval(10); }

    void tolerateLoss()
    {
        tolerateWarning(anyStopped);
        tolerateWarning(QRegularExpression("^\"Stream error: "));
        tolerateWarning(QRegularExpression("^PulseAudioService: "));
        tolerateWarning(QRegularExpression("^Sound (interrupted|late): "));
    }

    // Qt looks for a server 3 s after it lost one.
    static bool canPlay()
    {
        QAudioOutput output(QAudioDeviceInfo::defaultOutputDevice().preferredFormat());
        output.start();
        return output.state() != QAudio::StoppedState;
    }

    SoundServer m_server;
    std::unique_ptr<SoundServer> m_successor;
};

QUORIN_TEST(TestRecordedSession);
#include "tst_recorded_session.moc"
