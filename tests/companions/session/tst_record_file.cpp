// SPDX-License-Identifier: GPL-3.0-or-later
// The names of a run's files, none of which was there before.
#include "RecordedRun.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

class TestRecordFile : public QuietTest {
    Q_OBJECT

private slots:
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
        QCOMPARE(file.writeResults("results"), QString());
        const QString results = folder.filePath("S_20260102-030405_004.txt");
        QCOMPARE(RecordedRun::contentOf(results), QByteArray("results"));
        QVERIFY(file.writeResults("others").startsWith(results + ": cannot be written: "));
        QCOMPARE(RecordedRun::contentOf(results), QByteArray("results"));
        QCOMPARE(RecordedRun::contentOf(folder.filePath("S_20260102-030405_001.jsonl")),
            QByteArray("mine"));
    }
};

QUORIN_GUILESS_TEST(TestRecordFile);
#include "tst_record_file.moc"
