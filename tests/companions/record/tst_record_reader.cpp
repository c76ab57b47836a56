// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of a record to bytes and back, and what a reader makes of damaged ones.
#include "record/RecordReader.h"
#include "record/RecordWriter.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

namespace {

AnswerGiven answerOf(int trial)
{
    AnswerGiven answer;
    answer.trial = trial;
    answer.response = 3;
    answer.isCorrect = true;
    answer.reactionMs = 734.0;
    answer.value = 0.1;
    answer.valueAfter = 1.0 / 3.0;
    answer.isReversal = true;
    answer.reversals = 4;
    answer.interruptedSounds = 1;
    answer.lateSounds = 2;
    answer.worstLatenessMs = 17;
    answer.hasOutputFailed = true;
    answer.atMs = 9000.5;
    return answer;
}

QByteArray runBytes()
{
    RunBegun begun;
    begun.seed = 42;
    begun.time = "2026-01-02T03:04:05.678+01:00";
    begun.go.subCode = QString::fromUtf8("\u00c4\u96ea\n");
    begun.go.fd = {-std::numeric_limits<double>::infinity(), 0.05};
    return lineBytes(begun) + lineBytes(TrialBegun {1, 2, 0.1, 1.5})
        + lineBytes(SoundStarted {1, 1, -0.25, "ab", 2.5})
        + lineBytes(SoundInterrupted {1, 1, 2.75}) + lineBytes(SoundEnded {1, 1, true, true, 3.0})
        + lineBytes(AnswerAllowed {1, 4.0}) + lineBytes(answerOf(1));
}

} // namespace

class TestRecordReader : public QuietTest {
    Q_OBJECT

private slots:
    void lines_areReadAsTheyWereWritten()
    {
        RunSaved saved;
        saved.trials = 1;
        saved.threshold = std::nan("");
        saved.resultsFile = "a.txt";
        const QByteArray bytes = runBytes() + lineBytes(saved);
        QCOMPARE(bytes.count('\n'), 8);
        const ReadRecord read = readRecord(bytes);
        QCOMPARE(read.error, QString());
        QVERIFY(!read.run.isCut);
        QCOMPARE(read.run.begun.seed, 42);
        QCOMPARE(read.run.begun.go.subCode, QString::fromUtf8("\u00c4\u96ea\n"));
        QVERIFY(std::isinf(read.run.begun.go.fd[0]) && read.run.begun.go.fd[0] < 0);
        QCOMPARE(read.run.trials.size(), 1);
        const RecordedTrial& trial = read.run.trials[0];
        QCOMPARE(trial.begun.position, 2);
        QCOMPARE(trial.sounds[0].latenessMs, -0.25);
        QCOMPARE(trial.interruptions[0].atMs, 2.75);
        QVERIFY(trial.ends[0].isInterrupted && trial.ends[0].isLate);
        QCOMPARE(trial.allowed->atMs, 4.0);
        QCOMPARE(lineObject(*trial.answer), lineObject(answerOf(1)));
        QVERIFY(*trial.answer->valueAfter == 1.0 / 3.0);
        const auto& end = std::get<RunSaved>(read.run.end);
        QVERIFY(std::isnan(end.threshold));
        QCOMPARE(end.resultsFile, QString("a.txt"));
        QCOMPARE(lineBytes(read.run.begun), bytes.left(bytes.indexOf('\n') + 1));
    }

    void protocolOfARun_isReadAsItWasWritten_orIsMissing()
    {
        RunBegun begun;
        QVERIFY(!lineBytes(begun).contains("\"protocol\":"));
        QVERIFY(!readRecord(lineBytes(begun)).run.begun.protocol.has_value());
        begun.protocol
            = ProtocolPlace {"study.csv", "ab", "S07", "shuffled", 2147483646, 2, 3, 4, 12};
        const ReadRecord read = readRecord(lineBytes(begun));
        QCOMPARE(read.error, QString());
        QCOMPARE(lineBytes(read.run.begun), lineBytes(begun));
        QCOMPARE(read.run.begun.protocol->orderSeed, 2147483646);
        QCOMPARE(read.run.begun.protocol->place, 4);
        for (const char* const damaged : {"null", "7", "{}"}) {
            QByteArray bytes = lineBytes(begun);
            const int start = bytes.indexOf("{\"file\"");
            bytes.replace(start, bytes.indexOf('}', start) + 1 - start, damaged);
            QCOMPARE(readRecord(bytes).error,
                QString(R"("run": "protocol" is missing or of a wrong kind)"));
        }
    }

