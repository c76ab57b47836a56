// SPDX-License-Identifier: GPL-3.0-or-later
// Where records are kept whose folder cannot be written to, and how they come back.
#include "RecordedLines.h"
#include "RecordedRun.h"
#include "StudyTexts.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordReader.h"
#include "session/SecondFolders.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QSignalSpy>

class TestSecondFolders : public WindowTest {
    Q_OBJECT

private slots:
    void folders_areOfTheUserAndOfThePath()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath("a/study"));
        QVERIFY(QDir(folder.path()).mkpath("b/study"));
        QVERIFY(QFile::link(folder.filePath("a"), folder.filePath("c")));
        const QStringList first = secondFolders(folder.filePath("a/study"));
        QCOMPARE(first.size(), 2);
        QVERIFY(QFileInfo(first[0]).fileName().startsWith("study-"));
        QCOMPARE(QFileInfo(first[0]).fileName(), QFileInfo(first[1]).fileName());
        QVERIFY(first[1].startsWith(QDir::tempPath() + "/quorin-session-"));
        QVERIFY(secondFolders(folder.filePath("b/study")) != first);
        QCOMPARE(secondFolders(folder.filePath("c/study/")), first);
    }

    void files_comeBack_andTheirFolderGoes()
    {
        const QTemporaryDir folder;
        QTemporaryDir other;
        writtenFile(other, "1_kept.jsonl", "record");
        writtenFile(other, "1_kept.txt", "results");
        writtenFile(other, "2_kept.jsonl", "is there");
        writtenFile(folder, "2_kept.jsonl", "is there");
        const BroughtBack back = broughtBack(folder.path(), {"/nowhere", other.path()});
        QCOMPARE(back.errors, QStringList());
        const QString told = ": was kept in " + other.path() + " and is here now";
        QCOMPARE(back.notes,
            QStringList({"1_kept.jsonl" + told, "1_kept.txt" + told, "2_kept.jsonl" + told}));
        QCOMPARE(RecordedRun::contentOf(folder.filePath("1_kept.jsonl")), QByteArray("record"));
        QCOMPARE(RecordedRun::contentOf(folder.filePath("1_kept.txt")), QByteArray("results"));
        QVERIFY(!QDir(other.path()).exists());
    }

    void files_stay_whereTheyCannotComeBack()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        const QString mine = writtenFile(other, "1_kept.jsonl", "record");
        const QString others = writtenFile(folder, "1_kept.jsonl", "another");
        const BroughtBack back = broughtBack(folder.path(), {other.path()});
        QCOMPARE(back.errors,
            QStringList(others + ": was made by another program meanwhile: left as it is; it is "
                + "kept in " + other.path()));
        QCOMPARE(back.notes, QStringList());
        QCOMPARE(RecordedRun::contentOf(others), QByteArray("another"));
        QCOMPARE(RecordedRun::contentOf(mine), QByteArray("record"));
    }

    void recordThatCannotBeWritten_isWrittenElsewhereAtOnce()
    {
        const QTemporaryDir other;
        RecordedRun run(1, {other.path()});
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        run.play("c");
        const QString record = run.recordPath();
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.driver.playTrial();
        run.driver.answerRightly(false);
        QCoreApplication::processEvents();
        const QString kept = keptIn(other, ".jsonl");
        QCOMPARE(kept, other.filePath(QFileInfo(record).completeBaseName() + "_kept.jsonl"));
        QCOMPARE(failures,
            QList<QVariantList>({{record + ": cannot be written: No such file or directory; "
                + "it is written to " + kept}}));
        QCOMPARE(eventsOf(RecordedRun::linesIn(RecordedRun::contentOf(kept))),
            QStringList("run") + trialEvents + trialEvents + QStringList("trial"));
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QCOMPARE(eventsOf(RecordedRun::linesIn(RecordedRun::contentOf(kept))),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        QCOMPARE(RecordedRun::contentOf(keptIn(other, ".txt")),
            resultsBytes(run.window->sessionRecord()));
        QCOMPARE(readRecordFile(kept).error, QString());
        QCOMPARE(run.recorder.close(),
            QStringList(kept + ": kept here; the next session in " + run.folder.path()
                + " takes it there"));
    }

    void recordThatWasWrittenElsewhere_isWholeInItsFolder_whenThatIsBack_data()
    {
        QTest::addColumn<QString>("meanwhile");
        QTest::newRow("in mid-run") << "w";
        QTest::newRow("after the run") << "wc";
    }

    void recordThatWasWrittenElsewhere_isWholeInItsFolder_whenThatIsBack()
    {
        QFETCH(QString, meanwhile);
        QTemporaryDir other;
        RecordedRun run(1, {other.path()});
        run.play("c");
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        playAnswers(run, meanwhile);
        QVERIFY(!run.recorder.flush());
        QVERIFY(QFile::exists(keptIn(other, ".jsonl")));
        QVERIFY(QDir().mkpath(run.folder.path()));
        playAnswers(run, QString("wc").mid(meanwhile.size()));
        QVERIFY(run.recorder.flush());
        QCOMPARE(eventsOf(run.lines()),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        QCOMPARE(run.names().size(), 2);
        QVERIFY(!QDir(other.path()).exists()); // nothing was left in it
        QCOMPARE(run.recorder.close(), QStringList());
    }

    void recordThatCannotBeWritten_isInTheFirstFolderThatTakesIt()
    {
        const QTemporaryDir other;
        const QTemporaryDir third;
        RecordedRun run(1, {other.filePath("new"), third.path()});
        run.driver.open();
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.driver.beReady();
        QVERIFY(!run.recorder.flush());
        const QStringList first = QDir(other.filePath("new")).entryList(QDir::Files);
        QCOMPARE(first.size(), 1);
        QVERIFY(QDir(other.path()).removeRecursively());
        QFile file(other.path()); // in the place of the folder
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(!run.recorder.flush());
        QCOMPARE(QDir(third.path()).entryList(QDir::Files), first);
    }

    void recordThatCannotBeWrittenAnywhere_isTold()
    {
        RecordedRun run(1, {"/proc/nowhere"});
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.play("cwc");
        const QStringList told = run.recorder.close();
        QCOMPARE(told.size(), 1);
        QVERIFY(told[0].startsWith(run.path("S_07_")));
        QVERIFY(told[0].endsWith(".jsonl: cannot be written: No such file or directory; nor can it "
                                 "be written anywhere else"));
    }

private:
    static QString keptIn(const QTemporaryDir& other, const QString& ending)
    {
        return other.filePath(QDir(other.path()).entryList({'*' + ending}).value(0, "(nothing)"));
    }

    static void playAnswers(RecordedRun& run, const QString& answers)
    {
        for (const QChar character : answers) {
            run.driver.playTrial();
            run.driver.answerRightly(character == 'c');
        }
    }
};

QUORIN_TEST(TestSecondFolders);
#include "tst_second_folders.moc"
