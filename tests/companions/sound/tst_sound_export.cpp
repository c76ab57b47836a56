// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound export as a user starts it: options, refusals, files and exit status.
#include "SoundProgram.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace {

void mistake(const char* arguments, const QString& error)
{
    QTest::newRow(arguments) << QString(arguments).split(' ', Qt::SkipEmptyParts) << error;
}

} // namespace

class TestSoundExport : public QuietTest {
    Q_OBJECT

private slots:
    void mistake_isNamed_andNothingIsMade_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        mistake("", "give a command: calibrate, check, export, measure");
        mistake("play", R"(there is no command "play", but: calibrate, check, export, measure)");
        mistake("--nonsense", "Unknown option 'nonsense'.");
        mistake("export --nonsense", "Unknown option 'nonsense'.");
        mistake("export --standard-duration 0",
            R"(--standard-duration: "0" is not from 1 to 209715 ms)");
        mistake("export --standard-duration 600,0",
            R"(--standard-duration: "600,0" has a decimal comma: numbers have a point)");
        mistake("export --sampling-rate 4000",
            R"(--sampling-rate: "4000" is not from 8000 to 192000 Hz)");
        mistake(
            "export --sound-type voice", R"(--sound-type: "voice" is not "sinusoid" or "noise")");
        mistake("export --reset-md-fd maybe", R"(--reset-md-fd: "maybe" is not "yes" or "no")");
        mistake("export --deviant-modulation-depth 12",
            R"(--deviant-modulation-depth: "12" has no effect as long as "reset md/fd" is "yes")");
        mistake("export --value 0", R"(--value: "0" is not from 0.0001 to 100 %)");
        mistake("export --value x", R"(--value: "x" is not a number)");
        mistake(
            "export --seed 0", R"(--seed must be a whole number from 1 to 2147483646, not "0")");
        mistake("export --draws -1",
            R"(--draws must be a whole number from 0 to 2000000000, not "-1")");
        mistake("export a b", R"(one folder at most, not "a" and "b")");
        mistake("export --plot a.jpg",
            "--plot: a picture's name must end in .png, .svg or .pdf: a.jpg");
        QTest::newRow("noise without a carrier")
            << QStringList {"export", "--main-parameter", "carrier frequency"}
            << R"(--sound-type: "noise" is incompatible with the main parameter )"
               R"("carrier frequency"; it is the default)";
        QTest::newRow("difference beyond the carrier") << QStringList {"export", "--sound-type",
            "sinusoid", "--main-parameter", "carrier frequency", "--value",
            "1000"} << R"(--value: "1000" is not from 0.0001 to 999.9 Hz)";
        QTest::newRow("no value") << QStringList {"export", "--standard-duration", ""}
                                  << "--standard-duration needs a value";
        QTest::newRow("no name") << QStringList {"export", "--csv", ""} << "--csv needs a name";
    }

    void mistake_isNamed_andNothingIsMade()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const SoundProgramEnd end = runSoundProgram(arguments);
        QCOMPARE(end.errors, "quorin-sound: " + error + '\n');
        QCOMPARE(end.output, QString());
        QCOMPARE(end.status, 2);
    }

    void help_namesEveryFieldOfThePanel()
    {
        const SoundProgramEnd help = runSoundProgram({"export", "--help"});
        QCOMPARE(help.status, 0);
        QVERIFY(help.output.startsWith("Usage: quorin-sound export [options] [folder]\n"));
        for (const char* const option :
            {"session-type", "sound-type", "main-parameter", "standard-carrier-frequency",
                "deviant-carrier-frequency", "standard-modulation-frequency",
                "deviant-modulation-frequency", "standard-modulation-depth",
                "deviant-modulation-depth", "standard-frequency-difference",
                "deviant-frequency-difference", "standard-duration", "deviant-duration",
                "number-of-reversals", "reversals-to-calculate", "silent-interval", "sampling-rate",
                "session", "reset-md-fd", "save-data-to-file", "value", "seed", "draws"}) {
            QVERIFY2(help.output.contains(QString("  --%1 <").arg(option)), option);
        }
        QVERIFY(help.output.contains("Default: 48000, those that"));
    }

    void help_namesTheCommands()
    {
        const QString help = runSoundProgram({"--help"}).output;
        QVERIFY(help.startsWith("Usage: quorin-sound [options] command [option...]\n"));
        QVERIFY(help.contains("\n  calibrate   Play a sound "));
        QVERIFY(help.contains("\n  check       Ask the sound server "));
        QVERIFY(help.contains("\n  export      Write the sounds "));
    }

    void version_isPrinted()
    {
        QCOMPARE(runSoundProgram({"--version"}).output, "quorin-sound " QUORIN_VERSION "\n");
        QCOMPARE(runSoundProgram({"export", "-v"}).output, "quorin-sound " QUORIN_VERSION "\n");
    }

    void table_isPrinted_andWritten()
    {
        const QTemporaryDir folder;
        const QStringList tone {"export", "--sound-type", "sinusoid", "--value", "100", "--csv",
            folder.filePath("table.csv"), "--plot", folder.filePath("picture.png")};
        const SoundProgramEnd end = runSoundProgram(tone);
        QCOMPARE(end.errors, QString());
        QCOMPARE(end.status, 0);
        // Fully modulated, normalised: the mean square of a tone is (1 + 1/2) / 2 / 2^2.
        QVERIFY(end.output.contains("RMS (dB re full scale)           -7.27       -7.27\n"));
        QVERIFY(end.output.contains("samples                          24000       24000\n"));
        const QList<QByteArray> lines = bytesOf(folder.filePath("table.csv")).split('\n');
        QCOMPARE(lines[0],
            QByteArray("sound,samples,duration (ms),RMS (dB re full scale),level re standard (dB),"
                       "peak (dB re full scale),crest factor (dB),first sample,last sample,first "
                       "millisecond (dB),last millisecond (dB)"));
        QVERIFY(lines[1].startsWith("standard,24000,600.000,-7.27,0.00,-4.26,3.01,0.000000,"));
        QVERIFY(lines[2].startsWith("deviant,24000,600.000,-7.27,0.00,-0.01,7.26,0.000000,"));
        QCOMPARE(QImage(folder.filePath("picture.png")).size(), QSize(2000, 1440));
    }

    void samplesBeyondFullScale_areTold()
    {
        const SoundProgramEnd end = runSoundProgram({"export", "--standard-modulation-depth", "100",
            "--reset-md-fd", "no", "--deviant-modulation-depth", "1"});
        QCOMPARE(end.status, 0);
        QVERIFY2(end.errors.startsWith("quorin-sound: the peak is 1.6"), qPrintable(end.errors));
    }

    void files_areNeverReplaced()
    {
        const QTemporaryDir folder;
        QCOMPARE(runSoundProgram({"export", folder.path()}).status, 0);
        const QByteArray before = bytesOf(folder.filePath("deviant.wav"));
        QVERIFY(QFile::remove(folder.filePath("standard.wav")));
        const SoundProgramEnd end = runSoundProgram({"export", "--seed", "2", "--force", "--csv",
            folder.filePath("new.csv"), folder.path()});
        QCOMPARE(end.status, 1);
        QCOMPARE(end.output, QString());
        QVERIFY(end.errors.contains("deviant.wav: is there already"));
        QCOMPARE(bytesOf(folder.filePath("deviant.wav")), before);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("deviant.wav"));
    }

    void folder_mustExist()
    {
        const QTemporaryDir folder;
        const SoundProgramEnd end = runSoundProgram({"export", "missing"}, folder.path());
        QCOMPARE(end.status, 1);
        QCOMPARE(end.errors,
            QString("quorin-sound: missing/standard.wav: there is no folder missing: make it\n"
                    "quorin-sound: missing/deviant.wav: there is no folder missing: make it\n"));
    }
};

QUORIN_GUILESS_TEST(TestSoundExport);
#include "tst_sound_export.moc"
