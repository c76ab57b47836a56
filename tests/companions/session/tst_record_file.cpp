// SPDX-License-Identifier: GPL-3.0-or-later
// The names of a run's files, none of which was there before, and when they are on the disk.
#include "RecordedRun.h"
#include "SmallDisk.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// What was brought to the disk: "folder", or a file by its size then.
QStringList synced;
bool isWatched = false; // other tests of the program have threads
bool failsToSync = false;

} // namespace

// In the place of the C library's, which has a reserved name there:
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int fsync(int descriptor)
{
    struct stat status { };
    ::fstat(descriptor, &status);
    if (isWatched) {
        synced.append(
            S_ISDIR(status.st_mode) ? QString("folder") : QString::number(status.st_size));
    }
    if (failsToSync) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

class TestRecordFile : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { isWatched = true; }

    void name_isSubjectTimeAndNumber()
    {
        QCOMPARE(runFileName("S/07", "2026-01-02T03:04:05.678+01:00", 7),
            QString("S_07_20260102-030405_007"));
        QCOMPARE(runFileName({}, "2026-01-02T03:04:05.678Z", 1000),
            QString("subject_20260102-030405_1000"));
        QCOMPARE(runFileName(QString(50, 'x'), "2026-01-02T03:04:05.678Z", 1),
            QString(40, 'x') + "_20260102-030405_001");
    }

    void file_isNeverAnExistingOne_norItsResultsFile()
    {
        const QTemporaryDir folder;
        const QString time = "2026-01-02T03:04:05.678Z";
        const auto fill = [&folder](const QString& name) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
        };
        fill("S_20260102-030405_001.jsonl");
        fill("S_20260102-030405_002.txt");
        QVERIFY(QFile::link("nowhere", folder.filePath("S_20260102-030405_003.txt")));
        RecordFile file(folder.path(), "S", time);
        file.append("line\n");
        QVERIFY(file.sync());
        QCOMPARE(file.recordName(), QString("S_20260102-030405_004.jsonl"));
        file.finish("results", lastLine);
        QVERIFY(file.sync());
        QCOMPARE(contentOf(folder.filePath("S_20260102-030405_004.txt")), QByteArray("results"));
        QCOMPARE(contentOf(folder.filePath("S_20260102-030405_004.jsonl")),
            QByteArray("line\nS_20260102-030405_004.txt: \n"));
        QCOMPARE(contentOf(folder.filePath("S_20260102-030405_001.jsonl")), QByteArray("mine"));
    }

    void resultsFile_isNeverAnExistingOne()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        file.append("line\n");
        QVERIFY(file.sync());
        const QString path = folder.filePath("S_20260102-030405_001.txt");
        QFile others(path);
        QVERIFY(others.open(QIODevice::WriteOnly) && others.write("others") == 6);
        others.close();
        file.finish("results", lastLine);
        QVERIFY(file.sync());
        QVERIFY(file.sync());
        QCOMPARE(contentOf(path), QByteArray("others"));
        QCOMPARE(contentOf(folder.filePath(file.recordName())),
            "line\nS_20260102-030405_001.txt: " + path.toUtf8()
                + ": was made by another program meanwhile: left as it is\n");
    }

    void record_isNotThere_untilItsFirstLineIs()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        file.append("line\n");
        {
            const SmallDisk disk(4);
            QVERIFY(!file.sync());
            QCOMPARE(file.error(),
                folder.filePath("S_20260102-030405_001.jsonl: cannot be written: File too large"));
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
        }
        QVERIFY(file.sync());
        QCOMPARE(contentOf(folder.filePath("S_20260102-030405_001.jsonl")), QByteArray("line\n"));
    }

    void lines_areOnTheDisk_whenSyncReturns()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        synced.clear();
        file.append("line\n");
        QVERIFY(file.sync());
        QCOMPARE(synced, QStringList({"5", "folder"}));
        QVERIFY(file.sync()); // nothing is new
        file.append("two\n");
        file.append("three\n");
        QVERIFY(file.sync());
        QCOMPARE(synced, QStringList({"5", "folder", "15"}));
        synced.clear();
        file.finish("results", lastLine);
        QVERIFY(file.sync());
        QCOMPARE(synced, QStringList({"7", "folder", "43"}));
    }

    void linesThatDidNotGetToTheDisk_areWrittenAgain()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        file.append("line\n");
        QVERIFY(file.sync());
        file.append("two\n");
        failsToSync = true;
        const bool isSynced = file.sync();
        failsToSync = false;
        QVERIFY(!isSynced);
        QCOMPARE(file.error(),
            folder.filePath("S_20260102-030405_001.jsonl: cannot be written: Input/output error"));
        synced.clear();
        QVERIFY(file.sync());
        QCOMPARE(synced, QStringList("9"));
        QCOMPARE(contentOf(folder.filePath(file.recordName())), QByteArray("line\ntwo\n"));
    }

    // On a full disk neither the results nor the line that tells of them have a place.
    void resultsFile_isWholeOrNotThere_whenTheDiskIsFull()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        file.append("line\n");
        QVERIFY(file.sync());
        file.finish("results", lastLine);
        {
            const SmallDisk disk(5);
            QVERIFY(!file.sync());
            QVERIFY(!file.sync());
        }
        QVERIFY(file.sync());
        QCOMPARE(file.takeResultsFault(), QString());
        const QString results = "S_20260102-030405_001.txt";
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
            QStringList({file.recordName(), results}));
        QCOMPARE(contentOf(folder.filePath(results)), QByteArray("results"));
        QCOMPARE(
            contentOf(folder.filePath(file.recordName())), "line\n" + results.toUtf8() + ": \n");
    }

    void recordMadeAnew_hasItsResultsFileBesideIt()
    {
        const QTemporaryDir folder;
        RecordFile file(folder.path(), "S", "2026-01-02T03:04:05.678Z");
        file.append("line\n");
        QVERIFY(file.sync());
        file.finish("results", lastLine);
        {
            const SmallDisk disk(10); // the results fit, the last line does not
            QVERIFY(!file.sync());
        }
        QVERIFY(QFile::remove(folder.filePath(file.recordName())));
        QVERIFY(file.sync());
        QCOMPARE(file.recordName(), QString("S_20260102-030405_002.jsonl"));
        QCOMPARE(contentOf(folder.filePath("S_20260102-030405_002.txt")), QByteArray("results"));
        QCOMPARE(contentOf(folder.filePath(file.recordName())),
            QByteArray("line\nS_20260102-030405_002.txt: \n"));
    }

private:
    static QByteArray lastLine(const QString& name, const QString& error)
    {
        return (name + ": " + error + '\n').toUtf8();
    }
};

QUORIN_GUILESS_TEST(TestRecordFile);
#include "tst_record_file.moc"
