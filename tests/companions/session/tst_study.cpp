// SPDX-License-Identifier: GPL-3.0-or-later
// From a protocol's file and the records of a folder to the runs that are left.
#include "StudyTexts.h"
#include "protocol/ProtocolReader.h"
#include "record/RecordWriter.h"
#include "session/Study.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QCryptographicHash>
#include <QTest>

namespace {

const QByteArray twoRows = "2,,,\n1,sinusoid,Rest,";

RunBegun begunRun(const Study& study, int index)
{
    RunBegun begun;
    begun.protocol = placeIn(study, study.runs[index]);
    return begun;
}

QByteArray linesOf(const RunBegun& begun)
{
    return lineBytes(begun) + lineBytes(TrialBegun {1, 2, 0.5, 1.0});
}

QStringList identifiersOf(const QVector<ProtocolRun>& runs)
{
    QStringList identifiers;
    for (const ProtocolRun& run : runs)
        identifiers.append(run.id);
    return identifiers;
}

} // namespace

class TestStudy : public QuietTest {
    Q_OBJECT

private slots:
    void protocol_isReadWithItsDigest()
    {
        const QTemporaryDir folder;
        const QByteArray bytes = quickProtocol(twoRows);
        const StudyProtocol read = studyProtocol(writtenFile(folder, "study.csv", bytes));
        QCOMPARE(read.errors, QStringList());
        QCOMPARE(read.name, QString("study.csv"));
        const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
        QCOMPARE(read.sha256, QString(digest.toHex()));
        QCOMPARE(read.protocol.rows.size(), 2);
    }

    void wrongValues_areToldWithTheirPlaces()
    {
        const QTemporaryDir folder;
        const QString path = writtenFile(folder, "a.csv", "session,sound type\nx,beep\n");
        QCOMPARE(studyProtocol(path).errors,
            QStringList(
                {path + R"(: line 2, column "sound type": "beep" is not "sinusoid" or "noise")",
                    path + R"(: line 2, column "session": "x" is not a whole number)"}));
        QCOMPARE(studyProtocol("/nowhere/b.csv").errors,
            QStringList("/nowhere/b.csv: cannot be read: No such file or directory"));
    }

    void resumedStudy_goesOnAfterTheCompletedRuns()
    {
        const QTemporaryDir folder;
        StudyRequest request;
        request.protocol = writtenFile(folder, "study.csv", quickProtocol(twoRows));
        request.subject = "S07";
        const StudyProtocol file = studyProtocol(request.protocol);
        const Study first = plannedStudy(request, file, {}, 5);
        QCOMPARE(first.error, QString());
        QCOMPARE(identifiersOf(runsLeft(first.runs, first.completed)),
            QStringList({"row 1, repeat 1", "row 1, repeat 2", "row 2, repeat 1"}));

        RunBegun otherSubject = begunRun(first, 1);
        otherSubject.protocol->subject = "S08";
        RunBegun otherFile = begunRun(first, 1);
        otherFile.protocol->sha256 = QString(64, '0');
        writtenFile(folder, "1.jsonl", linesOf(begunRun(first, 0)) + lineBytes(RunAbandoned()));
        writtenFile(folder, "2.jsonl", linesOf(begunRun(first, 0)) + lineBytes(RunUnsaved()));
        writtenFile(folder, "3.jsonl", linesOf(begunRun(first, 2)) + lineBytes(RunSaved()));
        writtenFile(folder, "4.jsonl", linesOf(begunRun(first, 1)));
        writtenFile(folder, "5.jsonl",
            (linesOf(begunRun(first, 1)) + lineBytes(RunSaved())).chopped(1)); // cut off
        writtenFile(folder, "6.jsonl", linesOf(otherSubject) + lineBytes(RunSaved()));
        writtenFile(folder, "7.jsonl", linesOf(otherFile) + lineBytes(RunSaved()));
        writtenFile(folder, "8.jsonl", lineBytes(RunBegun()) + lineBytes(RunSaved()));
        writtenFile(folder, "9.jsonl", linesOf(begunRun(first, 1)) + "nothing\n");
        const EarlierRuns earlier = earlierRuns(folder.path(), file.sha256, "S07");
        QVERIFY(earlier.areThere);
        QCOMPARE(earlier.completed, QStringList({"row 1, repeat 1", "row 2, repeat 1"}));
        QCOMPARE(earlier.ofOtherProtocols, 1);
        QCOMPARE(earlier.notes, QStringList("9.jsonl:3: is no JSON: illegal value: left out"));
        QCOMPARE(earlier.error, QString());

        QCOMPARE(plannedStudy(request, file, earlier, 6).error,
            QString("S07 has runs of this protocol in the folder: --resume takes them up"));
        request.resumes = true;
        const Study resumed = plannedStudy(request, file, earlier, 6);
        QCOMPARE(resumed.error, QString());
        QCOMPARE(resumed.orderSeed, 5);
        QCOMPARE(identifiersOf(runsLeft(resumed.runs, resumed.completed)),
            QStringList("row 1, repeat 2"));
        request.order = RunOrder::latinSquare;
        QCOMPARE(plannedStudy(request, file, earlier, 6).error,
            QString("the runs of S07 have the order as-written, not latin"));
    }

