// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound check on private servers, and the recipe for one ear on both kinds.
#include "SoundClients.h"
#include "SoundProgram.h"
#include "soundlab/PipeWireServer.h"
#include "soundlab/RecordedSounds.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"
#include "system/SoundLab.h"

#include <QTest>

#include <algorithm>

namespace {

SoundProgramEnd check(const Client& client, const QString& arguments = {})
{
    QProcess process;
    process.setProcessEnvironment(client.environment);
    process.start(SOUND_PROGRAM, QStringList("check") + arguments.split(' ', Qt::SkipEmptyParts));
    if (!process.waitForFinished(timeoutMs) || process.exitStatus() != QProcess::NormalExit) {
        return {-1, {}, process.errorString()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

/// A sound of one magnitude: any part of it is known from silence and from anything else.
QVector<float> knownSound()
{
    constexpr float magnitude = 0.25F;
    QVector<float> sound(8192); // eight of PipeWire's quanta
    for (int k = 0; k < sound.size(); ++k) {
        sound[k] = k / 7 % 2 == 0 ? magnitude : -magnitude;
    }
    return sound;
}

void play(const Client& client, const QVector<float>& sound)
{
    client.run("pacat", {"--rate", "48000", "--channels", "1", "--format", "float32le", "--raw"},
        QByteArray(
            reinterpret_cast<const char*>(sound.constData()), sound.size() * int(sizeof(float))));
}

bool isSilent(const QVector<float>& samples)
{
    return std::all_of(
        samples.cbegin(), samples.cend(), [](float sample) { return sample == 0.0F; });
}

bool isPartOfKnownSound(const QVector<float>& samples)
{
    return std::all_of(samples.cbegin(), samples.cend(),
        [](float sample) { return sample == 0.0F || std::abs(sample) == knownSound().first(); });
}

const char* const recipe
    = "load-module module-remap-sink sink_name=one_ear master=headphones channels=1 "
      "channel_map=mono master_channel_map=front-%1 remix=no";

void chooseEar(const Client& client, const QString& ear)
{
    if (ear == "both") {
        client.pactl("set-default-sink headphones");
        return;
    }
    client.pactl(QString(recipe).arg(ear));
    client.pactl("set-default-sink one_ear");
}

void addEars()
{
    QTest::addColumn<QString>("ear");
    QTest::addColumn<bool>("isLeft");
    QTest::addColumn<bool>("isRight");
    QTest::newRow("left") << "left" << true << false;
    QTest::newRow("right") << "right" << false << true;
    QTest::newRow("both") << "both" << true << true;
}

} // namespace

class TestSoundCheck : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_pulse.start(), qPrintable(m_pulse.errorText()));
        QVERIFY2(m_pipeWire.start(), qPrintable(m_pipeWire.errorText()));
        const QString headphones = "load-module module-null-sink sink_name=headphones rate=48000 "
                                   "channels=2 format=float32le";
        Client(m_pulse).pactl(headphones + " norewinds=1");
        Client(m_pipeWire).pactl(headphones);
        QTRY_VERIFY(Client(m_pipeWire).run("pactl", {"list", "short", "sinks"}).contains("headph"));
    }

    void cleanup() override
    {
        for (const Client& client : {Client(m_pulse), Client(m_pipeWire)}) {
            client.pactl("set-default-sink lab");
            client.pactl("unload-module module-remap-sink");
        }
        QuietTest::cleanup();
    }

