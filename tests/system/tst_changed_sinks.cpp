// SPDX-License-Identifier: GPL-3.0-or-later
// The sink falls asleep between sounds, or another one becomes the default in the middle of a
// trial.
#include "soundlab/ChildProcess.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "system/DisturbedTrial.h"
#include "system/SoundLab.h"

#include <QAudioDeviceInfo>

#include <algorithm>
#include <cstring>

namespace {

const QString otherSink("other");

// A sink that writes what it plays into a pipe can sleep while it is recorded; a recorder of the
// server keeps a sink awake.
SoundServer::Settings settingsWithPipe(const QString& pipe)
{
    SoundServer::Settings settings;
    settings.moreModules = QStringList {
        QString("module-pipe-sink sink_name=%1 file=%2 format=float32le rate=40000 channels=1 "
                "use_system_clock_for_timing=yes")
            .arg(otherSink, pipe),
        "module-suspend-on-idle timeout=1"};
    return settings;
}

} // namespace

class TestChangedSinks : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        m_reader.setStandardOutputFile(m_folder.filePath("heard"));
        m_reader.start("cat", {m_folder.filePath("pipe")});
        QVERIFY(m_reader.waitForStarted());
    }

    void cleanupTestCase() { m_reader.end(); }

    void everySample_isPlayed_whenTheSinkSleepsBetweenSounds()
    {
        constexpr int silenceMs = 2500;
        m_server.setDefaultSink(otherSink);
        QTRY_COMPARE_WITH_TIMEOUT(
            QAudioDeviceInfo::defaultOutputDevice().deviceName(), otherSink, timeoutMs);
        QTRY_VERIFY_WITH_TIMEOUT(m_server.isSuspended(otherSink), timeoutMs);
        const int before = heard().size();
        int nSleeps = 0;
        DisturbedTrial trial(silenceMs);
        trial.disturb = [&](int state) { // the sound that was just started has not woken it yet
            nSleeps += state > 1 && m_slept ? 1 : 0;
            m_slept = false;
        };
        QTimer watch;
        connect(&watch, &QTimer::timeout, this,
            [&] { m_slept = m_slept || m_server.isSuspended(otherSink); });
        watch.start(200);
        QVERIFY(trial.play());
        QVERIFY2(!trial.placesIn(heard().mid(before)).isEmpty(), qPrintable(trial.whatIsWrong()));
        QCOMPARE(nSleeps, 3);
        QCOMPARE(trial.states(), QVector<int>({1, 2, 3, 4, -1}));
        QCOMPARE(trial.window.trialDisturbances().interruptedSounds, 0);
    }

    void everySample_isPlayed_whenTheDefaultSinkChanges()
    {
        m_server.setDefaultSink("lab");
        QTRY_COMPARE_WITH_TIMEOUT(
            QAudioDeviceInfo::defaultOutputDevice().deviceName(), QString("lab"), timeoutMs);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        const int before = heard().size();
        constexpr int silenceMs = 1000;
        constexpr int inTheSilenceMs = DisturbedTrial::soundMs + silenceMs / 2;
        DisturbedTrial trial(silenceMs);
        trial.disturb = [&](int state) {
            if (state == 2) { // between two sounds: the server would move one that plays
                QTimer::singleShot(
                    inTheSilenceMs, &trial.window, [this] { m_server.setDefaultSink(otherSink); });
            }
        };
        QVERIFY(trial.play());
        // The server moves the recorder along with the default.
        QVERIFY2(!trial.placesIn(recorder.stop()).isEmpty(), qPrintable(trial.whatIsWrong()));
        const QVector<float> onTheOther = heard().mid(before);
        const auto nHeard = std::count_if(
            onTheOther.cbegin(), onTheOther.cend(), [](float sample) { return sample != 0.0F; });
        QCOMPARE(int(nHeard), 2 * trial.sound(1).size());
        QCOMPARE(trial.states(), QVector<int>({1, 2, 3, 4, -1}));
    }

private:
    QVector<float> heard() const
    {
        QFile file(m_folder.filePath("heard"));
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        const QByteArray bytes = file.readAll();
        QVector<float> samples(bytes.size() / int(sizeof(float)));
        std::memcpy(samples.data(), bytes.constData(), size_t(samples.size()) * sizeof(float));
        return samples;
    }

    QTemporaryDir m_folder;
    SoundServer m_server {settingsWithPipe(m_folder.filePath("pipe"))};
    ChildProcess m_reader;
    bool m_slept = false;
};

QUORIN_TEST(TestChangedSinks);
#include "tst_changed_sinks.moc"
