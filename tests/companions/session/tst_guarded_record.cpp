// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of the copy in a second folder, on a full disk and elsewhere.
#include "ClosedFolder.h"
#include "RecordedRun.h"
#include "SmallDisk.h"
#include "session/GuardedRecord.h"
#include "session/RecordQueue.h"
#include "session/SecondFolders.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

class TestGuardedRecord : public QuietTest {
    Q_OBJECT

private slots:
    // The last line has a place in the folder, the results have none.
    void copy_stays_whereOnlyItHasAResultsFile()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        GuardedRecord record(folder.path(), {other.path()}, "S", time);
        const QByteArray results(1000, 'x');
        record.append("line\n");
        record.finish(results, [](const QString& /*name*/, const QString& error) {
            return error.isEmpty() ? QByteArray("saved\n") : QByteArray("save failed\n");
        });
        QVERIFY(QDir(folder.path()).removeRecursively());
        QVERIFY(!record.sync());
        QVERIFY(QDir().mkpath(folder.path()));
        {
            const SmallDisk disk(999);
            QVERIFY(record.sync());
        }
        QVERIFY(record.sync());
        QCOMPARE(contents(folder.path()),
            QStringList("S_20260102-030405_001.jsonl=line\nsave failed\n"));
        QCOMPARE(contents(other.path()),
            QStringList({"S_20260102-030405_001_kept.jsonl=line\nsaved\n",
                "S_20260102-030405_001_kept.txt=" + results}));
    }

    void results_areKeptElsewhere_whereTheFolderTakesNoNewFile()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        GuardedRecord record(folder.path(), {other.path()}, "S", time);
        record.append("line\n");
        QVERIFY(record.sync());
        record.finish("results", lastLine);
        const QString name = "S_20260102-030405_001";
        const QString fault
            = folder.filePath(name + ".txt") + ": cannot be written: Permission denied";
        {
            const ClosedFolder closed(folder.path());
            QVERIFY(record.sync());
            QCOMPARE(record.takeResultsFault(),
                fault + "; it is written to " + other.filePath(name + "_kept.txt")
                    + ", and the next session brings it");
            QVERIFY(record.sync());
        }
        const QString line = name + ".jsonl=line\n" + name + ".txt: " + fault + '\n';
        QCOMPARE(contents(folder.path()), QStringList(line));
        QCOMPARE(contents(other.path()),
            QStringList({name + "_kept.jsonl=line\n" + name + "_kept.txt: \n",
                name + "_kept.txt=results"}));
        QCOMPARE(broughtBack(folder.path(), {other.path()}).errors, QStringList());
        QCOMPARE(contents(folder.path()), QStringList({line, name + ".txt=results"}));
        QVERIFY(!QDir(other.path()).exists());
    }

    void resultsFileThatCannotBeMadeElsewhere_isToldAtTheEnd()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        RecordQueue queue(folder.path(), {other.path()}, [] {});
        QVERIFY(QDir(folder.path()).removeRecursively());
        queue.begin("S", time);
        queue.append({{"event", "run"}}, {});
        QVERIFY(!queue.flush());
        const QString results = other.filePath("S_20260102-030405_001_kept.txt");
        QVERIFY(QDir().mkdir(results));
        queue.file().finish("results", lastLine);
        QCOMPARE(queue.close(),
            QStringList({other.filePath("S_20260102-030405_001_kept.jsonl")
                    + ": kept here; the next session in " + folder.path() + " takes it there",
                results + ": was made by another program meanwhile: left as it is"}));
    }

    void error_isThatOfTheLastRecord_whenAnEarlierOneWaitsToo()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        RecordQueue queue(folder.path(), {other.path()}, [] {});
        QVERIFY(QDir(folder.path()).removeRecursively());
        for (const QString& name :
            QStringList {"S_20260102-030405_001_kept", "S_20260102-030405_002_kept"}) {
            queue.begin("S", time);
            queue.append({{"event", "run"}}, {});
            QVERIFY(!queue.flush());
            const QString path = other.filePath(name + ".jsonl");
            QVERIFY2(
                queue.error().endsWith("; it is written to " + path), qPrintable(queue.error()));
        }
    }

private:
    static constexpr auto time = "2026-01-02T03:04:05.678Z";

    /// A text for each file: its name, "=" and its bytes.
    static QStringList contents(const QString& folder)
    {
        QStringList all;
        const QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        for (const QString& name : names)
            all.append(name + '=' + contentOf(QDir(folder).filePath(name)));
        return all;
    }

    static QByteArray lastLine(const QString& name, const QString& error)
    {
        return (name + ": " + error + '\n').toUtf8();
    }
};

QUORIN_GUILESS_TEST(TestGuardedRecord);
#include "tst_guarded_record.moc"
