// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-session from its command line: options, replays, and two sessions in one folder.
#include "RecordedRun.h"
#include "StudyTexts.h"
#include "companions/record/SampleNote.h"
#include "record/RecordReader.h"
#include "record/RecordWriter.h"
#include "session/SecondFolders.h"
#include "session/Study.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QProcess>

namespace {

struct SessionEnd {
    QString output;
    QString errors;
    int status;
};

SessionEnd session(const QStringList& arguments)
{
    QProcess program;
    program.start(SESSION_PROGRAM, arguments);
    if (!program.waitForFinished())
        qFatal("quorin-session does not end");
    return {program.readAllStandardOutput(), program.readAllStandardError(), program.exitCode()};
}

QString lockOf(const QTemporaryDir& folder)
{
    return folder.filePath(".quorin-session.lock");
}

/// The record of the first run of a protocol, completed by the subject S07.
QByteArray firstRunOf(const QString& protocol)
{
    StudyRequest request;
    request.protocol = protocol;
    request.subject = "S07";
    const Study study = plannedStudy(request, studyProtocol(protocol), {}, 1);
    RunBegun begun;
    begun.protocol = placeIn(study, study.runs[0]);
    return lineBytes(begun) + lineBytes(RunSaved());
}

/// A session that goes on until it is killed.
class Session {
public:
    explicit Session(const QTemporaryDir& folder)
    {
        m_program.setStandardErrorFile(QProcess::nullDevice());
        m_program.start(SESSION_PROGRAM, {folder.path()});
    }
    ~Session()
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    qint64 pid() const { return m_program.processId(); }
    bool isRunning() const { return m_program.state() == QProcess::Running; }

private:
    QProcess m_program;
};

bool isLockedBy(const QTemporaryDir& folder, qint64 pid)
{
    return contentOf(lockOf(folder)).startsWith(QByteArray::number(pid) + '\n');
}

} // namespace

