// SPDX-License-Identifier: GPL-3.0-or-later
// What quorin-report prints and writes, and what it leaves alone.
#include "ReportBench.h"
#include "report/GroupTable.h"
#include "report/RunCsv.h"
#include "report/RunTable.h"
#include "report/TrialsCsv.h"
#include "support/QuietTest.h"

using namespace quorin;

class TestReportOutputs : public QuietTest {
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

    void trials_areWritten_andPrinted()
    {
        const Bench bench;
        bench.addRun(depthName, modulationDepthParameter, 1);
        bench.addRun(differenceName, carrierFrequencyParameter, 2);
        const QVector<Run> runs {bench.runOf(depthName), bench.runOf(differenceName)};
        const QStringList files {depthName, differenceName};
        const QStringList toTheTerminal = {"--trials", "-", "--carrier", "1234.5"};
        const Outcome printed = bench.report(toTheTerminal + files);
        QCOMPARE(printed.output, trialsCsv(runs, 1234.5));
        const QStringList toAFile = {"--trials", "all.csv"};
        const Outcome written = bench.report(toAFile + files);
        QCOMPARE(written.output, runTable(runs));
        QCOMPARE(contentOf(bench.path("all.csv")), trialsCsv(runs, {}).toUtf8());
    }

    void pictures_areOfTheirFormat_data()
    {
        addColumns<QString, QByteArray>("format", "begin");
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
        QCOMPARE(outcome.errors,
            QStringList(
                ".: there is no results file (*.txt) and no record (*.jsonl) in the folder"));
        QCOMPARE(outcome.output, QString());
        QCOMPARE(bench.names(), QStringList());
        QCOMPARE(outcome.status, 1);
    }
};

QUORIN_GUILESS_TEST(TestReportOutputs);
#include "tst_report_outputs.moc"
