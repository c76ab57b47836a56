// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-session, killed at random moments of a study that is played and answered, right and wrong.
#include "RecordedRun.h"
#include "StudyTexts.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "session/Recomputation.h"
#include "soundlab/ChildProcess.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/QuietTest.h"
#include "system/ManagedScreen.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

namespace {

// Trials of some 100 ms; a run ends with the second reversal.
const QByteArray briefRuns = "standard duration (ms),deviant duration (ms),silent interval (ms),"
                             "number of reversals,reversals to calculate,repeat\n"
                             "10,10,10,2,1,99\n";

int upTo(int most)
{
    return QRandomGenerator::system()->bounded(most + 1);
}

} // namespace

class TestKilledProgram : public QuietTest {
    Q_OBJECT

public:
    explicit TestKilledProgram(ManagedScreen& screen)
        : m_screen(screen)
    {
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        QVERIFY2(m_microphone.start(), qPrintable(m_microphone.errorText()));
    }

    void records_lackNoMoreThanTheEventUnderWay_whenTheProgramIsKilled()
    {
        const bool isTold = qEnvironmentVariableIsSet("QUORIN_KILLS");
        const int nKills = isTold ? qEnvironmentVariableIntValue("QUORIN_KILLS") : 5;
        QVERIFY(nKills > 0);
        for (int i = 0; i < nKills; ++i) {
            const QTemporaryDir folder;
            const QByteArray log = logUntilKilled(folder, i);
            QVERIFY(!QTest::currentTestFailed());
            compare(folder, log);
            QVERIFY(!QTest::currentTestFailed());
        }
        qInfo("%d kills: %d records, %d of whole runs, %d cut; %d answers, %d of them right",
            nKills, m_nRecords, m_nWhole, m_nCut, m_nAnswers, m_nRight);
        QVERIFY(m_nRecords > 0);
        QVERIFY(!isTold || (m_nRight > 0 && m_nRight < m_nAnswers)); // a few may be of one kind
    }

private:
    // Every third is killed some time after its start, the others some time after a trial or an
    // answer, which its log tells.
    QByteArray logUntilKilled(const QTemporaryDir& folder, int number)
    {
        constexpr int longestStartMs = 1000;
        constexpr int longestAfterMs = 60;
        constexpr int mostLines = 24;
        constexpr int patienceMs = 60000;
        const QString protocol = writtenFile(folder, "study.csv", briefRuns);
        ChildProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(SESSION_PROGRAM,
            {folder.path(), "--protocol", protocol, "--subject", "S01", "--auto-go"});
        QByteArray log;
        QElapsedTimer clock;
        clock.start();
        if (number % 3 == 0) {
            const int lifeMs = upTo(longestStartMs);
            while (clock.elapsed() < lifeMs)
                pressAKey();
        } else {
            const int nLines = 1 + upTo(mostLines);
            while (nAnswers(log) + nTrials(log) < nLines) {
                pressAKey();
                program.waitForReadyRead(0);
                log += program.readAll();
                if (clock.elapsed() > patienceMs || program.state() == QProcess::NotRunning) {
                    QTest::qFail(log.constData(), __FILE__, __LINE__);
                    break;
                }
            }
        }
        QThread::usleep(1000 * static_cast<unsigned>(upTo(longestAfterMs)));
        program.kill();
        program.waitForFinished();
        return log + program.readAll();
    }

    void pressAKey()
    {
        const char* const keys[] = {"2", "3", "Return"};
        QVERIFY(m_screen.press(keys[upTo(2)]));
    }

    static int nAnswers(const QByteArray& log) { return log.count("response: "); }
    static int nTrials(const QByteArray& log) { return log.count("stimPosition: "); }

    // The log is written when something happens, the record soon after it.
    void compare(const QTemporaryDir& folder, const QByteArray& log)
    {
        const QDir directory(folder.path());
        const QStringList names = directory.entryList({"*.jsonl"}, QDir::Files);
        int nTrialsRecorded = 0;
        int nAnswersRecorded = 0;
        int nUnfinished = 0;
        for (const QString& name : names) {
            const ReadRecord read = readRecordFile(directory.filePath(name));
            QVERIFY2(read.error.isEmpty(), qPrintable(name + ": " + read.error));
            QCOMPARE(contradictionOf(read.run).text, QString());
            QCOMPARE(differencesOf(read.run), QStringList());
            const auto* const saved = std::get_if<RunSaved>(&read.run.end);
            QVERIFY(saved == nullptr || directory.exists(saved->resultsFile));
            nUnfinished += saved == nullptr ? 1 : 0;
            m_nCut += read.run.isCut ? 1 : 0;
            nTrialsRecorded += read.run.trials.size();
            for (const RecordedTrial& trial : read.run.trials) {
                nAnswersRecorded += trial.answer ? 1 : 0;
                m_nRight += trial.answer && trial.answer->isCorrect ? 1 : 0;
            }
        }
        QVERIFY(nUnfinished <= 1);
        QVERIFY2(nTrials(log) - nTrialsRecorded <= 1, log.constData());
        QVERIFY2(nAnswers(log) - nAnswersRecorded <= 1, log.constData());
        m_nRecords += names.size();
        m_nWhole += names.size() - nUnfinished;
        m_nAnswers += nAnswersRecorded;
    }

    ManagedScreen& m_screen;
    SoundServer m_server {SoundServer::copyingSettings()};
    SoundRecorder m_microphone {m_server}; // keeps the server's blocks short
    int m_nRecords = 0;
    int m_nWhole = 0;
    int m_nCut = 0;
    int m_nAnswers = 0;
    int m_nRight = 0;
};

QUORIN_MANAGED_SCREEN_TEST(TestKilledProgram);
#include "tst_killed_program.moc"