    void rate_isThatOfTheOutput_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<QString>("verdict");
        QTest::newRow("40000") << 40000 << "fine  sampling rate   output 40000 Hz, sounds 40000 Hz";
        QTest::newRow("44100") << 44100 << "look  sampling rate   output 44100 Hz, sounds 40000 Hz";
        QTest::newRow("48000") << 48000 << "look  sampling rate   output 48000 Hz, sounds 40000 Hz";
    }

    void rate_isThatOfTheOutput()
    {
        QFETCH(int, rate);
        QFETCH(QString, verdict);
        const Client client(m_pulse);
        client.pactl(QString("load-module module-null-sink sink_name=at%1 rate=%1 format=s16le "
                             "channels=2")
                         .arg(rate));
        client.pactl(QString("set-default-sink at%1").arg(rate));
        const SoundProgramEnd end = check(client);
        QVERIFY2(end.output.contains(verdict), qPrintable(end.output));
        QVERIFY2(end.output.contains("fine  server          pulseaudio, version "),
            qPrintable(end.output));
        QVERIFY2(end.output.contains("look  sample format   s16le\n"), qPrintable(end.output));
        QCOMPARE(end.errors, QString());
        QCOMPARE(end.status, 0);
    }

    void volumeAndMute_areTold()
    {
        const Client client(m_pulse);
        client.pactl("set-sink-volume lab 40%");
        const QString quiet = check(client).output;
        QVERIFY2(quiet.contains("look  volume          mono 40 % (-23.9 dB)\n"), qPrintable(quiet));
        client.pactl("set-sink-mute lab 1");
        const SoundProgramEnd muted = check(client);
        QVERIFY2(muted.output.contains("stop  mute            on\n"), qPrintable(muted.output));
        QVERIFY2(muted.output.contains("-> pactl set-sink-mute lab 0\n"), qPrintable(muted.output));
        QCOMPARE(muted.status, 1);
        client.pactl("set-sink-mute lab 0");
        client.pactl("set-sink-volume lab 100%");
        QCOMPARE(check(client).status, 0);
    }

    void sleep_isTold()
    {
        const Client client(m_pulse);
        QVERIFY(check(client).output.contains("fine  sleep           off\n"));
        client.pactl("load-module module-suspend-on-idle");
        const QString asleep = check(client).output;
        QVERIFY2(asleep.contains("look  sleep           on\n"), qPrintable(asleep));
        client.pactl("unload-module module-suspend-on-idle"); // as the remedy has it
        QVERIFY(check(client).output.contains("fine  sleep           off\n"));
    }

    void sleep_isTold_onPipeWireToo()
    {
        const Client client(m_pipeWire);
        client.pactl("load-module module-null-sink sink_name=awake "
                     "sink_properties=session.suspend-timeout-seconds=0");
        QString checked = check(client).output;
        QVERIFY2(checked.contains("look  sleep           as the session manager has it\n"),
            qPrintable(checked));
        client.pactl("set-default-sink awake");
        QTRY_VERIFY2_WITH_TIMEOUT(
            (checked = check(client).output).contains("fine  sleep           off\n"),
            qPrintable(checked), timeoutMs);
    }

    void quantum_decidesWhetherTheEndIsPlayed()
    {
        const Client client(m_pipeWire);
        const QString force = "-n settings 0 clock.force-quantum ";
        client.run("pw-metadata", (force + "1024").split(' '));
        const SoundProgramEnd large = check(client, "--rate 48000 --duration 60");
        QVERIFY2(large.output.contains("fine  server          PulseAudio (on PipeWire "),
            qPrintable(large.output));
        QVERIFY2(large.output.contains("look  quantum         1024 samples (21.3 ms)\n"),
            qPrintable(large.output));
        QVERIFY2(
            large.output.contains("stop  end of a sound  the last 832 of 2880 samples are lost\n"),
            qPrintable(large.output));
        QCOMPARE(large.status, 1);
        client.run("pw-metadata", (force + "64").split(' '));
        const SoundProgramEnd small = check(client, "--rate 48000 --duration 60");
        QVERIFY2(small.output.contains("look  quantum         64 samples (1.3 ms)\n"),
            qPrintable(small.output));
        QVERIFY2(small.output.contains("fine  end of a sound  played\n"), qPrintable(small.output));
        QCOMPARE(small.status, 0);
    }

    void forcedRate_isSeen()
    {
        const Client client(m_pipeWire);
        const QString force = "-n settings 0 clock.force-rate ";
        client.run("pw-metadata", (force + "44100").split(' '));
        const SoundProgramEnd forced = check(client, "--rate 48000 --duration 60");
        client.run("pw-metadata", (force + "0").split(' '));
        QVERIFY2(forced.output.contains("look  sampling rate   output 44100 Hz, sounds 48000 Hz\n"),
            qPrintable(forced.output));
        const SoundProgramEnd free = check(client, "--rate 48000 --duration 60");
        QVERIFY2(free.output.contains("fine  sampling rate   output 48000 Hz, sounds 48000 Hz\n"),
            qPrintable(free.output));
    }

    void rule_forOurPrograms_isSeen()
    {
        const Client plain(m_pipeWire);
        plain.run("pw-metadata", {"-n", "settings", "0", "clock.force-quantum", "0"});
        const SoundProgramEnd without = check(plain, "--rate 48000 --duration 56");
        QVERIFY2(without.output.contains("look  quantum         2048 samples (42.7 ms)\n"),
            qPrintable(without.output));
        QCOMPARE(without.status, 1);
        PipeWireServer server(0, PIPEWIRE_RULE);
        QVERIFY2(server.start(), qPrintable(server.errorText()));
        const SoundProgramEnd with = check(Client(server), "--rate 48000 --duration 56");
        QVERIFY2(with.output.contains("fine  quantum         128 samples (2.7 ms)\n"),
            qPrintable(with.output));
        QCOMPARE(with.status, 0);
    }

    void server_thatIsNotThere_isAStop()
    {
        Client client(m_pulse);
        client.environment.insert("PULSE_SERVER", "unix:/nowhere/none");
        const SoundProgramEnd end = check(client);
        QVERIFY2(end.output.startsWith("stop  server          Connection refused\n"),
            qPrintable(end.output));
        QCOMPARE(end.status, 1);
    }

    void badOption_isNamed()
    {
        const SoundProgramEnd end = check(Client(m_pulse), "--rate 100");
        QCOMPARE(end.errors,
            QString("quorin-sound: --rate must be a whole number from 8000 to 192000, not "
                    "\"100\"\n"));
        QCOMPARE(end.status, 2);
    }

    void recipe_isTheGuides()
    {
        const QString guide = QString::fromUtf8(bytesOf(USER_GUIDE)).remove("\\\n").simplified();
        QVERIFY(
            guide.contains("pactl " + QString(recipe).arg("left").replace("headphones", "OUTPUT")
                + " pactl set-default-sink one_ear The right one is `front-right`."));
    }

    void oneEar_getsEverySample_theOtherNone_data() { addEars(); }

    void oneEar_getsEverySample_theOtherNone()
    {
        QFETCH(QString, ear);
        QFETCH(bool, isLeft);
        QFETCH(bool, isRight);
        const Client client(m_pulse);
        chooseEar(client, ear);
        const QString finding = ear == "both" ? "2 channels" : ear + " only";
        const QString checked = check(client).output;
        QVERIFY2(checked.contains("fine  ears            " + finding + '\n'), qPrintable(checked));
        const StereoRecorder recorder(client, "headphones.monitor");
        QTRY_VERIFY_WITH_TIMEOUT(recorder.hasBegun(), timeoutMs);
        const QVector<float> sound = knownSound();
        play(client, sound);
        QTRY_VERIFY_WITH_TIMEOUT(locate(recorder.channel(isLeft ? 0 : 1), sound) >= 0, timeoutMs);
        if (isLeft && isRight) {
            QVERIFY(locate(recorder.channel(1), sound) >= 0);
        } else {
            QVERIFY(isSilent(recorder.channel(isLeft ? 1 : 0)));
        }
    }

    // A busy machine may make PipeWire leave out a part: the places of samples are not compared.
    void oneEar_isAlone_onPipeWireToo_data() { addEars(); }

    void oneEar_isAlone_onPipeWireToo()
    {
        QFETCH(QString, ear);
        QFETCH(bool, isLeft);
        QFETCH(bool, isRight);
        const Client client(m_pipeWire);
        chooseEar(client, ear);
        const QString finding = ear == "both" ? "2 channels" : ear + " only";
        QString checked;
        QTRY_VERIFY2_WITH_TIMEOUT(
            (checked = check(client).output).contains("fine  ears            " + finding + '\n'),
            qPrintable(checked), timeoutMs);
        const StereoRecorder recorder(client, "headphones.monitor");
        QTRY_VERIFY_WITH_TIMEOUT(recorder.hasBegun(), timeoutMs);
        play(client, knownSound());
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(recorder.channel(isLeft ? 0 : 1)), timeoutMs);
        const QVector<float> left = recorder.channel(0);
        const QVector<float> right = recorder.channel(1);
        QVERIFY(isLeft ? isPartOfKnownSound(left) : isSilent(left));
        QVERIFY(isRight ? isPartOfKnownSound(right) : isSilent(right));
    }

private:
    SoundServer m_pulse;
    PipeWireServer m_pipeWire {1024};
};

QUORIN_GUILESS_TEST(TestSoundCheck);
#include "tst_sound_check.moc"
