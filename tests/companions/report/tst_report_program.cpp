// SPDX-License-Identifier: GPL-3.0-or-later
// What quorin-report reads and refuses, and its command line.
#include "ReportBench.h"
#include "report/RunCsv.h"
#include "report/RunTable.h"
#include "support/QuietTest.h"

using namespace quorin;

class TestReportProgram : public QuietTest {
    Q_OBJECT

private slots:
    void names_areUtf8_inAnyLocale()
    {
        const Bench bench;
        const QString name = QString::fromUtf8("\u00c4\u96ea_test001_noise_modulation depth.txt");
        bench.addRun(name, modulationDepthParameter, 1);
        const Outcome outcome = bench.report({name}, {}, true);
        QCOMPARE(outcome.errors, QStringList());
        QVERIFY(outcome.output.contains(QString::fromUtf8("\n\u00c4\u96ea       test001  noise")));
        QCOMPARE(bench.report({"."}, {}, true).output.replace("./", ""), outcome.output);
    }

    void badFiles_areReported_andTheOthersProcessed()
    {
        const Bench bench;
        bench.addRun("good.txt", modulationDepthParameter, 1);
        fillFile(bench.path("empty.txt"), {});
        fillFile(bench.path("letter.txt"), "Dear all,\n");
        const QByteArray good = contentOf(bench.path("good.txt"));
        fillFile(bench.path("damaged.txt"), QByteArray(good).replace("\r\n39.", "\r\n3,9"));
        fillFile(bench.path("changed.txt"), QByteArray(good).replace("\r\n39.", "\r\n38."));
        fillFile(bench.path("a\nb.txt"), good.chopped(1));
        const int nLines = good.count('\n');
        const Outcome outcome = bench.report({".", "missing.txt", "--csv", "-"});
        QCOMPARE(outcome.errors,
            QStringList(
                {QString("./a?b.txt:%1: the line has no end: the file is cut short").arg(nLines),
                    QString("./changed.txt:3: 38.716412 does not follow from the line before, "
                            "39.716412 would: a line is missing, doubled, moved or changed"),
                    "./damaged.txt:3: \"3,9716412\" is not a value with 6 decimals",
                    "./empty.txt:1: the file is empty",
                    "./letter.txt:1: not a results file: the first line is no header of one",
                    "missing.txt: cannot be read: No such file or directory"}));
        Run run = bench.runOf("good.txt");
        run.path = "./good.txt";
        QCOMPARE(outcome.output, runCsv({run}));
        QCOMPARE(outcome.status, 1);
    }

