// SPDX-License-Identifier: GPL-3.0-or-later
// Records of programs that were killed at random moments.
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "session/Recomputation.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

class TestKilledSessions : public QuietTest {
    Q_OBJECT

private slots:
    void record_lacksNoMoreThanTheEventUnderWay_whenTheProgramIsKilled()
    {
        const bool isTold = qEnvironmentVariableIsSet("QUORIN_KILLS");
        const int nKills = isTold ? qEnvironmentVariableIntValue("QUORIN_KILLS") : 5;
        QVERIFY(nKills > 0);
        int nCut = 0;
        int nLines = 0;
        for (int i = 0; i < nKills; ++i) {
            const QTemporaryDir folder;
            const QByteArray lastStep = killedAtRandom(folder.path());
            const QByteArrayList step = lastStep.split(' ');
            QCOMPARE(step.size(), 2);
            const QString path = folder.filePath(step[0]);
            const ReadRecord read = readRecordFile(path);
            QVERIFY2(read.error.isEmpty(), qPrintable(read.error));
            nCut += read.run.isCut ? 1 : 0;
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const int nWritten = file.readAll().count('\n');
            constexpr int mostLinesOfAStep = 4;
            QVERIFY(nWritten >= step[1].toInt());
            QVERIFY(nWritten <= step[1].toInt() + mostLinesOfAStep);
            QCOMPARE(differencesOf(read.run), QStringList());
            QCOMPARE(contradictionOf(read.run).text, QString());
            nLines += nWritten;
        }
        qInfo("%d kills, %d lines, %d cut", nKills, nLines, nCut);
    }

    void record_isNotThereYet_whenTheProgramIsKilledInTheFirstLine()
    {
        const QTemporaryDir folder;
        QProcess victim;
        victim.setStandardErrorFile(QProcess::nullDevice());
        victim.start(SESSION_VICTIM, {folder.path(), "die"});
        QVERIFY(victim.waitForFinished());
        QCOMPARE(victim.exitStatus(), QProcess::CrashExit);
        const QFileInfoList files = QDir(folder.path()).entryInfoList(QDir::Files | QDir::Hidden);
        QCOMPARE(files.size(), 1);
        QVERIFY(files[0].fileName().startsWith(".quorin-"));
        QCOMPARE(files[0].size(), 100);
    }

    void record_isReadableElsewhere_whenItsFolderIsGoneAndTheProgramIsKilled()
    {
        constexpr int steps = 30; // three trials and more
        const QTemporaryDir folder;
        const QTemporaryDir other;
        QProcess victim;
        victim.setStandardErrorFile(QProcess::nullDevice());
        victim.start(SESSION_VICTIM, {folder.path(), other.path()});
        int nSteps = 0;
        QByteArray lastStep;
        const auto play = [&] {
            for (const int end = nSteps + steps; nSteps < end; ++nSteps) {
                while (!victim.canReadLine())
                    QVERIFY(victim.waitForReadyRead());
                lastStep = victim.readLine();
            }
        };
        play();
        QTRY_VERIFY(QDir(folder.path()).removeRecursively()); // a file may be made meanwhile
        QTRY_VERIFY(!QDir(other.path()).isEmpty());
        play();
        victim.kill();
        QVERIFY(victim.waitForFinished());
        const QStringList names = QDir(other.path()).entryList(QDir::Files);
        QCOMPARE(names.size(), 1);
        const ReadRecord read = readRecordFile(other.filePath(names[0]));
        QCOMPARE(read.error, QString());
        QVERIFY(read.run.nLines >= lastStep.trimmed().split(' ').last().toInt());
        QCOMPARE(contradictionOf(read.run).text, QString());
    }

private:
    // What the program has printed last. The moment is random within the first trials.
    static QByteArray killedAtRandom(const QString& folder)
    {
        constexpr quint32 latestUs = 200000;
        QProcess victim;
        victim.setStandardErrorFile(QProcess::nullDevice());
        victim.start(SESSION_VICTIM, {folder});
        if (!victim.waitForReadyRead())
            return {};
        QThread::usleep(QRandomGenerator::system()->bounded(latestUs));
        victim.kill();
        victim.waitForFinished();
        QByteArrayList steps = victim.readAllStandardOutput().split('\n');
        steps.removeLast();
        return steps.isEmpty() ? QByteArray() : steps.last();
    }
};

QUORIN_GUILESS_TEST(TestKilledSessions);
#include "tst_killed_sessions.moc"
