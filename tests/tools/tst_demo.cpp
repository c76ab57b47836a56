// SPDX-License-Identifier: GPL-3.0-or-later
// The demonstration from its command line to its files.
#include "demo/Listener.h"
#include "demo/WavFile.h"
#include "soundlab/ChildProcess.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/Files.h"
#include "support/QuietTest.h"

#include <QImage>

namespace {

constexpr int demoTimeoutMs = 120000;

const QStringList allFiles {"1-start-main-window.png", "1-start-subject-window.png",
    "2-playing-main-window.png", "2-playing-subject-window.png", "3-answering-main-window.png",
    "3-answering-subject-window.png", "4-end-main-window.png", "4-end-subject-window.png",
    "results.txt", "sound.wav"};

QStringList reportedTrials(const QString& report)
{
    return report.split('\n').filter(QRegularExpression("^trial +\\d+ "));
}

} // namespace

class TestDemo : public QuietTest {
    Q_OBJECT

private slots:
    void run_endsAndLeavesEverything_forEitherParameter_data()
    {
        QTest::addColumn<QString>("parameter");
        QTest::addColumn<QString>("seed"); // that makes a short run
        addColumns<QByteArray, QString>("firstColumn", "result");
        addRow("depth", "depth", "102", QByteArray("modulation depth (%)\t"),
            "\nModulation Threshold = ");
        addRow("frequency", "frequency", "2590", QByteArray("frequency difference (Hz)\t"),
            "\nFrequency Difference = ");
    }

    void run_endsAndLeavesEverything_forEitherParameter()
    {
        QFETCH(QString, parameter);
        QFETCH(QString, seed);
        QFETCH(QByteArray, firstColumn);
        QFETCH(QString, result);
        const QTemporaryDir parent;
        const QDir folder(parent.filePath("new/demo"));
        ChildProcess demo;
        start(demo,
            {"--reversals", "2", "--parameter", parameter, "--output", folder.path(), "--seed",
                seed});
        QVERIFY(demo.waitForFinished(demoTimeoutMs));
        const QString report = QString::fromLocal8Bit(demo.readAllStandardOutput());
        QVERIFY2(demo.exitStatus() == QProcess::NormalExit && demo.exitCode() == 0,
            qUtf8Printable(report + demo.whatFailed()));

        QCOMPARE(folder.entryList(QDir::Files, QDir::Name), allFiles);
        QVERIFY2(report.contains(result), qUtf8Printable(report));
        QVERIFY2(report.contains("\nLeft in " + folder.path() + ":\n"), qUtf8Printable(report));
        compareTrials(reportedTrials(report), contentOf(folder.filePath("results.txt")));
        QVERIFY(contentOf(folder.filePath("results.txt")).startsWith(firstColumn));
        checkPictures(folder);
        checkSound(contentOf(folder.filePath("sound.wav")), reportedTrials(report).size());
    }

    void run_failsAndSaysWhy_withoutASoundServer()
    {
        const QTemporaryDir folder;
        ChildProcess demo;
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert("PATH", "/nowhere");
        demo.setProcessEnvironment(variables);
        start(demo, {"--output", folder.path()});
        QVERIFY(demo.waitForFinished(demoTimeoutMs));
        QCOMPARE(demo.exitCode(), 1);
        const QByteArray error = demo.readAllStandardError();
        QVERIFY2(error.contains("quorin-demo: no sound server: pulseaudio: "), error);
    }

    void listener_saysWhatWasHeard_whenItIsNotFourSounds()
    {
        SoundServer server;
        QVERIFY2(server.start(), qUtf8Printable(server.errorText()));
        SoundRecorder recorder(server);
        QVERIFY2(recorder.start(), qUtf8Printable(recorder.errorText()));
        Listener listener(recorder, logisticListener(0.056, 2.5), 1);
        QCOMPARE(listener.hear(), 0);
        QCOMPARE(listener.errorText(), QString("0 sounds were heard instead of four"));
    }

    void arguments_areRefused_whenTheyMeanNothing_data()
    {
        addColumns<QStringList, QByteArray>("arguments", "error");
        addRow("parameter", QStringList {"--parameter", "loudness"},
            QByteArray("the parameter is depth or frequency, not loudness"));
        addRow("seed", QStringList {"--seed", "-1"},
            QByteArray("the seed must be a whole number, not -1"));
        addRow("no reversals", QStringList {"--reversals", "0"},
            QByteArray("the reversals must be 1 to 100, not 0"));
        addRow("too many reversals", QStringList {"--reversals", "101"},
            QByteArray("the reversals must be 1 to 100, not"));
        addRow("word", QStringList {"quickly"}, QByteArray("unknown argument: quickly"));
        addRow("option", QStringList {"--quickly"}, QByteArray("quickly"));
    }

    void arguments_areRefused_whenTheyMeanNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, error);
        ChildProcess demo;
        start(demo, arguments);
        QVERIFY(demo.waitForFinished(demoTimeoutMs));
        QCOMPARE(demo.exitCode(), 1);
        const QByteArray said = demo.readAllStandardError();
        QVERIFY2(said.contains(error), said);
    }

private:
    static void start(ChildProcess& demo, const QStringList& arguments)
    {
        demo.start(DEMO_PROGRAM, arguments);
    }

    // Line by line: reported value, place heard and answer against the file's columns.
    static void compareTrials(const QStringList& reported, const QByteArray& file)
    {
        const QStringList lines = QString::fromLatin1(file).split("\r\n");
        QVERIFY(reported.size() >= 3); // two reversals need one trial more
        QCOMPARE(lines.size(), 1 + reported.size() + 1);
        for (int i = 0; i < reported.size(); ++i) {
            const QStringList saved = lines[i + 1].split('\t');
            const QStringList said = reported[i].simplified().split(' ');
            QCOMPARE(said.size(), 13);
            QCOMPARE(said[1].toInt(), i + 1);
            QVERIFY(qAbs(said[5].toDouble() - saved[0].toDouble()) < 0.0001);
            QCOMPARE(said[9], saved[1]);
            QCOMPARE(said[11], saved[2]);
            QCOMPARE(said[12], QString(saved[3] == "1" ? "right" : "wrong"));
        }
        QVERIFY(reported.constLast().contains("reversals  2"));
    }

    static void checkPictures(const QDir& folder)
    {
        const QStringList names = folder.entryList({"*.png"});
        for (const QString& name : names) {
            QVERIFY2(!QImage(folder.filePath(name)).isNull(), qUtf8Printable(name));
        }
        const auto picture = [&](const char* name) { return QImage(folder.filePath(name)); };
        const auto holds = [](const QImage& image, const QColor& colour) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, image.height() / 2) == colour)
                    return true;
            }
            return false;
        };
        const QColor green(0, 255, 0);
        QVERIFY(holds(picture("2-playing-subject-window.png"), green));
        QVERIFY(!holds(picture("3-answering-subject-window.png"), green));
    }

    static void checkSound(const QByteArray& file, int trials)
    {
        constexpr int bytesPerSample = 4;
        const int samples = (file.size() - wavHeader(0, 40000).size()) / bytesPerSample;
        QCOMPARE(file.left(58), wavHeader(samples, 40000));
        QVERIFY(samples > trials * 4 * 2400); // four sounds of 60 ms a trial
    }
};

QUORIN_GUILESS_TEST(TestDemo);
#include "tst_demo.moc"