    void changedFile_isReadUnchecked_andMarked()
    {
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1);
        const QByteArray good = contentOf(bench.path("run.txt"));
        fillFile(bench.path("run.txt"), QByteArray(good).replace("\r\n39.", "\r\n38."));
        const QStringList arguments {"--unchecked", "run.txt"};
        const Outcome table = bench.report(arguments);
        QCOMPARE(table.errors,
            QStringList("run.txt:3: note: unchecked: 38.716412 does not follow from the line "
                        "before, 39.716412 would: a line is missing, doubled, moved or changed"));
        QVERIFY(table.output.contains("  unchecked"));
        QCOMPARE(table.status, 0);
        const QStringList asCsv = {"--csv", "-"};
        const QString csv = bench.report(asCsv + arguments).output;
        QVERIFY(csv.endsWith(",0,,,,,,\n"));
    }

    void tracksOfTheSimulator_areRead()
    {
        const Bench bench;
        QProcess simulator;
        simulator.start(SIMULATE_PROGRAM,
            {"--runs", "20", "--tracks", "20", "--track", bench.path(), "--subject", "T",
                "--reversals", "10", "--last", "4"});
        QVERIFY(simulator.waitForFinished());
        QCOMPARE(simulator.exitCode(), 0);
        const Outcome outcome = bench.report({"--last", "4", "--csv", "-", "."});
        QCOMPARE(outcome.errors, QStringList());
        QCOMPARE(outcome.output.count("txt,T,test,"), 20);
        QCOMPARE(outcome.status, 0);
    }

    void rule_isThatOfEachFile()
    {
        const Bench bench;
        bench.addRun("long.txt", modulationDepthParameter, 1, 20);
        bench.addRun("short.txt", modulationDepthParameter, 1, 5);
        const Outcome outcome = bench.report({"--csv", "-", "."});
        QCOMPARE(outcome.errors, QStringList());
        Run longRun = bench.runOf("long.txt");
        Run shortRun = bench.runOf("short.txt");
        QCOMPARE(longRun.data.nReversalsToCalculate, 8);
        QCOMPARE(shortRun.data.nReversalsToCalculate, 5);
        longRun.path = "./long.txt";
        shortRun.path = "./short.txt";
        QCOMPARE(outcome.output, runCsv({longRun, shortRun}));
        QVERIFY(bench.report({"."}).output.startsWith(
            "threshold: mean of the last reversals, as many as each row says;"));
    }

    void rule_isThatOfTheOptions()
    {
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1, 20);
        const Outcome outcome
            = bench.report({"--reversals", "14", "--last", "12", "--csv", "-", "run.txt"});
        QCOMPARE(outcome.output, runCsv({bench.runOf("run.txt", {14, 12})}));
        const int line = bench.runOf("run.txt").reversalTrials[13] + 2;
        QCOMPARE(outcome.errors,
            QStringList(
                QString("run.txt:%1: note: the run goes on after reversal 14, to 20").arg(line)));
        QCOMPARE(outcome.status, 0);
        const Outcome tooMany = bench.report({"--last", "21", "run.txt"});
        QCOMPARE(tooMany.status, 1);
        QVERIFY(tooMany.errors[0].endsWith(
            ": the run has 20 reversals, fewer than the last 21 that are asked for"));
    }

    void copy_isNoted_andCountedOnce()
    {
        const Bench bench;
        bench.addRun("a.txt", modulationDepthParameter, 1);
        bench.addRun("b.txt", modulationDepthParameter, 1);
        const Outcome outcome = bench.report({"--csv", "-", "."});
        QCOMPARE(outcome.errors,
            QStringList("./b.txt: note: the same content as ./a.txt, counted once"));
        QCOMPARE(outcome.output.count('\n'), 2);
        QCOMPARE(outcome.status, 0);
    }

    void dashesAndQtsOptions_areNoTraps()
    {
        const Bench bench;
        bench.addRun("-run.txt", modulationDepthParameter, 1);
        QCOMPARE(bench.report({"--csv", "-", "--", "-run.txt"}).errors, QStringList());
        const Outcome platform = bench.report({"-platform", "foo", "--", "-run.txt"});
        QCOMPARE(platform.status, 2);
        QCOMPARE(platform.errors, QStringList("quorin-report: Unknown option 'platform'."));
        const Outcome dash = bench.report({"-run.txt"});
        QCOMPARE(dash.status, 2);
        QCOMPARE(dash.errors, QStringList("quorin-report: Unknown option 'run.txt'."));
        QVERIFY(bench.report({"-help"}).output.contains("come after --."));
        const Outcome full = bench.report({"--help"}, "/dev/full");
        QCOMPARE(full.status, 1);
        QCOMPARE(full.errors, QStringList("quorin-report: standard output: cannot be written"));
    }

    void helpAndVersion_arePrinted()
    {
        const Bench bench;
        QCOMPARE(bench.report({"--version"}).output, QString("quorin-report " QUORIN_VERSION "\n"));
        QCOMPARE(bench.report({"--version"}).status, 0);
        const Outcome help = bench.report({"--help"});
        QCOMPARE(help.status, 0);
        const QStringList options {"--reversals <n>", "--last <n>", "--csv <file>",
            "--trials <file>", "--carrier <Hz>", "--unchecked", "--plot <folder>",
            "--format <format>", "--force", "--summary", "--by <keys>", "--over <axis>",
            "--html <file>", "--help", "--version"};
        for (const QString& option : options) {
            QVERIFY2(help.output.contains(option), qPrintable(option));
        }
    }

    void usage_isRefused_data()
    {
        addColumns<QStringList, QString>("arguments", "error");
        addRow("nothing", QStringList(), "no files or folders are given");
        addRow("unknown option", QStringList {"--colour", "run.txt"}, "Unknown option 'colour'.");
        addRow("no reversals", QStringList {"--reversals", "0", "run.txt"},
            "--reversals must be 1 to 100000, not \"0\"");
        addRow("last of no number", QStringList {"--last", "8x", "run.txt"},
            "--last must be 1 to 100000, not \"8x\"");
        addRow("more than there are", QStringList {"--reversals", "6", "--last", "7", "run.txt"},
            "--last must be 1 to the number of reversals, 6, not \"7\"");
        addRow("carrier", QStringList {"--carrier", "0", "run.txt"},
            "--carrier must be above 0 and at most 1000000 Hz, not \"0\"");
        addRow("key", QStringList {"--by", "sound,colour", "run.txt"},
            "--by is a list of subject, parameter, sound, type, session, each "
            "once, not \"sound,colour\"");
        addRow("axis", QStringList {"--over", "trials", "run.txt"},
            "--over is session or date, not \"trials\"");
        addRow("two tables on one output", QStringList {"--csv", "-", "--trials", "-", "run.txt"},
            "--csv and --trials do not go to standard output together");
        addRow("format", QStringList {"--format", "gif", "run.txt"},
            "--format is png, svg or pdf, not \"gif\"");
        addRow("nameless table", QStringList {"--csv=", "run.txt"}, "--csv needs a name");
    }

    void usage_isRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1);
        const QByteArray before = contentOf(bench.path("run.txt"));
        const Outcome outcome = bench.report(arguments);
        QCOMPARE(outcome.errors, QStringList("quorin-report: " + error));
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.status, 2);
        QCOMPARE(contentOf(bench.path("run.txt")), before);
    }
};

QUORIN_GUILESS_TEST(TestReportProgram);
#include "tst_report_program.moc"
