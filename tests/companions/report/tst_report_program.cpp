// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimulatedRun.h"
#include "report/GroupTable.h"
#include "report/RunCsv.h"
#include "report/RunFlags.h"
#include "report/RunTable.h"
#include "report/TrialsCsv.h"
#include "support/QuietTest.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString depthName("A_test001_noise_modulation depth.txt");
const QString differenceName("A_test001_sinusoid_carrier frequency.txt");

// What the program did.
struct Outcome {
    int status;
    QString output;
    QStringList errors; // lines
};

// A folder with results files, in which the program is run.
class Bench {
public:
    void addRun(const QString& name, int mainParameter, unsigned seed, int nReversals = 14) const
    {
        QDir(path()).mkpath(QFileInfo(path(name)).path());
        fillFile(path(name), resultsFile(simulatedRun(mainParameter, seed, nReversals)));
    }

    Outcome report(
        const QStringList& arguments, const QString& output = {}, bool inCLocale = false) const
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("XDG_RUNTIME_DIR"); // Qt must not complain of it
        if (inCLocale) {
            environment.insert("LC_ALL", "C");
        }
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(path());
        if (!output.isEmpty()) {
            program.setStandardOutputFile(output);
        }
        program.start(REPORT_PROGRAM, arguments);
        if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit) {
            return {-1, {}, {"the program crashed or hung"}};
        }
        const QString errors = QString::fromUtf8(program.readAllStandardError());
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            errors.split('\n', Qt::SkipEmptyParts)};
    }

    QString path(const QString& name = {}) const { return m_folder.filePath(name); }

    // All that is in a folder.
    QStringList names(const QString& folder = {}) const
    {
        return QDir(path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    // The run of a file in the folder, as the reader reads it.
    Run runOf(const QString& name, const RunRule& rule = {}) const
    {
        QVector<Run> runs(1);
        runs[0].path = path(name);
        readRun(runs[0], contentOf(path(name)), rule);
        runs[0].path = name;
        flagRuns(runs);
        return runs[0];
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestReportProgram : public QuietTest {
    Q_OBJECT

private slots:
    void table_isPrinted()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        const Outcome outcome = bench.report({depthName});
        QCOMPARE(outcome.errors, QStringList());
        QCOMPARE(outcome.output, runTable({bench.runOf(depthName)}));
        QCOMPARE(outcome.status, 0);
    }

    void csv_isPrintedAlone_whenItGoesToStandardOutput()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        bench.addRun(differenceName, carrierFrequencyParameter, 2);
        const Outcome outcome
            = bench.report({"--csv", "-", "--summary", depthName, differenceName});
        QCOMPARE(outcome.output, runCsv({bench.runOf(depthName), bench.runOf(differenceName)}));
        QCOMPARE(outcome.errors, QStringList());
        QCOMPARE(outcome.status, 0);
    }

    void csv_isWritten_besideTheTable()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        const Outcome outcome = bench.report({"--csv", "all.csv", depthName});
        QCOMPARE(outcome.output, runTable({bench.runOf(depthName)}));
        QCOMPARE(contentOf(bench.path("all.csv")), runCsv({bench.runOf(depthName)}).toUtf8());
        QCOMPARE(outcome.status, 0);
    }

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
                    "./changed.txt:3: 38.716412 does not follow from the line before, 39.716412 "
                    "would: a line is missing, doubled, moved or changed",
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
        const QString csv = bench.report(QStringList {"--csv", "-"} + arguments).output;
        QVERIFY(csv.endsWith(",0\n"));
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

    void groups_arePrinted()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        const QVector<Run> runs {bench.runOf(depthName)};
        QCOMPARE(bench.report({"--by", "sound,type", depthName}).output,
            runTable(runs) + groupTable(runs, {"sound", "type"}));
    }

    void page_isWritten_andReplacedOnlyByForce()
    {
        const Bench bench;
        bench.addRun("<a> & \"b\".txt", modulationDepthParameter, 1);
        QCOMPARE(bench.report({"--html", "page.html", "."}).errors, QStringList());
        const QByteArray page = contentOf(bench.path("page.html"));
        QVERIFY(page.startsWith("<!DOCTYPE html>\n"));
        QVERIFY(page.contains("content=\"Made by quorin-report " QUORIN_VERSION "\""));
        QVERIFY(page.contains("&lt;a&gt; &amp; &quot;b&quot;.txt"));
        QVERIFY(!page.contains("<a>"));
        QCOMPARE(page.count("<svg "), 1);
        QCOMPARE(page.count("<svg "), page.count("</svg>"));
        QCOMPARE(bench.report({"--html", "page.html", "."}).errors,
            QStringList(
                "page.html: is there already: give another name, or --force to replace it"));
        QCOMPARE(bench.report({"--html", "page.html", "--force", "."}).errors, QStringList());
        QCOMPARE(contentOf(bench.path("page.html")), page);
    }

    void guide_showsWhatIsPrinted()
    {
        const Bench bench;
        const QString study(DOCUMENTS "/examples/study");
        const QString guide = QString::fromUtf8(contentOf(DOCUMENTS "/user-guide.md"));
        const QString summary = bench.report({"--summary", study}).output;
        const int begin = summary.indexOf("Subject ANNA");
        const QString page = summary.mid(begin, summary.indexOf("\nSubject BERT") - begin);
        const QStringList groups = bench.report({"--by", "sound,type", study}).output.split('\n');
        for (const QString& line : page.split('\n') + groups.mid(groups.size() - 3)) {
            QVERIFY2(line.isEmpty() || guide.contains("\n    " + line + '\n'), qPrintable(line));
        }
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

    void trials_areWritten_andPrinted()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        bench.addRun(differenceName, carrierFrequencyParameter, 2);
        const QVector<Run> runs {bench.runOf(depthName), bench.runOf(differenceName)};
        const QStringList files {depthName, differenceName};
        const Outcome printed
            = bench.report(QStringList {"--trials", "-", "--carrier", "1234.5"} + files);
        QCOMPARE(printed.output, trialsCsv(runs, 1234.5));
        const Outcome written = bench.report(QStringList {"--trials", "all.csv"} + files);
        QCOMPARE(written.output, runTable(runs));
        QCOMPARE(contentOf(bench.path("all.csv")), trialsCsv(runs, {}).toUtf8());
    }

    void dashesAndQtsOptions_areNoTraps()
    {
        const Bench bench;
        bench.addRun("-run.txt", modulationDepthParameter, 1);
        QCOMPARE(bench.report({"--csv", "-", "--", "-run.txt"}).errors, QStringList());
        const Outcome platform = bench.report({"-platform", "foo", "--", "-run.txt"});
        QCOMPARE(platform.status, 2);
        QCOMPARE(platform.errors.size(), 1);
        const Outcome full = bench.report({"--help"}, "/dev/full");
        QCOMPARE(full.status, 1);
        QCOMPARE(full.errors, QStringList("quorin-report: standard output: cannot be written"));
    }

    void pictures_areOfTheirFormat_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QByteArray>("begin");
        QTest::newRow("png") << "png" << QByteArray("\x89PNG\r\n");
        QTest::newRow("svg") << "svg" << QByteArray("<?xml version=\"1.0\"");
        QTest::newRow("pdf") << "pdf" << QByteArray("%PDF-1.");
    }

    void pictures_areOfTheirFormat()
    {
        QFETCH(QString, format);
        QFETCH(QByteArray, begin);
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        bench.addRun("other/" + depthName, modulationDepthParameter, 2);
        bench.addRun("x.dat", carrierFrequencyParameter, 3);
        const Outcome outcome = bench.report(
            {"--plot", "deep/plots", "--format", format, "--summary", depthName, "other", "x.dat"});
        QCOMPARE(outcome.errors, QStringList());
        const QString base = depthName.chopped(4);
        QStringList expected {base + '.' + format, base + "-2." + format, "A_summary." + format,
            "A_learning." + format, "x.dat." + format, "x.dat_summary." + format};
        expected.sort();
        QStringList found = bench.names("deep/plots");
        found.sort();
        QCOMPARE(found, expected);
        for (const QString& name : qAsConst(expected)) {
            QVERIFY(contentOf(bench.path("deep/plots/" + name)).startsWith(begin));
        }
        QCOMPARE(outcome.status, 0);
    }

    void nothingIsLeft_whenAnOutputCannotBeWritten()
    {
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1);
        fillFile(bench.path("file"), "kept");
        const Outcome csv = bench.report({"--csv", "missing/all.csv", "run.txt"});
        QCOMPARE(csv.status, 1);
        QCOMPARE(csv.errors, QStringList("missing/all.csv: there is no folder missing: make it"));
        QVERIFY(!csv.output.isEmpty());

        const Outcome plot = bench.report({"--plot", "file", "run.txt"});
        QCOMPARE(plot.status, 1);
        QCOMPARE(plot.errors, QStringList("file: the folder cannot be made"));
        QCOMPARE(contentOf(bench.path("file")), QByteArray("kept"));
        QCOMPARE(bench.names(), QStringList({"file", "run.txt"}));

        const Outcome full = bench.report({"run.txt"}, "/dev/full");
        QCOMPARE(full.status, 1);
        QCOMPARE(full.errors, QStringList("standard output: cannot be written"));
    }

    void resultsFile_isNeverReplaced()
    {
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1);
        const QByteArray before = contentOf(bench.path("run.txt"));
        for (const QStringList& options : {QStringList {}, QStringList {"--force"}}) {
            const Outcome outcome = bench.report(options + QStringList {"--csv", "run.txt", "."});
            QCOMPARE(outcome.errors,
                QStringList("run.txt: is there already and not recognised as a companion's file: "
                            "give another name, or move it away"));
            QVERIFY(!outcome.output.isEmpty());
            QCOMPARE(outcome.status, 1);
            QCOMPARE(contentOf(bench.path("run.txt")), before);
        }
    }

    void tablesAndPictures_areReplaced_onlyByForce()
    {
        const Bench bench;
        bench.addRun("a.txt", modulationDepthParameter, 1);
        bench.addRun("b/a.txt", modulationDepthParameter, 2);
        const QStringList rest {"--csv", "all.csv", "--plot", "p", "--summary"};
        QCOMPARE(bench.report(rest + QStringList("a.txt")).errors, QStringList());
        const auto contents = [&bench] {
            return QList<QByteArray> {contentOf(bench.path("all.csv")),
                contentOf(bench.path("p/a.png")), contentOf(bench.path("p/a.txt_summary.png"))};
        };
        const QList<QByteArray> before = contents();

        const Outcome refused = bench.report(rest + QStringList("b"));
        QCOMPARE(refused.status, 1);
        QStringList expected;
        for (const char* name : {"all.csv", "p/a.png", "p/a.txt_summary.png"}) {
            expected.append(
                QString(name) + ": is there already: give another name, or --force to replace it");
        }
        QCOMPARE(refused.errors, expected);
        QCOMPARE(contents(), before);

        QCOMPARE(bench.report(rest + QStringList({"--force", "b"})).errors, QStringList());
        for (int i = 0; i < before.size(); ++i) {
            QVERIFY(contents()[i] != before[i]);
        }
    }

    void devices_areWrittenTo_andStayDevices()
    {
        const Bench bench;
        bench.addRun("run.txt", modulationDepthParameter, 1);
        const Outcome full = bench.report({"--csv", "/dev/full", "run.txt"});
        QCOMPARE(full.errors, QStringList("/dev/full: cannot be written: No space left on device"));
        QCOMPARE(full.status, 1);
        QVERIFY(!QFileInfo("/dev/full").isFile());
        QCOMPARE(bench.report({"--csv", "/dev/null", "run.txt"}).status, 0);
        QVERIFY(!QFileInfo("/dev/null").isFile());
    }

    void nothingIsWritten_withoutARun()
    {
        const Bench bench;
        const Outcome outcome = bench.report({"--csv", "all.csv", "."});
        QCOMPARE(outcome.errors, QStringList(".: there is no results file (*.txt) in the folder"));
        QCOMPARE(outcome.output, QString());
        QCOMPARE(bench.names(), QStringList());
        QCOMPARE(outcome.status, 1);
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
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        QTest::newRow("nothing") << QStringList() << "no files or folders are given";
        QTest::newRow("unknown option")
            << QStringList {"--colour", "run.txt"} << "Unknown option 'colour'.";
        QTest::newRow("no reversals") << QStringList {"--reversals", "0", "run.txt"}
                                      << "--reversals must be 1 to 100000, not \"0\"";
        QTest::newRow("last of no number")
            << QStringList {"--last", "8x", "run.txt"} << "--last must be 1 to 100000, not \"8x\"";
        QTest::newRow("more than there are") << QStringList {"--reversals", "6", "--last", "7",
            "run.txt"} << "--last must be 1 to the number of reversals, 6, not \"7\"";
        QTest::newRow("carrier") << QStringList {"--carrier", "0", "run.txt"}
                                 << "--carrier must be above 0 and at most 1000000 Hz, not \"0\"";
        QTest::newRow("key") << QStringList {"--by", "sound,colour", "run.txt"}
                             << "--by is a list of subject, parameter, sound, type, session, each "
                                "once, not \"sound,colour\"";
        QTest::newRow("axis") << QStringList {"--over", "trials", "run.txt"}
                              << "--over is session or date, not \"trials\"";
        QTest::newRow("two tables on one output") << QStringList {"--csv", "-", "--trials", "-",
            "run.txt"} << "--csv and --trials do not go to standard output together";
        QTest::newRow("format") << QStringList {"--format", "gif", "run.txt"}
                                << "--format is png, svg or pdf, not \"gif\"";
        QTest::newRow("nameless table")
            << QStringList {"--csv=", "run.txt"} << "--csv needs a name";
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

QTEST_GUILESS_MAIN(TestReportProgram)
#include "tst_report_program.moc"