    void screenOfTheListener_isReadAsItWasWritten_orIsMissing()
    {
        RunBegun begun;
        QVERIFY(!lineBytes(begun).contains("listener_screen"));
        QVERIFY(!readRecord(lineBytes(begun)).run.begun.listenerScreen.has_value());
        begun.listenerScreen = "HDMI-1";
        QCOMPARE(readRecord(lineBytes(begun)).run.begun.listenerScreen,
            std::optional<QString>("HDMI-1"));
        QCOMPARE(readRecord(lineBytes(begun).replace("\"HDMI-1\"", "7")).error,
            QString(R"("run": "listener_screen" is missing or of a wrong kind)"));
    }

    void cutLine_isLeftOutAndTold_whereverItIsCut()
    {
        const QByteArray bytes = runBytes();
        const int first = bytes.indexOf('\n') + 1;
        for (int size = first; size <= bytes.size(); ++size) {
            const ReadRecord read = readRecord(bytes.left(size));
            QCOMPARE(read.error, QString());
            QCOMPARE(read.run.isCut, bytes[size - 1] != '\n');
        }
        QCOMPARE(readRecord(bytes.left(first - 1)).error, QString("the first line is cut short"));
        QCOMPARE(readRecord({}).error, QString("the file is empty"));
    }

    void damage_isToldWithItsLine_data()
    {
        addColumns<QByteArray, QString>("added", "error");
        QTest::newRow("no JSON") << QByteArray("{]\n") << "is no JSON: unterminated object";
        QTest::newRow("a list") << QByteArray("[]\n") << "is no JSON object";
        QTest::newRow("unknown event") << QByteArray(R"({"event":"pause"})"
                                                     "\n")
                                       << R"(is of no known event: "pause")";
        QTest::newRow("missing field")
            << lineBytes(TrialBegun {2, 2, 0.1, 0}).replace("position", "place")
            << R"("trial": "position" is missing or of a wrong kind)";
        QTest::newRow("fraction for a whole number")
            << lineBytes(TrialBegun {2, 2, 0.1, 0}).replace(R"("position":2)", R"("position":2.5)")
            << R"("trial": "position" is missing or of a wrong kind)";
        QTest::newRow("a trial left out")
            << lineBytes(TrialBegun {3, 2, 0.1, 0}) << "trial 3 begins out of order";
        QTest::newRow("sound of another trial")
            << lineBytes(SoundStarted {2, 1, 0, "", 0}) << R"("sound": trial 2 is not under way)";
        QTest::newRow("end before its trial")
            << lineBytes(SoundEnded {2, 1, false, false, 0}) << R"("ended": trial 2 has not begun)";
        QTest::newRow("interruption of an unknown trial")
            << lineBytes(SoundInterrupted {2, 1, 0}) << R"("interrupted": trial 2 has not begun)";
        QTest::newRow("two answers")
            << lineBytes(answerOf(1)) << R"("answer": stands twice in trial 1)";
        QTest::newRow("a second first line")
            << lineBytes(RunBegun()) << R"(is of no known event: "run")";
    }

    void damage_isToldWithItsLine()
    {
        QFETCH(QByteArray, added);
        const ReadRecord read = readRecord(runBytes() + added + "never read\n");
        QTEST(read.error, "error");
        QCOMPARE(read.line, 8);
        QCOMPARE(read.run.trials.size(), 1);
    }

    void trial_isOutOfOrder_beforeTheAnswerToTheOneBefore()
    {
        const QByteArray begun = lineBytes(RunBegun());
        const ReadRecord read = readRecord(
            begun + lineBytes(TrialBegun {1, 2, 0.1, 0}) + lineBytes(TrialBegun {2, 2, 0.1, 0}));
        QCOMPARE(read.error, QString("trial 2 begins out of order"));
        QCOMPARE(read.line, 3);
    }

    void linesAfterTheEnd_areRefused()
    {
        const ReadRecord read = readRecord(
            runBytes() + lineBytes(RunAbandoned {1, "why", 0}) + lineBytes(answerOf(2)));
        QCOMPARE(read.error, QString("stands after the end of the run"));
        QCOMPARE(read.line, 9);
        QCOMPARE(std::get<RunAbandoned>(read.run.end).reason, QString("why"));
    }

    void otherFirstLines_areRefused()
    {
        QCOMPARE(readRecord(lineBytes(TrialBegun {1, 2, 0.1, 0})).error,
            QString("is not the first line of a record"));
        RunBegun later;
        later.version = 2;
        QCOMPARE(
            readRecord(lineBytes(later)).error, QString("is of another version of the format"));
    }

    void missingFile_isTold()
    {
        QCOMPARE(readRecordFile("/nowhere/run.jsonl").error,
            QString("cannot be read: No such file or directory"));
    }
};

QUORIN_GUILESS_TEST(TestRecordReader);
#include "tst_record_reader.moc"
