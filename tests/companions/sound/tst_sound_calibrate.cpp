// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound calibrate as a user starts it, on a private server that records what is played.
#include "CalibrateProgram.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>

namespace {

constexpr double durationMs = 300.0;

double levelDb(const QVector<float>& samples, int begin, int count)
{
    double sum = 0.0;
    for (int i = begin; i < begin + count; ++i) {
        sum += double(samples[i]) * double(samples[i]);
    }
    return 10.0 * std::log10(sum / count);
}

void row(const char* options, const char* error)
{
    QTest::newRow(options) << options << error;
}

} // namespace

class TestSoundCalibrate : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        Client(m_server).pactl("load-module module-null-sink sink_name=headphones rate=40000 "
                               "channels=2 format=float32le norewinds=1");
    }

    void init() override
    {
        QuietTest::init();
        QVERIFY2(m_server.isRunning(), qPrintable(m_server.errorText()));
    }

    void cleanup() override
    {
        Client(m_server).pactl("set-default-sink lab");
        Client(m_server).pactl("set-sink-volume headphones 100%");
        QuietTest::cleanup();
    }

    void mistake_isNamed_beforeAnythingIsPlayed_data()
    {
        QTest::addColumn<QString>("options");
        QTest::addColumn<QString>("error");
        row("--level -19.9", R"(--level must be a number from -90 to -20, not "-19.9")");
        row("--level -3 --allow-loud",
            R"(--level must be a number from -90 to -3.010299957, not "-3")");
        row("--step 6.1", R"(--step must be a number from 0.1 to 6, not "6.1")");
        row("--step 0", R"(--step must be a number from 0.1 to 6, not "0")");
        row("--duration 10001", R"(--duration must be a number from 200 to 10000, not "10001")");
        row("--duration 199", R"(--duration must be a number from 200 to 10000, not "199")");
        row("--frequency 18001", R"(--frequency must be a number from 20 to 18000, not "18001")");
        row("--frequency 500 --noise", "--frequency goes without --noise");
        row("--rate 100", R"(--rate must be a whole number from 8000 to 192000, not "100")");
        row("--ear middle", R"(--ear must be both, left or right, not "middle")");
        row("--weighting B", R"(--weighting must be A, C or Z, not "B")");
        row("--reading 130", R"(--reading must be a number from 20 to 120, not "130")");
        row("/nowhere", "one folder is wanted, not also \"");
    }

    void mistake_isNamed_beforeAnythingIsPlayed()
    {
        QFETCH(QString, options);
        QFETCH(QString, error);
        Calibration calibration(m_server, options);
        const SoundProgramEnd end = calibration.end();
        QVERIFY2(end.errors.startsWith("quorin-sound: " + error), qPrintable(end.errors));
        QCOMPARE(end.output, QString());
        QCOMPARE(end.status, 2);
    }

    void folder_mustBeThere()
    {
        QCOMPARE(
            runSoundProgram({"calibrate"}).errors, QString("quorin-sound: no folder is given\n"));
        QCOMPARE(runSoundProgram({"calibrate", "/nowhere"}).errors,
            QString("quorin-sound: /nowhere: is no folder\n"));
    }

    void tone_isPlayedAtItsLevel_underItsRamps()
    {
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        Calibration calibration(m_server, "--duration 300 --reading 70 --weighting C");
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.errors,
            QString("quorin-sound: the sounds reach 97.0 dB SPL, above 85: turn the volume down "
                    "and calibrate again\n"));
        QCOMPARE(end.status, 0);
        const QVector<float> heard = withoutZeros(microphone.stop());
        QCOMPARE(heard, expectedSamples({false, 1000.0, 40000, durationMs}, -30.0));
        // Two of a period's 40 samples are (nearly) zero, which may leave them out.
        constexpr int ramp = 2000;
        constexpr double tolerance = 0.1; // dB; it leaves out a tone's zeros
        const int nSteady = heard.size() - 2 * ramp;
        QVERIFY(std::abs(levelDb(heard, ramp, nSteady) + 30.0) < tolerance);
        QVERIFY(levelDb(heard, 0, ramp / 4) < -45.0);
    }

    void loudStart_isPlayed_whenItIsAllowed()
    {
        Calibration calibration(m_server, "--allow-loud --level -10 --duration 200 --reading 50");
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.errors, QString());
        QCOMPARE(end.status, 0);
        QCOMPARE(calibration.note().levelDb, -10.0);
    }

    void note_hasAllThatTheReadingHangsOn()
    {
        Client(m_server).pactl("set-default-sink headphones");
        Client(m_server).pactl("set-sink-volume headphones 40% 60%");
        Calibration calibration(m_server,
            "--duration 300 --noise --ear right --rate 44100 --level -40 --reading 40.5",
            {"--remark", "coupler 3"});
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.errors, QString());
        QCOMPARE(end.status, 0);
        QCOMPARE(calibration.notes().size(), 1);
        static const QRegularExpression newName(R"(^calibration_\d{8}-\d{6}_001\.json$)");
        QVERIFY2(
            newName.match(calibration.notes()[0]).hasMatch(), qPrintable(calibration.notes()[0]));
        const CalibrationNote note = calibration.note();
        QCOMPARE(faultOf(note), QString());
        QCOMPARE(note.program, QString("quorin-sound " QUORIN_VERSION));
        QCOMPARE(note.outputs.size(), 1);
        QCOMPARE(note.outputs[0].name, QString("headphones"));
        QCOMPARE(qRound(note.outputs[0].volumes.value(0)), 40);
        QCOMPARE(qRound(note.outputs[0].volumes.value(1)), 60);
        QCOMPARE(note.ear, QString("right"));
        QCOMPARE(note.sound, QString("noise"));
        QVERIFY(!note.frequency.has_value());
        QCOMPARE(note.rate, 44100);
        QCOMPARE(note.levelDb, -40.0);
        QCOMPARE(note.readingDb, 40.5);
        QCOMPARE(note.weighting, QString("Z"));
        QCOMPARE(note.remark, QString("coupler 3"));
    }

    void ear_isTheOnlyOneThatIsPlayed_data()
    {
        QTest::addColumn<int>("channel");
        QTest::newRow("left") << 0;
        QTest::newRow("right") << 1;
    }

    void ear_isTheOnlyOneThatIsPlayed()
    {
        QFETCH(int, channel);
        const Client client(m_server);
        client.pactl("set-default-sink headphones");
        const StereoRecorder recorder(client, "headphones.monitor", 40000);
        QTRY_VERIFY_WITH_TIMEOUT(recorder.hasBegun(), calibrationTimeoutMs);
        Calibration calibration(m_server,
            QString("--duration 300 --reading 50 --ear %1").arg(channel == 0 ? "left" : "right"));
        QCOMPARE(calibration.end().status, 0);
        const QVector<float> expected = expectedSamples({false, 1000.0, 40000, durationMs}, -30.0);
        QTRY_COMPARE_WITH_TIMEOUT(
            withoutZeros(recorder.channel(channel)).size(), expected.size(), calibrationTimeoutMs);
        QCOMPARE(withoutZeros(recorder.channel(channel)), expected);
        QCOMPARE(withoutZeros(recorder.channel(1 - channel)), QVector<float>());
    }

    void outputThatCannotPlay_isRefused()
    {
        Calibration oneEar(m_server, "--ear left --reading 50");
        QCOMPARE(oneEar.end().errors,
            QString("quorin-sound: the output lab has one channel: it cannot play to one ear\n"));
        Client(m_server).pactl("set-sink-mute lab 1");
        Calibration muted(m_server, "--reading 50");
        const SoundProgramEnd end = muted.end();
        Client(m_server).pactl("set-sink-mute lab 0");
        QCOMPARE(
            end.errors, QString("quorin-sound: the output is muted: pactl set-sink-mute lab 0\n"));
        QCOMPARE(end.status, 1);
        Client(m_server).pactl("set-sink-volume lab 101%");
        Calibration amplified(m_server, "--reading 50");
        const SoundProgramEnd clipped = amplified.end();
        Client(m_server).pactl("set-sink-volume lab 100%");
        QCOMPARE(clipped.errors,
            QString("quorin-sound: the output's volume is above 100 %: pactl set-sink-volume lab "
                    "100%\n"));
        const SoundServer none; // that was never started
        Calibration lost(none, "--reading 50");
        QVERIFY(lost.end().errors.startsWith(
            "quorin-sound: the sound server does not tell its output and volume: "));
    }

private:
    SoundServer m_server {SoundServer::copyingSettings()};
};

QUORIN_GUILESS_TEST(TestSoundCalibrate);
#include "tst_sound_calibrate.moc"
