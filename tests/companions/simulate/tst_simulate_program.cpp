// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/QuietTest.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Ended {
    int status;
    QString output;
    QString errors;
};

Ended run(const QStringList& arguments)
{
    QProcess process;
    process.start(SIMULATE_PROGRAM, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {-1, {}, process.errorString()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class TestSimulateProgram : public QuietTest {
    Q_OBJECT

private slots:
    void badOption_isNamed_andNothingIsSimulated_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* arguments, const QString& error) {
            QTest::newRow(arguments) << QString(arguments).split(' ') << error;
        };
        row("--nonsense", "Unknown option 'nonsense'.");
        row("--seed", "Missing value after '--seed'.");
        row("word", "unknown argument: word");
        row("--listener deaf",
            "--listener is logistic, weibull, gaussian or constant, not \"deaf\"");
        row("--threshold 0", "--threshold must be above 0");
        row("--threshold nan", "--threshold must be a number from 0 to 1000000, not \"nan\"");
        row("--slope -1", "--slope must be a number from 0 to 1000000, not \"-1\"");
        row("--slope 2,5", "--slope must be a number from 0 to 1000000, not \"2,5\"");
        row("--lapse 1.1", "--lapse must be a number from 0 to 0.5, not \"1.1\"");
        row("--probability 0.5", "--probability is for a constant listener only");
        row("--listener constant --probability 2",
            "--probability must be a number from 0 to 1, not \"2\"");
        row("--listener constant --threshold 0.1",
            "a constant listener has no --threshold and no --slope");
        row("--parameter pitch", "--parameter is depth or frequency, not \"pitch\"");
        row("--start 1.01", "--start must be a number from 0 to 1, not \"1.01\"");
        row("--start 1 --parameter frequency",
            "--start must be a number from 0 to 0.9999, not \"1\"");
        row("--reversals 0", "--reversals must be a whole number from 1 to 10000, not \"0\"");
        row("--reversals 1.5", "--reversals must be a whole number from 1 to 10000, not \"1.5\"");
        row("--reversals 4 --last 5", "--last must be a whole number from 1 to 4, not \"5\"");
        row("--runs 0", "--runs must be a whole number from 1 to 10000000, not \"0\"");
        row("--seed -1", "--seed must be a whole number from 0 to 2^64 - 1, not \"-1\"");
        row("--max-trials x", "--max-trials must be a whole number from 1 to 10000000, not \"x\"");
        row("--threads 0", "--threads must be a whole number from 1 to 256, not \"0\"");
        row("--carrier inf", "--carrier must be a number from 0 to 1000000, not \"inf\"");
        row("--sound -5", "--sound must be a number from 0 to 3600000, not \"-5\"");
        const QString sweep
            = "--sweep is from:to or from:to:step, whole numbers from 1 to 10000, not ";
        for (const char* range : {"8", "8:", "8:6", "0:6", "1:10001", "1:5:0", "1:2:3:4", "a:b"}) {
            QTest::newRow(range) << QStringList {"--sweep", range} << sweep + '"' + range + '"';
        }
        row("--sweep 8:9 --plot a.png", "--sweep and --plot do not go together");
        row("--sweep 8:9 --reversals 4", "--sweep and --reversals do not go together");
        row("--plot a.jpg", "--plot: a picture's name must end in .png, .svg or .pdf: a.jpg");
        row("--track a.txt --tracks 2", "--tracks wants a --track that is an existing folder");
        row("--subject AB", "--subject wants a --track that is an existing folder");
        row("--track . --subject ../AB",
            "--subject becomes part of a file's name and cannot hold a /");
        row("--track . --runs 2 --tracks 3",
            "--tracks must be a whole number from 1 to 2, not \"3\"");
    }

    void badOption_isNamed_andNothingIsSimulated()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const Ended ended = run(arguments);
        QCOMPARE(ended.errors,
            "quorin-simulate: " + error + "\nquorin-simulate --help lists the options\n");
        QCOMPARE(ended.output, QString());
        QCOMPARE(ended.status, 2);
    }

    void help_and_version_arePrinted()
    {
        const Ended help = run({"--help"});
        QCOMPARE(help.status, 0);
        QVERIFY(help.output.contains("--max-trials <number>"));
        const Ended version = run({"--version"});
        QCOMPARE(version.status, 0);
        QCOMPARE(version.output, QString(SIMULATE_VERSION "\n"));
    }

    void output_isTheSame_forAnyNumberOfThreads()
    {
        const QStringList arguments {"--runs", "300", "--listener", "gaussian", "--lapse", "0.02"};
        const Ended alone = run(arguments + QStringList {"--threads", "1"});
        QCOMPARE(alone.status, 0);
        QCOMPARE(alone.errors, QString());
        QVERIFY(
            alone.output.contains("Gaussian, slope (k) 1, threshold 0.056234, lapse rate 0.02"));
        QCOMPARE(run(arguments + QStringList {"--threads", "3"}).output, alone.output);
        QVERIFY(run(arguments + QStringList {"--seed", "2"}).output != alone.output);
    }

    void sweep_hasARowPerNumber_likeTheSingleSimulation()
    {
        const Ended table = run({"--runs", "100", "--sweep", "4:14:5"});
        QCOMPARE(table.status, 0);
        const QStringList lines = table.output.trimmed().split('\n');
        QCOMPARE(lines.size(), 4 + 3 + 3); // settings, two lines of names and a blank one, rows
        const QStringList four = lines[7].simplified().split(' ');
        QCOMPARE(four.mid(0, 2), QStringList({"4", "4"}));
        const QStringList fourteen = lines[9].simplified().split(' ');
        QCOMPARE(fourteen.mid(0, 2), QStringList({"14", "8"}));
        const Ended single = run({"--runs", "100"});
        QVERIFY(single.output.simplified().contains(' ' + fourteen[2] + " standard error "));
        QVERIFY(single.output.simplified().contains("bias (dB) " + fourteen[4] + ' '));
    }

    void files_areWritten()
    {
        const QTemporaryDir folder;
        const QString picture = folder.filePath("plot.png");
        const Ended ended = run({"--runs", "50", "--plot", picture, "--track", folder.path(),
            "--tracks", "3", "--subject", "XY"});
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QCOMPARE(QImage(picture).size(), QSize(1800, 1520));
        QCOMPARE(
            QDir(folder.path()).entryList({"XY_test00?_noise_modulation depth.txt"}).size(), 3);
    }

    void plot_isDrawn_whateverTheRuns_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("one run") << QStringList {"--runs", "1"};
        QTest::newRow("no run ends")
            << QStringList {"--listener", "constant", "--probability", "1", "--runs", "10"};
        QTest::newRow("one threshold for all") << QStringList {"--listener", "constant",
            "--probability", "0", "--lapse", "0.0001", "--reversals", "1", "--runs", "20"};
        QTest::newRow("values down to 0") << QStringList {"--listener", "constant", "--probability",
            "0.99999", "--reversals", "1", "--max-trials", "100000", "--runs", "20"};
    }

    void plot_isDrawn_whateverTheRuns()
    {
        QFETCH(QStringList, arguments);
        const QTemporaryDir folder;
        const QString path = folder.filePath("plot.svg");
        const Ended ended = run(arguments + QStringList {"--plot", path});
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QVERIFY(QFile::exists(path));
    }

    void failure_isReported_andTheFiguresArePrinted()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("no/plot.pdf");
        const Ended ended = run({"--runs", "10", "--plot", path});
        QCOMPARE(ended.status, 1);
        QCOMPARE(ended.errors,
            "quorin-simulate: " + path + ": there is no folder " + folder.filePath("no")
                + ": make it\n");
        QVERIFY(ended.output.endsWith("cut runs                       0\n"));
    }

    void cutRuns_areCounted()
    {
        const Ended ended = run(
            {"--listener", "constant", "--probability", "1", "--runs", "10", "--max-trials", "50"});
        QCOMPARE(ended.status, 0);
        QVERIFY(ended.output.contains("correct (%)               100.00\n"));
        QVERIFY(ended.output.endsWith("cut runs                      10\n"));
    }
};

QTEST_GUILESS_MAIN(TestSimulateProgram)
#include "tst_simulate_program.moc"
