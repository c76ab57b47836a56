// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound measure on private servers, which it leaves as they were, and the settings that the
// guide advises.
#include "SoundProgram.h"
#include "soundlab/ChildProcess.h"
#include "soundlab/PipeWireServer.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"
#include "system/SoundLab.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

namespace {

constexpr double smallLossDb = 0.1;
const char* const pipeWireQuality = "stream.properties = { resample.quality = 10 }";
const char* const pulseMethod = "resample-method = speex-float-5";

template <typename Server> QProcessEnvironment environmentOf(const Server& server)
{
    QProcessEnvironment environment = server.environment();
    environment.insert("PULSE_SERVER", server.address());
    return environment;
}

QString pactl(const QProcessEnvironment& environment, const QString& command)
{
    ChildProcess process;
    process.setProcessEnvironment(environment);
    process.start("pactl", command.split(' '));
    process.waitForFinished(timeoutMs);
    return process.readAllStandardOutput();
}

/// What a measurement must leave as it was.
QString stateOf(const QProcessEnvironment& environment)
{
    static const QRegularExpression line("Default Sink: .*");
    return line.match(pactl(environment, "info")).captured() + '\n'
        + pactl(environment, "list short modules");
}

/// quorin-sound measure, as it runs.
class Measuring {
public:
    Measuring(const QProcessEnvironment& environment, const QString& arguments)
        : m_environment(environment)
    {
        m_process.setProcessEnvironment(environment);
        m_process.start(SOUND_PROGRAM, QStringList("measure") + arguments.split(' '));
    }

    SoundProgramEnd end()
    {
        if (!m_process.waitForFinished(timeoutMs)
            || m_process.exitStatus() != QProcess::NormalExit) {
            return {-1, {}, m_process.errorString()};
        }
        return {m_process.exitCode(), m_process.readAllStandardOutput(),
            m_process.readAllStandardError()};
    }

    bool isPlaying() const
    {
        return pactl(m_environment, "list short sink-inputs").contains("float32le");
    }

    void askToEnd() const { ::kill(static_cast<pid_t>(m_process.processId()), SIGTERM); }

    /// Interrupts until it has ended.
    /// @return whether a signal ended it, not the program itself
    bool isEndedBySignal()
    {
        constexpr int betweenMs = 100;
        while (m_process.state() == QProcess::Running) {
            ::kill(static_cast<pid_t>(m_process.processId()), SIGINT);
            m_process.waitForFinished(betweenMs);
        }
        return m_process.exitStatus() == QProcess::CrashExit;
    }

private:
    QProcessEnvironment m_environment;
    ChildProcess m_process;
};

/// A measurement on a server of its own, which may be killed.
struct MeasuringAlone {
    SoundServer server;
    std::unique_ptr<Measuring> measuring;

    /// @return whether its sounds are being played
    bool begin()
    {
        if (!server.start()) {
            return false;
        }
        measuring = std::make_unique<Measuring>(environmentOf(server), "--rate 40000");
        return QTest::qWaitFor([this] { return measuring->isPlaying(); }, timeoutMs);
    }
};

SoundProgramEnd measured(const QProcessEnvironment& environment, const QString& arguments)
{
    return Measuring(environment, arguments).end();
}

/// -1: none was told.
double lossDb(const SoundProgramEnd& end)
{
    static const QRegularExpression loss("largest loss up to 16000 Hz +([0-9.]+) dB");
    const QRegularExpressionMatch match = loss.match(end.output);
    return match.hasMatch() ? match.captured(1).toDouble() : -1.0;
}

constexpr int mostMeasurements = 3;

/// On a busy machine a server may leave out a part.
bool arrivedWhole(const SoundProgramEnd& end)
{
    return end.output.contains("bit for bit\n") && end.output.count("whole\n") == 2;
}

/// That of a measurement whose sounds arrived whole.
double toldLossDb(const QProcessEnvironment& environment, const QString& arguments)
{
    double loss = -1.0;
    for (int i = 0; i < mostMeasurements && loss < 0.0; ++i) {
        loss = lossDb(measured(environment, arguments));
    }
    return loss;
}

/// The smallest of some measurements: where a busy machine makes a server leave out a part, a level
/// is lower than by the server's settings.
double smallestLossDb(const QProcessEnvironment& environment, const QString& arguments)
{
    double smallest = lossDb(measured(environment, arguments));
    for (int i = 1; i < mostMeasurements && !(smallest >= 0.0 && smallest < smallLossDb); ++i) {
        const double loss = lossDb(measured(environment, arguments));
        smallest = smallest < 0.0 ? loss : std::min(smallest, loss);
    }
    return smallest;
}

} // namespace

