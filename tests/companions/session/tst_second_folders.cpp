// SPDX-License-Identifier: GPL-3.0-or-later
// Where records are kept whose folder cannot be written to, and how they come back.
#include "RecordedLines.h"
#include "RecordedRun.h"
#include "SmallDisk.h"
#include "StudyTexts.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordReader.h"
#include "session/GuardedRecord.h"
#include "session/SecondFolders.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QCryptographicHash>
#include <QSignalSpy>
#include <QSysInfo>

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
        QCOMPARE(QFileInfo(first[1]).path(), QDir::tempPath()); // none of another user's before it
        QVERIFY(QFileInfo(first[1]).fileName().startsWith("quorin-session-"));
        QVERIFY(first[1].endsWith('-' + QFileInfo(first[0]).fileName()));
        const QByteArray place = QFileInfo(folder.filePath("a/study")).canonicalFilePath().toUtf8()
            + '\0' + QSysInfo::machineUniqueId();
        const QByteArray digest
            = QCryptographicHash::hash(place, QCryptographicHash::Sha256).toHex().left(8);
        QCOMPARE(QFileInfo(first[0]).fileName(), "study-" + QString(digest));
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
        QCOMPARE(contentOf(folder.filePath("1_kept.jsonl")), QByteArray("record"));
        QCOMPARE(contentOf(folder.filePath("1_kept.txt")), QByteArray("results"));
        QVERIFY(!QDir(other.path()).exists());
    }

    void folder_isForTheUserAlone_andNoLink()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a/b");
        QVERIFY(makeOwnFolder(path));
        QVERIFY(makeOwnFolder(path)); // it is there
        const QFileDevice::Permissions own
            = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
        const QFileDevice::Permissions ofAll = own | QFileDevice::ReadGroup
            | QFileDevice::WriteGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther
            | QFileDevice::WriteOther | QFileDevice::ExeOther;
        QCOMPARE(QFileInfo(path).permissions() & ofAll, own);
        QVERIFY(QFile::link(path, folder.filePath("link")));
        QVERIFY(!makeOwnFolder(folder.filePath("link")));
    }

    void filesBehindALink_andOfOtherNames_stay()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        writtenFile(other, "1_kept.jsonl", "record");
        const QString link = folder.filePath("link");
        QVERIFY(QFile::link(other.path(), link));
        QCOMPARE(broughtBack(folder.path(), {link}).notes, QStringList());
        writtenFile(other, "1.jsonl", "not kept");
        QCOMPARE(broughtBack(folder.path(), {other.path()}).notes.size(), 1);
        QCOMPARE(QDir(other.path()).entryList(QDir::Files), QStringList("1.jsonl"));
    }

    void copyOfAWholeRecord_isRemovedWithItsResults()
    {
        const QTemporaryDir folder;
        QTemporaryDir other;
        writtenFile(folder, "1.jsonl", "run\nanswer\nresult 1.txt\n");
        writtenFile(folder, "1.txt", "results");
        writtenFile(other, "1_kept.jsonl", "run\nanswer\nresult 1_kept.txt\n");
        writtenFile(other, "1_kept.txt", "results");
        const BroughtBack back = broughtBack(folder.path(), {other.path()});
        QCOMPARE(back.errors, QStringList());
        QCOMPARE(back.notes,
            QStringList(
                "1_kept.jsonl: was kept in " + other.path() + " and is whole here as 1.jsonl"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"1.jsonl", "1.txt"}));
        QVERIFY(!QDir(other.path()).exists());
    }

    void resultsThatOnlyTheCopyHas_areBroughtToItsRecord()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        writtenFile(folder, "1.jsonl", "run\nanswer\nsave failed\n");
        writtenFile(other, "1_kept.jsonl", "run\nanswer\nresult\n");
        writtenFile(other, "1_kept.txt", "results");
        const BroughtBack result = broughtBack(folder.path(), {other.path()});
        QCOMPARE(result.errors, QStringList());
        QCOMPARE(contentOf(folder.filePath("1.jsonl")), QByteArray("run\nanswer\nsave failed\n"));
        QCOMPARE(contentOf(folder.filePath("1.txt")), QByteArray("results"));
        QVERIFY(!QDir(other.path()).exists());
    }

    void copyThatHasMore_isBroughtBack_data()
    {
        QTest::addColumn<QByteArray>("here");
        QTest::newRow("a line more") << QByteArray("run\nanswer\n");
        QTest::newRow("the last line is cut here") << QByteArray("run\nanswer\nresu");
        QTest::newRow("another run") << QByteArray("other\nanswer\nresult\n");
    }

    void copyThatHasMore_isBroughtBack()
    {
        QFETCH(QByteArray, here);
        const QTemporaryDir folder;
        const QTemporaryDir other;
        writtenFile(folder, "1.jsonl", here);
        writtenFile(other, "1_kept.jsonl", "run\nanswer\nresult\n");
        QCOMPARE(broughtBack(folder.path(), {other.path()}).errors, QStringList());
        QCOMPARE(contentOf(folder.filePath("1.jsonl")), here);
        QCOMPARE(contentOf(folder.filePath("1_kept.jsonl")), QByteArray("run\nanswer\nresult\n"));
    }

    void longerOfTwoCopies_isBroughtBack_data()
    {
        QTest::addColumn<QByteArray>("inSecond");
        QTest::addColumn<QByteArray>("inThird");
        QTest::newRow("of the third folder") << QByteArray("run\n") << QByteArray("run\nanswer\n");
        QTest::newRow("of the second folder") << QByteArray("run\nanswer\n") << QByteArray("run\n");
    }

    void longerOfTwoCopies_isBroughtBack()
    {
        QFETCH(QByteArray, inSecond);
        QFETCH(QByteArray, inThird);
        const QTemporaryDir folder;
        const QTemporaryDir second;
        const QTemporaryDir third;
        writtenFile(second, "1_kept.jsonl", inSecond);
        writtenFile(third, "1_kept.jsonl", inThird);
        QCOMPARE(broughtBack(folder.path(), {second.path(), third.path()}).errors, QStringList());
        QCOMPARE(contentOf(folder.filePath("1_kept.jsonl")), QByteArray("run\nanswer\n"));
        QVERIFY(!QDir(second.path()).exists());
        QVERIFY(!QDir(third.path()).exists());
    }

    void fileThatIsNotReadWhole_stays()
    {
        const QTemporaryDir folder;
        const QTemporaryDir other;
        const QString path = other.filePath("1_kept.jsonl");
        QVERIFY(QFile::link("/proc/self/limits", path)); // tells another size than it has
        QCOMPARE(broughtBack(folder.path(), {other.path()}).errors,
            QStringList(path + ": cannot be read; it is kept in " + other.path()));
        QVERIFY(QDir(folder.path()).isEmpty());
        QVERIFY(QFileInfo(path).isSymLink());
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
        QCOMPARE(contentOf(others), QByteArray("another"));
        QCOMPARE(contentOf(mine), QByteArray("record"));
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
        QCOMPARE(eventsOf(RecordedRun::linesIn(contentOf(kept))),
            QStringList("run") + trialEvents + trialEvents + QStringList("trial"));
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QCOMPARE(eventsOf(RecordedRun::linesIn(contentOf(kept))),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        QCOMPARE(contentOf(keptIn(other, ".txt")), resultsBytes(run.window->sessionRecord()));
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

    // The results do not fit either: the second folder has as little place as the first.
    void resultsOfAFullDisk_areWholeInTheFolder_whenThereIsSpaceAgain()
    {
        QTemporaryDir other;
        RecordedRun run(1, {other.path()});
        run.play("cw");
        {
            const SmallDisk disk(10);
            run.driver.playTrial();
            run.driver.answerRightly(true);
            QVERIFY(!run.recorder.flush());
        }
        QVERIFY(run.recorder.flush());
        expectAllInFolder(run);
        QVERIFY(!QDir(other.path()).exists());
    }

    void whatIsKeptElsewhere_stays_untilTheFolderHasRecordAndResults()
    {
        const QTemporaryDir folder;
        QTemporaryDir other;
        const QString here = folder.filePath("here");
        const QString name = "S_20260102-030405_001";
        GuardedRecord record(here, {other.path()}, "S", "2026-01-02T03:04:05.678Z");
        record.append("line\n");
        record.finish("results", [](const QString& results, const QString& error) {
            return (results + ": " + error + '\n').toUtf8();
        });
        QVERIFY(!record.sync());
        QVERIFY(QDir().mkpath(here));
        for (const int size : {4, 5, 20}) { // no line fits; no results; no last line
            const SmallDisk disk(size);
            QVERIFY(!record.sync());
            QVERIFY(!record.sync());
            QCOMPARE(contentOf(other.filePath(name + "_kept.jsonl")),
                "line\n" + name.toUtf8() + "_kept.txt: \n");
            QCOMPARE(contentOf(other.filePath(name + "_kept.txt")), QByteArray("results"));
        }
        QVERIFY(record.sync());
        QCOMPARE(record.takeResultsFault(), QString());
        QCOMPARE(
            contentOf(here + '/' + record.recordName()), "line\n" + name.toUtf8() + ".txt: \n");
        QCOMPARE(contentOf(here + '/' + name + ".txt"), QByteArray("results"));
        QVERIFY(!QDir(other.path()).exists());
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
    static void expectAllInFolder(const RecordedRun& run)
    {
        QCOMPARE(eventsOf(run.lines()),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        const QString results = run.lines().last()["results_file"].toString();
        QCOMPARE(run.names(), QStringList({run.recorder.recordName(), results}));
        QCOMPARE(contentOf(run.path(results)), resultsBytes(run.window->sessionRecord()));
    }

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