class TestSessionProgram : public WindowTest {
    Q_OBJECT

private slots:
    void badOptions_areToldOnOneLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        QTest::newRow("nothing") << QStringList() << "no folder is given";
        QTest::newRow("no folder there") << QStringList("/nowhere") << "/nowhere: is no folder";
        QTest::newRow("a file") << QStringList("/dev/null") << "/dev/null: is no folder";
        QTest::newRow("two folders")
            << QStringList({"/tmp", "/var"}) << R"(one folder is wanted, not also "/var")";
        QTest::newRow("folder given and asked for")
            << QStringList({"/tmp", "--ask-folder"}) << "--ask-folder goes without a folder";
        QTest::newRow("replay and folder asked for")
            << QStringList({"--replay", "a", "--ask-folder"}) << "--replay goes with nothing else";
        QTest::newRow("no note's name")
            << QStringList({"/tmp", "--calibration", ""}) << "--calibration needs a name";
        QTest::newRow("replay and calibration")
            << QStringList({"--replay", "a", "--calibration", "b"})
            << "--replay goes with nothing else";
        QTest::newRow("unknown option")
            << QStringList({"/tmp", "--sed", "1"}) << "Unknown option 'sed'.";
        const QStringList seeds {"0", "2147483647", "-1", "x", "1.5", ""};
        for (const QString& seed : seeds) {
            QTest::newRow(qPrintable("seed " + seed))
                << QStringList({"/tmp", "--seed=" + seed})
                << "--seed must be 1 to 2147483646, not \"" + seed + '"';
        }
        QTest::newRow("no name of a screen") << QStringList({"/tmp", "--subject-screen", ""})
                                             << "--subject-screen needs a name or a number";
        QTest::newRow("no such screen")
            << QStringList({"/tmp", "--subject-screen", "HDMI-7"})
            << "--subject-screen must be one of 1 800x600, not \"HDMI-7\"";
        QTest::newRow("replay and cover")
            << QStringList({"--replay", "a", "--cover"}) << "--replay goes with nothing else";
        const QString study = "/nowhere/study.csv";
        QTest::newRow("no subject")
            << QStringList({"/tmp", "--protocol", study}) << "--protocol needs --subject";
        QTest::newRow("no protocol's name")
            << QStringList({"/tmp", "--protocol", "", "--subject", "S1"})
            << "--protocol needs a name";
        QTest::newRow("blanks around the subject")
            << QStringList({"/tmp", "--protocol", study, "--subject", "S1 "})
            << "--subject needs a code without blanks around it, not \"S1 \"";
        QTest::newRow("unknown order")
            << QStringList({"/tmp", "--protocol", study, "--subject", "S1", "--order", "Latin"})
            << "--order must be as-written, shuffled or latin, not \"Latin\"";
        for (const QString& option :
            QStringList {"--subject=S1", "--order=latin", "--auto-go", "--resume"}) {
            QTest::newRow(qPrintable(option + " alone"))
                << QStringList({"/tmp", option}) << option.section('=', 0, 0) + " needs --protocol";
        }
        QTest::newRow("replay and protocol")
            << QStringList({"--replay", "a", "--protocol", study, "--subject", "S1"})
            << "--replay goes with nothing else";
        QTest::newRow("replay of nothing")
            << QStringList({"--replay", ""}) << "--replay needs a name";
        QTest::newRow("replay and folder")
            << QStringList({"--replay", "a", "/tmp"}) << "--replay goes with nothing else";
        QTest::newRow("replay and seed")
            << QStringList({"--replay", "a", "--seed", "1"}) << "--replay goes with nothing else";
    }

    void badOptions_areToldOnOneLine()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const SessionEnd outcome = session(arguments);
        QCOMPARE(outcome.errors, "quorin-session: " + error + '\n');
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.status, 2);
    }

    void helpAndVersion_arePrinted()
    {
        QVERIFY(session({"--help"}).output.contains("--replay <file>"));
        QCOMPARE(session({"--version"}).output, QString("quorin-session " QUORIN_VERSION "\n"));
        QCOMPARE(session({"--version"}).status, 0);
    }

    void outputThatCannotBeWritten_isTold()
    {
        QProcess program;
        program.setStandardOutputFile("/dev/full");
        program.start(SESSION_PROGRAM, {"--version"});
        QVERIFY(program.waitForFinished());
        QCOMPARE(QString(program.readAllStandardError()),
            QString("quorin-session: standard output: cannot be written\n"));
        QCOMPARE(program.exitCode(), 1);
    }

    void replay_tellsTheSame_andWhatWasChanged()
    {
        RecordedRun run(3);
        run.play("cwc");
        const QString path = run.recordPath();
        const SessionEnd same = session({"--replay", path});
        QCOMPARE(same.output, path + ": the same in 3 trials and 12 sounds\n");
        QCOMPARE(same.errors, QString());
        QCOMPARE(same.status, 0);

        QFile changed(run.path("changed.jsonl"));
        QVERIFY(changed.open(QIODevice::WriteOnly));
        const QByteArray content = run.content().replace("\"correct\":true", "\"correct\":false");
        changed.write(content.chopped(5));
        changed.close();
        const SessionEnd other = session({"--replay", changed.fileName()});
        const QString name = changed.fileName();
        QCOMPARE(other.output,
            name + ": trial 1: correctness: recorded no, computed yes\n" + name
                + ": trial 3: correctness: recorded no, computed yes\n" + name
                + ": 2 differences in 3 trials and 12 sounds\n");
        QCOMPARE(other.errors,
            "quorin-session: " + changed.fileName()
                + ": note: the last line is cut short and left out\n");
        QCOMPARE(other.status, 1);
    }

    void replay_refusesWhatIsNoRecord()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("notes"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Dear all,\n");
        file.close();
        const SessionEnd outcome = session({"--replay", file.fileName()});
        QCOMPARE(outcome.errors,
            "quorin-session: " + file.fileName() + ":1: is no JSON: illegal value\n");
        QCOMPARE(outcome.status, 1);
        QCOMPARE(session({"--replay", "/nowhere"}).errors,
            QString("quorin-session: /nowhere: cannot be read: No such file or directory\n"));
    }

    void folderThatCannotBeWrittenTo_isRefused()
    {
        const SessionEnd outcome = session({"/proc"});
        QCOMPARE(outcome.errors, QString("quorin-session: /proc: cannot be written to\n"));
        QCOMPARE(outcome.status, 1);
    }

    void wrongProtocol_isRefusedWithLineAndColumn_beforeAnythingIsShown()
    {
        const QTemporaryDir folder;
        const QString path = writtenFile(folder, "study.csv", "session,break\nx,\n1,\n,,\n");
        const SessionEnd outcome = session({folder.path(), "--protocol", path, "--subject", "S07"});
        QCOMPARE(outcome.errors,
            QString("quorin-session: %1: line 2, column \"session\": \"x\" is not a whole number\n"
                    "quorin-session: %1: line 4, column 3: 2 cells are needed, not 3: there may be "
                    "a decimal comma, or a comma in a text without quotation marks\n")
                .arg(path));
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.status, 1);
    }

    void runSheet_isPrinted_andTheSessionGoesOn()
    {
        const QTemporaryDir folder;
        const QString path = writtenFile(folder, "study.csv", "session\n1\n2\n");
        QProcess program;
        program.start(SESSION_PROGRAM,
            {folder.path(), "--protocol", path, "--subject", "S02", "--order", "latin",
                "--resume"});
        QTRY_VERIFY_WITH_TIMEOUT(
            program.bytesAvailable() > 0 || program.state() == QProcess::NotRunning, 20000);
        QCOMPARE(QString(program.readAllStandardOutput()),
            QString("S02, study.csv, order latin: 0 of 2 runs completed\n"
                    "  run  row  repeat  state  settings\n"
                    "    1    2       1  next   session 2\n"
                    "    2    1       1  open   session 1\n"));
        QCOMPARE(program.state(), QProcess::Running);
        QVERIFY(
            QString(program.readAllStandardError())
                .startsWith("quorin-session: note: there is no run of S02 with this protocol: it "
                            "begins with the first\n"));
        program.kill();
        QVERIFY(program.waitForFinished());
    }

    void termination_endsTheRecordUnderWay_whichTellsTheSeed()
    {
        const QTemporaryDir folder;
        const QString path = writtenFile(folder, "study.csv", "session\n1\n");
        QProcess program;
        program.setStandardOutputFile(QProcess::nullDevice());
        program.setStandardErrorFile(QProcess::nullDevice());
        program.start(SESSION_PROGRAM,
            {folder.path(), "--protocol", path, "--subject", "S02", "--auto-go", "--seed", "7"});
        const auto records = [&folder] { return QDir(folder.path()).entryList({"*.jsonl"}); };
        QTRY_COMPARE_WITH_TIMEOUT(records().size(), 1, 20000);
        program.terminate();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        const ReadRecord read = readRecordFile(folder.filePath(records().constFirst()));
        QCOMPARE(read.error, QString());
        QVERIFY(std::holds_alternative<RunAbandoned>(read.run.end));
        QCOMPARE(read.run.begun.seed, 7);
    }

    void completedProtocol_isTold_andNothingOpens()
    {
        const QTemporaryDir folder;
        const QString protocol = writtenFile(folder, "study.csv", "session\n1\n");
        writtenFile(folder, "1.jsonl", firstRunOf(protocol));
        const QStringList arguments = {folder.path(), "--protocol", protocol, "--subject", "S07"};
        const SessionEnd again = session(arguments);
        QCOMPARE(again.errors,
            QString("quorin-session: S07 has runs of this protocol in the folder: --resume takes "
                    "them up\n"));
        QCOMPARE(again.status, 1);
        const SessionEnd resumed = session(arguments + QStringList("--resume"));
        QCOMPARE(resumed.errors, QString());
        QCOMPARE(resumed.output,
            QString("S07, study.csv, order as-written: 1 of 1 runs completed\n"
                    "  run  row  repeat  state  settings\n"
                    "    1    1       1  done\n"));
        QCOMPARE(resumed.status, 0);
        QCOMPARE(session(arguments + QStringList({"--resume", "--seed=1"})).errors,
            QString("quorin-session: note: seed 1 is that of earlier runs of S07: positions and "
                    "noises come again as they did then\n"));
        QCOMPARE(session(arguments + QStringList({"--resume", "--seed=2"})).errors, QString());
        const QString note = writtenFile(folder, "note.json", calibrationBytes(sampleNote()));
        const QStringList calibrated {"--resume", "--calibration", note};
        QCOMPARE(session(arguments + calibrated).errors,
            "quorin-session: note: " + note
                + ": the sound server does not tell its output and volume\n");
    }

    void noteThatCannotBeRead_isRefused()
    {
        const QTemporaryDir folder;
        const QString none = folder.filePath("none.json");
        const SessionEnd missing = session({folder.path(), "--calibration", none});
        QCOMPARE(missing.errors,
            "quorin-session: " + none + ": cannot be read: No such file or directory\n");
        QCOMPARE(missing.status, 1);
        const QString other = writtenFile(folder, "other.json", "{}");
        QCOMPARE(session({folder.path(), "--calibration", other}).errors,
            "quorin-session: " + other
                + ": is no calibration note: \"version\" is missing or of a wrong kind\n");
    }

    void keptRecord_comesBackToTheFolder_andItsRunCounts()
    {
        const QTemporaryDir data;
        qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
        const QTemporaryDir folder;
        const QString protocol = writtenFile(folder, "study.csv", "session\n1\n");
        const QString second = data.filePath(
            "quorin-session/" + QFileInfo(secondFolders(folder.path())[0]).fileName());
        QVERIFY(makeOwnFolder(second));
        QFile kept(second + "/1_kept.jsonl");
        QVERIFY(kept.open(QIODevice::WriteOnly));
        kept.write(firstRunOf(protocol));
        kept.close();
        const SessionEnd resumed
            = session({folder.path(), "--protocol", protocol, "--subject", "S07", "--resume"});
        qunsetenv("XDG_DATA_HOME");
        QCOMPARE(resumed.errors,
            "quorin-session: note: 1_kept.jsonl: was kept in " + second + " and is here now\n");
        QVERIFY(
            resumed.output.startsWith("S07, study.csv, order as-written: 1 of 1 runs completed\n"));
        QCOMPARE(resumed.status, 0);
        QVERIFY(QFile::exists(folder.filePath("1_kept.jsonl")));
    }

    void recordThatCannotComeBack_keepsTheSessionFromBeginning()
    {
        const QTemporaryDir data;
        qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
        const QTemporaryDir folder;
        const QString second = data.filePath(
            "quorin-session/" + QFileInfo(secondFolders(folder.path())[0]).fileName());
        QVERIFY(makeOwnFolder(second));
        QFile kept(second + "/1_kept.jsonl");
        QVERIFY(kept.open(QIODevice::WriteOnly) && kept.write("{}\n") == 3);
        kept.close();
        writtenFile(folder, "1_kept.jsonl", "another\n");
        const SessionEnd outcome = session({folder.path()});
        qunsetenv("XDG_DATA_HOME");
        QCOMPARE(outcome.errors,
            "quorin-session: " + folder.filePath("1_kept.jsonl")
                + ": was made by another program meanwhile: left as it is; it is kept in " + second
                + '\n');
        QCOMPARE(outcome.status, 1);
    }

    void secondSession_isRefused_untilTheFirstIsGone()
    {
        const QTemporaryDir folder;
        {
            const Session first(folder);
            QTRY_VERIFY_WITH_TIMEOUT(isLockedBy(folder, first.pid()), 20000);
            const SessionEnd second = session({folder.path()});
            QCOMPARE(second.errors,
                QString("quorin-session: %1: another session records here: process %2 on %3\n")
                    .arg(folder.path())
                    .arg(first.pid())
                    .arg(QSysInfo::machineHostName()));
            QCOMPARE(second.status, 1);
            QVERIFY(first.isRunning());
        }
        QVERIFY(QFile::exists(lockOf(folder))); // it was killed
        const Session next(folder);
        QTRY_VERIFY_WITH_TIMEOUT(isLockedBy(folder, next.pid()), 20000);
        QVERIFY(next.isRunning());
    }

    void lockOfAnotherMachine_isNamed()
    {
        const QTemporaryDir folder;
        writtenFile(folder, ".quorin-session.lock", "12\nquorin-session\nelsewhere\nid\nboot\n");
        QCOMPARE(session({folder.path()}).errors,
            "quorin-session: " + folder.path()
                + ": another session records here: process 12 on elsewhere: if it has ended, "
                  "remove "
                + lockOf(folder) + '\n');
    }

    void lockThatTellsNothing_isNamed()
    {
        const QTemporaryDir folder;
        writtenFile(folder, ".quorin-session.lock", "");
        const SessionEnd outcome = session({folder.path()});
        QCOMPARE(outcome.errors,
            "quorin-session: " + lockOf(folder)
                + ": does not tell which session made it: remove it if none records here\n");
        QCOMPARE(outcome.status, 1);
    }
};

QUORIN_TEST(TestSessionProgram);
#include "tst_session_program.moc"
