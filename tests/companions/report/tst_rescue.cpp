// SPDX-License-Identifier: GPL-3.0-or-later
// Results files made of records of runs that were cut short.
#include "RecordedFolder.h"
#include "record/RecordReader.h"
#include "support/WindowTest.h"

using namespace quorin;

class TestRescue : public WindowTest {
    Q_OBJECT

private slots:
    void rescue_makesAResultsFileOfTheAnsweredTrials_atEachLine()
    {
        const RunFiles& files = recordedRun();
        for (int n = 1; n < files.record.count('\n'); ++n) {
            const Folder folder;
            const QByteArray part = upToLine(files.record, n);
            folder.put("a_001.jsonl", part + (n % 2 == 0 ? "{\"at_" : ""));
            const int nAnswers = part.count(R"("event":"answer")");
            const Reading rescued = folder.rescue("a_001.jsonl");
            QCOMPARE(rescued.isGood, nAnswers > 0);
            const QString target("a_001_rescued.txt");
            if (nAnswers == 0) {
                QCOMPARE(rescued.told,
                    QStringList("a_001.jsonl: cut short before the first answer: there is no trial "
                                "to rescue"));
                QVERIFY(!QFile::exists(folder.path(target)));
                continue;
            }
            QCOMPARE(contentOf(folder.path(target)), upToLine(files.results, 1 + nAnswers));
            QCOMPARE(rescued.told,
                QStringList(
                    QString("%1: trials: %2, of a_001.jsonl, %3")
                        .arg(target)
                        .arg(nAnswers)
                        .arg(nAnswers == 10 ? QString("which is whole")
                                            : QString("cut short after trial %1").arg(nAnswers))));
            QCOMPARE(folder.read().runs.size(), nAnswers == 10 ? 1 : 0); // still counted once
        }
    }

    void rescue_replacesNothing()
    {
        const RunFiles files = abandonedRun();
        const Folder folder;
        folder.put("a.jsonl", files.record);
        folder.put("a_rescued.txt", "mine");
        const Reading rescued = folder.rescue("a.jsonl");
        QVERIFY(!rescued.isGood);
        QCOMPARE(rescued.told.size(), 1);
        QVERIFY(rescued.told[0].startsWith("a.jsonl: a_rescued.txt"));
        QCOMPARE(contentOf(folder.path("a_rescued.txt")), QByteArray("mine"));
    }

    void rescue_makesNothing_whenTheResultsFileIsThere()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        const QString record = files.name + ".jsonl";
        folder.put(record, files.record);
        const QString results = folder.put(files.name + ".txt", files.results);
        const Reading rescued = folder.rescue(record);
        QVERIFY(rescued.isGood);
        QCOMPARE(
            rescued.told, QStringList(record + ": all its trials are in " + files.name + ".txt"));
        QFile::remove(results);
        QVERIFY(folder.rescue(record).isGood);
        QCOMPARE(contentOf(folder.path(files.name + "_rescued.txt")), files.results);
    }

    void rescue_isDone_whenItWasDoneBefore()
    {
        const RunFiles files = abandonedRun();
        const Folder folder;
        folder.put("a.jsonl", files.record);
        QVERIFY(folder.rescue("a.jsonl").isGood);
        const QByteArray rescued = contentOf(folder.path("a_rescued.txt"));
        const Reading again = folder.rescue("a.jsonl");
        QVERIFY(again.isGood);
        QCOMPARE(again.told, QStringList("a.jsonl: all its trials are in a_rescued.txt"));
        folder.put("a_rescued.txt", rescued.chopped(1));
        QVERIFY(!folder.rescue("a.jsonl").isGood);
        QCOMPARE(contentOf(folder.path("a_rescued.txt")), rescued.chopped(1));
    }

    void rescue_refusesAContradiction_unlessItIsUnchecked()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("a.jsonl", withAnswer(files.record, 3, "reversals", 5));
        QCOMPARE(folder.rescue("a.jsonl").told,
            QStringList("a.jsonl:34: the count of reversals is 5, and 1 follows from the lines "
                        "before"));
        QVERIFY(!QFile::exists(folder.path("a_rescued.txt")));
        QVERIFY(folder.rescue("a.jsonl", true).isGood);
        QCOMPARE(contentOf(folder.path("a_rescued.txt")), files.results);
        QCOMPARE(folder.rescue("missing.jsonl").told,
            QStringList("missing.jsonl: cannot be read: No such file or directory"));
    }

    void program_rescuesAndReports()
    {
        const RunFiles files = abandonedRun();
        const Bench bench;
        fillFile(bench.path("a.jsonl"), files.record);
        const Outcome rescued = bench.report({"--rescue", "a.jsonl"});
        QCOMPARE(rescued.status, 0);
        QCOMPARE(rescued.errors, QStringList());
        QCOMPARE(rescued.output,
            QString("./a_rescued.txt: trials: 2, of a.jsonl, abandoned after trial 2: the "
                    "listener's window was closed\n"));
        QCOMPARE(bench.report({"--rescue", "a.jsonl"}).output,
            QString("a.jsonl: all its trials are in a_rescued.txt\n"));
        const Outcome wrong = bench.report({"--rescue", "--csv", "x.csv", "a.jsonl"});
        QCOMPARE(wrong.status, 2);
        QCOMPARE(wrong.errors,
            QStringList("quorin-report: --rescue goes with --unchecked alone, not with --csv"));
        const RunFiles& whole = recordedRun();
        fillFile(bench.path("b.jsonl"), whole.record);
        const Outcome report = bench.report({"--summary", "--plot", "pictures", "b.jsonl"});
        QCOMPARE(report.status, 0);
        QVERIFY(report.output.startsWith("threshold: mean of the last 4 of 6 reversals;"));
        QCOMPARE(bench.names("pictures"),
            QStringList({"b.png", "S_07_learning.png", "S_07_summary.png"}));
    }
};

QUORIN_TEST(TestRescue);
#include "tst_rescue.moc"
