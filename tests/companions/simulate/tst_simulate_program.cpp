// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-simulate as a user starts it: output, files and exit status.
#include "StartedSimulation.h"
#include "support/Files.h"
#include "support/QuietTest.h"

#include <QImage>

class TestSimulateProgram : public QuietTest {
    Q_OBJECT

private slots:
    void help_and_version_arePrinted()
    {
        const Ended help = run({"--help"});
        QCOMPARE(help.status, 0);
        QVERIFY(help.output.contains("--max-trials <number>"));
        const Ended version = run({"--version"});
        QCOMPARE(version.status, 0);
        QCOMPARE(version.output, QString("quorin-simulate " QUORIN_VERSION "\n"));
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
        const QString single = run({"--runs", "100"}).output.simplified();
        QVERIFY(single.contains(' ' + fourteen[2] + ' '));
        QVERIFY(single.contains("bias (dB) " + fourteen[5] + ' '));
    }

    void sweep_takesEveryCombination_intoTableAndPicture()
    {
        const QTemporaryDir folder;
        const QString table = folder.filePath("sweep.csv");
        const QString picture = folder.filePath("sweep.png");
        const Ended ended = run({"--runs", "20", "--sweep", "last=4,8", "--sweep",
            "start=0.1:0.3:0.1", "--summary-csv", table, "--plot", picture});
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QCOMPARE(QImage(picture).size(), QSize(2000, 1600));
        const QStringList rows = QString(contentOf(table)).trimmed().split('\n');
        QCOMPARE(rows.size(), 7);
        QVERIFY(rows[0].startsWith("last,start,experiments,mean_threshold,"));
        QVERIFY(rows[1].startsWith("4,0.1,20,"));
        QVERIFY(rows[6].startsWith("8,0.3,20,"));
    }

    void pictures_tellWhatRunsWereCut()
    {
        const QTemporaryDir folder;
        const QString one = folder.filePath("one.svg");
        const QString several = folder.filePath("several.svg");
        run({"--runs", "1000", "--max-trials", "40", "--plot", one});
        const QString ofOne = contentOf(one);
        QVERIFY(ofOne.contains(">Thresholds of 547 runs, biased: 45.3 % cut<"));
        QVERIFY(ofOne.contains(">\u2014 mean 6.243<"));
        QVERIFY(ofOne.contains(">- - listener's threshold 5.623<"));
        run({"--runs", "1000", "--max-trials", "40", "--sweep", "reversals=13,14", "--plot",
            several});
        const QString ofSeveral = contentOf(several);
        QCOMPARE(ofSeveral.count(">14 (45.3 % cut)<"), 4);
        QVERIFY(ofSeveral.contains("Labels: reversals; rings: biased, up to 45.3 % cut<"));
    }

    void studies_arePlanned()
    {
        const Ended ended = run({"--detect", "2", "--runs", "50", "--listener-sd", "2"});
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QVERIFY(ended.output.contains("thresholds of 0.056234 and 0.11247 (+6.02 dB)"));
        QVERIFY(ended.output.contains("whose thresholds have an SD of 2 dB"));
    }

    void meansOfRuns_areWhatIsTold()
    {
        const Ended ended = run({"--runs", "10", "--mean-of", "4"});
        QVERIFY(ended.output.contains("10 experiments, means of 4, seed 1"));
        QVERIFY(ended.output.contains("\n4 runs together "));
    }

    void files_areWritten()
    {
        const QTemporaryDir folder;
        const QString picture = folder.filePath("plot.png");
        const QString table = folder.filePath("runs.csv");
        const Ended ended = run({"--runs", "50", "--plot", picture, "--track", folder.path(),
            "--tracks", "3", "--subject", "XY", "--csv", table});
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QCOMPARE(QImage(picture).size(), QSize(1800, 1600));
        QCOMPARE(
            QDir(folder.path()).entryList({"XY_test00?_noise_modulation depth.txt"}).size(), 3);
        const QStringList rows = QString(contentOf(table)).trimmed().split('\n');
        QCOMPARE(rows.size(), 51);
        QVERIFY(rows[50].startsWith("50,0."));
    }

    void file_isReplaced_onlyIfACompanionWroteIt_andByForce()
    {
        const QTemporaryDir folder;
        const QString table = folder.filePath("runs.csv");
        QCOMPARE(run({"--runs", "5", "--csv", table}).status, 0);
        const Ended refused = run({"--runs", "6", "--csv", table});
        QCOMPARE(refused.status, 1);
        QCOMPARE(refused.errors,
            "quorin-simulate: " + table
                + ": is there already: give another name, or --force to replace it\n");
        QCOMPARE(contentOf(table).count('\n'), 6);
        QCOMPARE(run({"--runs", "6", "--csv", table, "--force"}).status, 0);
        QCOMPARE(contentOf(table).count('\n'), 7);

        const QString track = folder.filePath("SUB001.txt");
        QVERIFY(QFile::copy(table, track));
        const Ended kept = run({"--runs", "5", "--track", track, "--force"});
        QCOMPARE(kept.status, 1);
        QVERIFY(kept.errors.startsWith("quorin-simulate: " + track + ": is there already"));
        QCOMPARE(contentOf(track).count('\n'), 7);
    }

    void nameWithALeadingDash_isAName()
    {
        const QTemporaryDir folder;
        const Ended ended
            = run({"--runs", "5", "--csv", "-runs.csv", "--track", "--seed", "--plot=-p.svg"},
                folder.path());
        QCOMPARE(ended.errors, QString());
        QCOMPARE(ended.status, 0);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
            QStringList({"--seed", "-p.svg", "-runs.csv"}));
    }

    void fullDevice_isAFailure_data()
    {
        QTest::addColumn<QString>("options");
        QTest::newRow("help") << "--help";
        QTest::newRow("version") << "--version";
        QTest::newRow("figures") << "--runs 5";
    }

    void fullDevice_isAFailure()
    {
        QFETCH(QString, options);
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(SIMULATE_PROGRAM, options.split(' '));
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 1);
    }

    void device_isWrittenTo()
    {
        const Ended full = run({"--runs", "5", "--csv", "/dev/full"});
        QCOMPARE(full.status, 1);
        QVERIFY(full.errors.startsWith("quorin-simulate: /dev/full: cannot be written: "));
        QVERIFY(!QFileInfo("/dev/full").isFile());
        QCOMPARE(run({"--runs", "5", "--csv", "/dev/null"}).status, 0);
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
        QVERIFY(ended.output.contains("correct (%)               100.00   biased: 100 % cut\n"));
        QVERIFY(ended.output.endsWith("cut runs                      10\n"));
    }
};

QUORIN_GUILESS_TEST(TestSimulateProgram);
#include "tst_simulate_program.moc"