class TestSoundMeasure : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void sameRate_leavesEverySample()
    {
        const QTemporaryDir folder;
        const QString files = QString("--rate 40000 --force --csv %1 --plot %2")
                                  .arg(folder.filePath("a.csv"), folder.filePath("a.png"));
        const QProcessEnvironment environment = environmentOf(m_server);
        const QString before = stateOf(environment);
        SoundProgramEnd end = measured(environment, files);
        for (int i = 1; i < mostMeasurements && !arrivedWhole(end); ++i) {
            end = measured(environment, files);
        }
        QCOMPARE(end.errors, QString());
        QCOMPARE(end.status, 0);
        QVERIFY2(
            end.output.startsWith("sounds 40000 Hz, output 40000 Hz\n"), qPrintable(end.output));
        QVERIFY2(end.output.contains("as they were played, bit for bit\n"), qPrintable(end.output));
        QVERIFY2(
            end.output.contains("begin of a sound of 600 ms      whole\n"), qPrintable(end.output));
        QVERIFY2(
            end.output.contains("end of a sound of 600 ms        whole\n"), qPrintable(end.output));
        QCOMPARE(lossDb(end), 0.0);
        QVERIFY(before.startsWith("Default Sink: lab\n"));
        QCOMPARE(stateOf(environment), before);
        QCOMPARE(bytesOf(folder.filePath("a.csv")).count('\n'), 17); // the headings and 16 tones
        QVERIFY(bytesOf(folder.filePath("a.png")).startsWith("\x89PNG"));
    }

    void adviceForPulseAudio_losesLittle()
    {
        QVERIFY(QString::fromUtf8(bytesOf(USER_GUIDE)).contains(pulseMethod));
        SoundServer::Settings settings;
        settings.resampleMethod = QString(pulseMethod).section(' ', -1);
        SoundServer advised(settings);
        QVERIFY2(advised.start(), qPrintable(advised.errorText()));
        const QString other = "--rate 40000 --output-rate 48000";
        const double loss = smallestLossDb(environmentOf(advised), other);
        QVERIFY2(loss >= 0.0 && loss < smallLossDb, qPrintable(QString::number(loss)));
        QVERIFY(toldLossDb(environmentOf(m_server), other) > 1.0);
    }

    void adviceForPipeWire_losesLittle()
    {
        QVERIFY(QString::fromUtf8(bytesOf(USER_GUIDE)).contains(pipeWireQuality));
        const QTemporaryDir folder;
        QFile rules(folder.filePath("rules.conf"));
        QVERIFY(rules.open(QIODevice::WriteOnly));
        rules.write(pipeWireQuality);
        rules.close();
        PipeWireServer plain(0);
        PipeWireServer advised(0, rules.fileName());
        QVERIFY2(plain.start(), qPrintable(plain.errorText()));
        QVERIFY2(advised.start(), qPrintable(advised.errorText()));
        const QString other = "--rate 40000 --output-rate 48000";
        const double loss = smallestLossDb(environmentOf(advised), other);
        QVERIFY2(loss >= 0.0 && loss < smallLossDb, qPrintable(QString::number(loss)));
        QVERIFY(toldLossDb(environmentOf(plain), other) > 0.5);
    }

    void nullSink_isRemoved_whenTheProgramIsToEnd()
    {
        const QProcessEnvironment environment = environmentOf(m_server);
        const QString before = stateOf(environment);
        Measuring measuring(environment, "--rate 40000");
        QTRY_VERIFY_WITH_TIMEOUT(measuring.isPlaying(), timeoutMs);
        measuring.askToEnd();
        const SoundProgramEnd end = measuring.end();
        QCOMPARE(end.errors, QString("quorin-sound: the measuring sounds did not arrive whole\n"));
        QCOMPARE(end.output, QString());
        QCOMPARE(end.status, 1);
        QCOMPARE(stateOf(environment), before);
    }

    void secondInterrupt_endsAtOnce_whenTheServerStandsStill()
    {
        MeasuringAlone alone;
        QVERIFY2(alone.begin(), qPrintable(alone.server.errorText()));
        ::kill(static_cast<pid_t>(alone.server.processId()), SIGSTOP);
        QVERIFY(alone.measuring->isEndedBySignal());
        alone.server.kill();
    }

    void lostServer_endsTheMeasurement()
    {
        MeasuringAlone alone;
        QVERIFY2(alone.begin(), qPrintable(alone.server.errorText()));
        alone.server.kill();
        const SoundProgramEnd end = alone.measuring->end();
        QVERIFY2(end.errors.contains("the measuring sounds did not arrive whole\n"),
            qPrintable(end.errors));
        QCOMPARE(end.status, 1);
    }

    void serverThatIsNotThere_isTold()
    {
        QProcessEnvironment environment = environmentOf(m_server);
        environment.insert("PULSE_SERVER", "unix:/nowhere/none");
        const SoundProgramEnd end = measured(environment, "--rate 40000");
        QCOMPARE(end.errors, QString("quorin-sound: no sound server: Connection refused\n"));
        QCOMPARE(end.status, 1);
    }

    void badOption_isNamed()
    {
        const SoundProgramEnd end = measured(environmentOf(m_server), "--duration 0");
        QCOMPARE(end.errors,
            QString("quorin-sound: --duration must be a number from 10 to 5000, not \"0\"\n"));
        QCOMPARE(end.status, 2);
    }

private:
    SoundServer m_server;
};

QUORIN_GUILESS_TEST(TestSoundMeasure);
#include "tst_sound_measure.moc"
