// SPDX-License-Identifier: GPL-3.0-or-later
// The private sound server and its recorder give back what was played.
#include "soundlab/RecordedSounds.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

#include <limits>
#include <random>

namespace {

constexpr int rate = 40000;
constexpr int playTimeoutMs = 20000;
constexpr int shortestSilence = 10;

QAudioFormat monoFloat()
{
    QAudioFormat format;
    format.setSampleRate(rate);
    format.setChannelCount(1);
    format.setSampleSize(32);
    format.setCodec("audio/pcm");
    format.setByteOrder(QAudioFormat::LittleEndian);
    format.setSampleType(QAudioFormat::Float);
    return format;
}

// Noise in which no sample is zero, so that every single one is seen in a recording.
QVector<float> noise(int size)
{
    std::mt19937 generator(1);
    QVector<float> samples(size);
    for (float& sample : samples)
        sample = (float(generator() >> 8U) + 0.5F) / float(1U << 24U) - 0.5F;
    return samples;
}

bool play(const QVector<float>& samples)
{
    QByteArray bytes(
        reinterpret_cast<const char*>(samples.constData()), samples.size() * int(sizeof(float)));
    QBuffer buffer(&bytes);
    QAudioOutput output(monoFloat());
    if (!buffer.open(QIODevice::ReadOnly))
        return false;
    output.start(&buffer);
    const bool played
        = QTest::qWaitFor([&] { return output.state() == QAudio::IdleState; }, playTimeoutMs);
    output.stop();
    return played;
}

} // namespace

class TestSoundServer : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qUtf8Printable(m_server.errorText())); }

    void format_isSupported_whenTheServerRuns()
    {
        QVERIFY(QAudioDeviceInfo::defaultOutputDevice().isFormatSupported(monoFloat()));
    }

    void sound_comesBackBitForBit_whenPlayed_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("600 ms") << 24000;
        QTest::newRow("5 ms") << 200;
        QTest::newRow("1 sample") << 1;
    }

    void sound_comesBackBitForBit_whenPlayed()
    {
        QFETCH(int, size);
        const QVector<float> sound = noise(size);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        QVERIFY(play(sound));
        const QVector<float> recording = recorder.stop();
        const QVector<RecordedSound> sounds = recordedSounds(recording, shortestSilence);
        QCOMPARE(sounds.size(), 1);
        QCOMPARE(sounds.constFirst().length, size);
        QCOMPARE(locate(recording, sound), sounds.constFirst().begin);
    }

    void samples_comeBackBitForBit_whenTheyAreUnusual()
    {
        using Limits = std::numeric_limits<float>;
        QVector<float> sound(400, 0.25F);
        sound[10] = -0.0F;
        sound[20] = 1.5F;
        sound[30] = -1e30F;
        sound[40] = Limits::denorm_min();
        sound[50] = Limits::infinity();
        sound[60] = Limits::quiet_NaN();
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        QVERIFY(play(sound));
        QVERIFY(locate(recorder.stop(), sound) >= 0);
    }

    void sounds_comeBackInOrder_whenPlayedOneAfterTheOther()
    {
        const QVector<float> first = noise(4000);
        const QVector<float> second = noise(4000).mid(1000);
        SoundRecorder recorder(m_server, 20);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        QVERIFY(play(first));
        const qint64 between = recorder.sampleCount();
        QVERIFY(play(second));
        const QVector<float> recording = recorder.stop();
        QCOMPARE(recordedSounds(recording, shortestSilence).size(), 2);
        const int begin = locate(recording, first);
        QVERIFY(begin >= 0 && begin + first.size() <= between);
        QVERIFY(locate(recording, second, begin + first.size()) >= 0);
    }

    void recording_canBeRead_whileItGoesOn()
    {
        const QVector<float> sound = noise(400);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        const qint64 before = recorder.sampleCount();
        QVERIFY(play(sound));
        QTRY_VERIFY_WITH_TIMEOUT(locate(recorder.samples(before), sound) >= 0, playTimeoutMs);
        QCOMPARE(
            locate(recorder.samples(-1), sound), before + locate(recorder.samples(before), sound));
        QVERIFY(recorder.samples(recorder.sampleCount() + qint64(rate) * 3600).isEmpty());
    }

    void recording_isNew_whenTheRecorderIsStartedAgain()
    {
        const QVector<float> sound = noise(400);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        QVERIFY(play(sound));
        QVERIFY(locate(recorder.stop(), sound) >= 0);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        const QVector<float> silence = recorder.stop();
        QVERIFY(!silence.isEmpty());
        QVERIFY(recordedSounds(silence, 1).isEmpty());
    }

    void start_saysWhy_whenTheServerCannotRun()
    {
        SoundServer::Settings settings;
        settings.format = "no-such-format";
        SoundServer server(settings);
        const QByteArray address = qgetenv("PULSE_SERVER");
        QVERIFY(!server.start());
        QVERIFY(!server.isRunning());
        QVERIFY2(
            server.errorText().contains("module-null-sink"), qUtf8Printable(server.errorText()));
        QCOMPARE(qgetenv("PULSE_SERVER"), address);
        SoundRecorder recorder(server);
        QVERIFY(!recorder.start());
        QVERIFY2(recorder.errorText().contains("Connection"), qUtf8Printable(recorder.errorText()));
    }

    void start_saysWhy_whenTheProgramIsMissing()
    {
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        SoundServer server;
        const bool started = server.start();
        qputenv("PATH", path);
        QVERIFY(!started);
        QVERIFY2(server.errorText().startsWith("pulseaudio: "), qUtf8Printable(server.errorText()));
    }

    void recorder_givesWhatCame_whenTheServerIsKilled()
    {
        const QByteArray address = qgetenv("PULSE_SERVER");
        SoundServer server;
        QVERIFY(server.start());
        QCOMPARE(qgetenv("PULSE_SERVER"), server.address().toLocal8Bit());
        qputenv("PULSE_SERVER", address);
        SoundRecorder recorder(server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        server.kill();
        QVERIFY(!server.isRunning());
        QVERIFY(!recorder.stop().isEmpty());
    }

private:
    SoundServer m_server;
};

QUORIN_GUILESS_TEST(TestSoundServer);
#include "tst_sound_server.moc"
