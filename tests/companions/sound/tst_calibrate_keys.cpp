// SPDX-License-Identifier: GPL-3.0-or-later
// The questions and keys of quorin-sound calibrate, on a private server that records what is
// played.
#include "CalibrateProgram.h"
#include "soundlab/SoundRecorder.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

namespace {

constexpr int mostTries = 5;

/// Holds Return down until a first sound of 200 ms has been heard, and for a second more.
/// @return whether its keys came as fast as those of a key that is held
bool holdReturn(const Terminal& terminal, const SoundRecorder& microphone)
{
    constexpr int betweenMs = 20;
    constexpr int slowMs = 600;
    const int nSamples = expectedSamples({false, 1000.0, 40000, 200.0}, -30.0).size();
    qint64 longestMs = 0;
    QElapsedTimer sinceKey;
    sinceKey.start();
    for (int nAfter = 0, n = 0; nAfter < 1000 / betweenMs && n < calibrationTimeoutMs / betweenMs;
         ++n) {
        terminal.type("\n");
        longestMs = std::max(longestMs, sinceKey.restart());
        nAfter += withoutZeros(microphone.samples()).size() < nSamples ? 0 : 1;
        QThread::msleep(betweenMs);
    }
    return longestMs < slowMs;
}

} // namespace

class TestCalibrateKeys : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void init() override
    {
        QuietTest::init();
        QVERIFY2(m_server.isRunning(), qPrintable(m_server.errorText()));
    }

    void cleanup() override
    {
        Client(m_server).pactl("set-sink-volume lab 100%");
        QuietTest::cleanup();
    }

    void dialogue_raisesTheLevel_andTakesTheReading()
    {
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        const Terminal terminal;
        Calibration calibration(m_server, "--duration 200 --level -40 --step 6", {}, &terminal);
        QVERIFY(calibration.waitForOutput("-40.0 dB: Return plays it, q ends: "));
        QVERIFY(terminal.type("\n"));
        QVERIFY(calibration.waitForOutput("-40.0 dB: the meter's reading"));
        QVERIFY(terminal.type("\n"));
        QVERIFY(calibration.waitForOutput("-34.0 dB: the meter's reading"));
        QVERIFY(terminal.type("abc\n50\nmy remark\n"));
        const SoundProgramEnd end = calibration.end();
        QVERIFY(end.output.contains("\"abc\" is no reading: 20 to 120 dB SPL\n"));
        QCOMPARE(end.status, 0);
        QCOMPARE(calibration.note().levelDb, -34.0);
        QCOMPARE(calibration.note().readingDb, 50.0);
        QCOMPARE(calibration.note().remark, QString("my remark"));
        const CalibrationSound sound {false, 1000.0, 40000, 200.0};
        QCOMPARE(withoutZeros(microphone.stop()),
            expectedSamples(sound, -40.0) + expectedSamples(sound, -34.0));
    }

    void keysTypedAhead_raiseNoLevel()
    {
        const Terminal terminal;
        QVERIFY(terminal.type("\n\n\n\n"));
        Calibration calibration(m_server, "--duration 200", {}, &terminal);
        QVERIFY(calibration.waitForOutput("-30.0 dB: the meter's reading"));
        QVERIFY(terminal.type("50\nmy remark\n"));
        const SoundProgramEnd end = calibration.end();
        QVERIFY2(!end.output.contains("-27.0 dB: "), qPrintable(end.output));
        QCOMPARE(end.status, 0);
        QCOMPARE(calibration.note().levelDb, -30.0);
        QCOMPARE(calibration.note().remark, QString("my remark"));
    }

    void heldReturn_raisesNoLevel()
    {
        bool isHeld = false;
        for (int i = 0; i < mostTries && !isHeld; ++i) {
            SoundRecorder microphone(m_server);
            QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
            const Terminal terminal;
            Calibration calibration(m_server, "--duration 200", {}, &terminal);
            isHeld = holdReturn(terminal, microphone);
            if (!isHeld) {
                continue;
            }
            QVERIFY(calibration.waitForOutput("-30.0 dB: the meter's reading"));
            QVERIFY(terminal.type("50\nmy remark\n"));
            const SoundProgramEnd end = calibration.end();
            QVERIFY2(!end.output.contains("-27.0 dB: "), qPrintable(end.output));
            QCOMPARE(end.status, 0);
        }
        QVERIFY2(isHeld, "the keys did not come one right after the other");
    }

    void emptyLinesOfAPipe_raiseNoLevel()
    {
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        Calibration calibration(m_server, "--duration 200");
        calibration.type(QByteArray(1000, '\n'));
        const SoundProgramEnd end = calibration.end();
        QVERIFY2(end.output.endsWith("Return raises the level only on a terminal\n"),
            qPrintable(end.output));
        QCOMPARE(end.errors, QString("quorin-sound: no note was written\n"));
        QCOMPARE(end.status, 1);
        QCOMPARE(
            withoutZeros(microphone.stop()), expectedSamples({false, 1000.0, 40000, 200.0}, -30.0));
    }

    void longLine_isRefused()
    {
        Calibration calibration(m_server, "--duration 200");
        calibration.type("\n50\n" + QByteArray(4097, 'x') + '\n');
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.errors,
            QString("quorin-sound: a line is longer than 4096 bytes\n"
                    "quorin-sound: no note was written\n"));
        QCOMPARE(end.status, 1);
        Calibration shorter(m_server, "--duration 200");
        shorter.type("\n50\n" + QByteArray(4096, 'x') + '\n');
        QCOMPARE(shorter.end().status, 0);
        QCOMPARE(shorter.note().remark, QString(4096, 'x'));
    }

    void volumeAboveFull_setAtTheQuestion_playsNothing()
    {
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        Calibration calibration(m_server, "--duration 200");
        QVERIFY(calibration.waitForOutput("-30.0 dB: Return plays it, q ends: "));
        Client(m_server).pactl("set-sink-volume lab 150%");
        calibration.type("\n");
        const SoundProgramEnd end = calibration.end();
        QVERIFY2(end.output.contains("the output's volume is above 100 %: pactl set-sink-volume "
                                     "lab 100%\n"),
            qPrintable(end.output));
        QCOMPARE(end.errors, QString("quorin-sound: no note was written\n"));
        QCOMPARE(end.status, 1);
        QCOMPARE(withoutZeros(microphone.stop()), QVector<float>());
    }

    void lostServer_isTold_andAskedForAgain()
    {
        SoundServer server {SoundServer::copyingSettings()};
        QVERIFY2(server.start(), qPrintable(server.errorText()));
        const Terminal terminal;
        Calibration calibration(server, "", {}, &terminal);
        QVERIFY(terminal.type("\n"));
        QTRY_VERIFY_WITH_TIMEOUT(
            Client(server).run("pactl", {"list", "short", "sink-inputs"}).contains("float32le"),
            calibrationTimeoutMs);
        server.kill();
        const QByteArray question = "-30.0 dB: Return plays it, q ends: ";
        QVERIFY(calibration.waitForOutput(question, 2));
        QVERIFY(terminal.type("\n"));
        QVERIFY(calibration.waitForOutput(question, 3));
        QVERIFY(terminal.type("q\n"));
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.output.count("the sound server does not tell its output and volume: "), 2);
        QCOMPARE(end.errors, QString("quorin-sound: no note was written\n"));
        QCOMPARE(end.status, 1);
        QCOMPARE(calibration.notes(), QStringList());
    }

    void interrupt_stopsTheSound_andWritesNothing()
    {
        SoundRecorder microphone(m_server);
        QVERIFY2(microphone.start(), qPrintable(microphone.errorText()));
        Calibration calibration(m_server, "");
        calibration.type("\n");
        QTRY_VERIFY_WITH_TIMEOUT(
            !withoutZeros(microphone.samples()).isEmpty(), calibrationTimeoutMs);
        calibration.interrupt();
        QCOMPARE(calibration.end().status, -1);
        const int tenthOfASecond = 4000;
        QTRY_VERIFY_WITH_TIMEOUT(
            withoutZeros(microphone.samples(microphone.sampleCount() - tenthOfASecond)).isEmpty(),
            calibrationTimeoutMs);
        const CalibrationSound sound;
        QVERIFY(withoutZeros(microphone.stop()).size() < expectedSamples(sound, -30.0).size());
        QCOMPARE(calibration.notes(), QStringList());
    }

    void end_withoutAReading_writesNothing()
    {
        Calibration calibration(m_server, "");
        calibration.type("q\n");
        const SoundProgramEnd end = calibration.end();
        QCOMPARE(end.errors, QString("quorin-sound: no note was written\n"));
        QCOMPARE(end.status, 1);
        QCOMPARE(calibration.notes(), QStringList());
    }

private:
    SoundServer m_server {SoundServer::copyingSettings()};
};

QUORIN_GUILESS_TEST(TestCalibrateKeys);
#include "tst_calibrate_keys.moc"