    void resumedStudy_hasTheOrderOfItsRecords()
    {
        const QTemporaryDir folder;
        StudyRequest request;
        request.protocol = writtenFile(folder, "study.csv", quickProtocol("20,,,"));
        request.subject = "S07";
        request.order = RunOrder::shuffled;
        const StudyProtocol file = studyProtocol(request.protocol);
        const Study first = plannedStudy(request, file, {}, 5);
        writtenFile(folder, "1.jsonl", linesOf(begunRun(first, 3)));
        request.order.reset();
        request.resumes = true;
        const Study resumed
            = plannedStudy(request, file, earlierRuns(folder.path(), file.sha256, "S07"), 99);
        QVERIFY(resumed.order == RunOrder::shuffled);
        QCOMPARE(identifiersOf(resumed.runs), identifiersOf(first.runs));
        QCOMPARE(placeIn(resumed, resumed.runs[3]).place, 4);
        QCOMPARE(placeIn(resumed, resumed.runs[3]).runs, 20);

        RunBegun contradiction = begunRun(first, 0);
        contradiction.protocol->orderSeed = 6;
        writtenFile(folder, "2.jsonl", linesOf(contradiction));
        QCOMPARE(
            plannedStudy(request, file, earlierRuns(folder.path(), file.sha256, "S07"), 9).error,
            QString("2.jsonl: has another order than the records before it"));
    }

    void latinSquare_followsTheSubjectsNumber()
    {
        StudyProtocol file;
        file.protocol = readProtocol("session\n1\n2\n3\n4\n");
        StudyRequest request;
        request.order = RunOrder::latinSquare;
        request.subject = "S02";
        QCOMPARE(identifiersOf(plannedStudy(request, file, {}, 1).runs),
            QStringList(
                {"row 2, repeat 1", "row 3, repeat 1", "row 1, repeat 1", "row 4, repeat 1"}));
        request.subject = "Anna";
        QCOMPARE(plannedStudy(request, file, {}, 1).error,
            QString("the order latin needs a number at the end of the subject's code, not "
                    "\"Anna\""));
    }

    void progress_countsTheRunsOfTheProtocol()
    {
        StudyProtocol file;
        file.name = "study.csv";
        file.protocol = readProtocol("repeat\n2\n");
        StudyRequest request;
        request.subject = "S07";
        Study study = plannedStudy(request, file, {}, 1);
        study.completed = QStringList({"row 1, repeat 1", "row 1, repeat 1"});
        QCOMPARE(progressOf(study),
            QString("S07, study.csv, order as-written: 1 of 2 runs completed\n"
                    "  run  row  repeat  state  settings\n"
                    "    1    1       1  done\n"
                    "    2    1       2  next\n"));
    }
};

QUORIN_GUILESS_TEST(TestStudy);
#include "tst_study.moc"
