// SPDX-License-Identifier: GPL-3.0-or-later
// A run on a real sound server: what the record says of each sound is what was heard.
#include "app/MainWindow.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "session/FlightRecorder.h"
#include "session/Recomputation.h"
#include "soundlab/RecordedSounds.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"
#include "support/TestProgram.h"
#include "support/WindowWidgets.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr int timeoutMs = 60000;
constexpr int shortestSilence = 1000; // samples: a quarter of a sound
constexpr int soundSamples = 4000; // 100 ms

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
    void record_tellsWhatWasHeard_andIsOnTheDiskBeforeTheNextSound()
    {
        SoundServer server;
        QVERIFY2(server.start(), qPrintable(server.errorText()));
        const QTemporaryDir folder;
        qsrand(11);
        MainWindow window;
        FlightRecorder recorder(window, folder.path(), 11);
        for (const char* field : {"lineEditStdDuration", "lineEditDevDuration"})
            type(window, field, "100");
        type(window, "lineEditSilentInterval", "150");
        type(window, "lineEditNReversals", "2");
        type(window, "lineEditNReversalsToCalc", "2");
        SoundRecorder microphone(server);
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
        QCOMPARE(read.run.begun.audio["server"].toObject()["sink"].toString(), QString("lab"));
    }
};

QUORIN_TEST(TestRecordedSession);
#include "tst_recorded_session.moc"
