// SPDX-License-Identifier: GPL-3.0-or-later
// What a full disk, a folder that goes and a failing sound output do to a record.
#include "RecordedLines.h"
#include "RecordedRun.h"
#include "SmallDisk.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordReader.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QSignalSpy>
#include <QTimer>

class TestRecorderFaults : public WindowTest {
    Q_OBJECT

private slots:
    void fullDisk_isToldAfterTheAnswer_andNothingIsLost()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        const QSignalSpy recoveries(&run.recorder, &FlightRecorder::recovered);
        run.driver.begin();
        QCoreApplication::processEvents();
        const qint64 size = run.content().size();
        {
            const SmallDisk disk(size + 100);
            run.driver.playTrial();
            QCoreApplication::processEvents();
            QCOMPARE(failures.size(), 0);
            run.driver.answerRightly(true);
            QCoreApplication::processEvents();
            QVERIFY(run.content().size() <= size + 100);
            run.driver.playTrial();
            run.driver.answerRightly(false);
            QCOMPARE(failures.size(), 1);
            QCOMPARE(failures[0][0].toString(),
                run.recordPath() + ": cannot be written: File too large");
        }
        QCOMPARE(recoveries.size(), 0);
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QCOMPARE(recoveries.size(), 1);
        QCOMPARE(eventsOf(run.lines()),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
    }

    void removedFolder_isTold_andTheRecordIsMadeAnewWhenItIsBack()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        run.driver.begin();
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.driver.playTrial();
        QCoreApplication::processEvents();
        run.driver.answerRightly(true);
        QCoreApplication::processEvents();
        run.driver.playTrial();
        run.driver.answerRightly(false);
        QCOMPARE(failures.size(), 1);
        QVERIFY(failures[0][0].toString().endsWith("cannot be written: No such file or directory"));
        QVERIFY(QDir().mkpath(run.folder.path()));
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QCOMPARE(eventsOf(run.lines()),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        QCOMPARE(run.names().size(), 2);
    }

    void folderGoneAtTheLastAnswer_getsRecordAndResultsWhenItIsBack()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        const QSignalSpy unsaved(&run.recorder, &FlightRecorder::resultsFailed);
        run.play("cw");
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QCOMPARE(failures.size(), 1);
        QVERIFY(!QDir(run.folder.path()).exists());
        QVERIFY(QDir().mkpath(run.folder.path()));
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        run.dismiss();
        const QByteArray results = resultsBytes(run.window->sessionRecord());
        run.driver.open(); // the next run's record is there too
        QCOMPARE(unsaved.size(), 0);
        QCOMPARE(run.names().filter(".jsonl").size(), 2);
        const QString record = run.path(run.names().filter(".jsonl").first());
        QCOMPARE(contentOf(record).count('\n'), 35);
        const QByteArray last = contentOf(record).trimmed().split('\n').last();
        const QString name = QJsonDocument::fromJson(last).object()["results_file"].toString();
        QCOMPARE(run.path(name), QString(record).replace(".jsonl", ".txt"));
        QCOMPARE(contentOf(run.path(name)), results);
    }

    void resultsFileThatCannotBeMade_isToldInTheRecordAndByASignal()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        const QSignalSpy unsaved(&run.recorder, &FlightRecorder::resultsFailed);
        run.play("cw");
        const QString path = QString(run.recordPath()).replace(".jsonl", ".txt");
        QVERIFY(QDir().mkdir(path));
        run.driver.playTrial();
        run.driver.answerRightly(true);
        const QString reason = path + ": was made by another program meanwhile: left as it is";
        QCOMPARE(unsaved, QList<QVariantList>({QVariantList {reason}}));
        QCOMPARE(failures.size(), 0);
        const QJsonObject last = run.lines().last();
        QCOMPARE(last["event"].toString(), QString("save failed"));
        QCOMPARE(last["reason"].toString(), reason);
        QCOMPARE(last["trials"].toInt(), 3);
        QVERIFY(std::holds_alternative<RunUnsaved>(readRecordFile(run.recordPath()).run.end));
        QCOMPARE(run.recorder.close(), QStringList()); // told already
    }

    void fullDisk_isToldBeforeTheNextTrial_whenTheAnswerFindsIt()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        const QSignalSpy recoveries(&run.recorder, &FlightRecorder::recovered);
        run.driver.begin();
        run.driver.playTrial();
        QCoreApplication::processEvents();
        {
            const SmallDisk disk(run.content().size());
            run.driver.answerRightly(true);
            QCOMPARE(failures.size(), 0);
            QTRY_COMPARE(failures.size(), 1);
        }
        for (int i = 0; i < 4; ++i) {
            run.driver.startSound();
            QVERIFY(run.recorder.flush());
            QCOMPARE(recoveries.size(), 0); // a trial is not disturbed
            run.driver.endSound();
        }
        run.driver.answerRightly(false);
        QCOMPARE(recoveries.size(), 1);
    }

    void fullDisk_isNotTold_whileATrialIsHeardOrAnswered()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        run.driver.begin();
        QCoreApplication::processEvents();
        const SmallDisk disk(run.content().size());
        run.driver.startSound();
        QCoreApplication::processEvents();
        QVERIFY(!run.recorder.flush());
        run.driver.endSound();
        for (int i = 0; i < 3; ++i) {
            run.driver.startSound();
            run.driver.endSound();
            QCoreApplication::processEvents();
            QCOMPARE(failures.size(), 0);
        }
        run.driver.answerRightly(true);
        QCOMPARE(failures.size(), 1);
    }

    void removedRecord_staysAway_afterItsRun()
    {
        RecordedRun run;
        run.play("cwc");
        QVERIFY(QFile::remove(run.recordPath()));
        QVERIFY(run.recorder.flush());
        QCOMPARE(run.recorder.close(), QStringList());
        QCOMPARE(run.names().filter(".jsonl"), QStringList());
    }

    void failedOutput_isToldOnce_whileItLasts()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::soundFailed);
        run.driver.begin();
        for (const bool fails : {false, true, true, false, true}) {
            run.driver.playTrial();
            Probe::disturbances(*run.window).hasOutputFailed = fails;
            run.driver.answerRightly(true);
        }
        QCOMPARE(failures, QList<QVariantList>({{2}, {5}}));
        run.recorder.flush();
        QStringList failed;
        for (const QJsonObject& answer : linesOf(run.lines(), "answer"))
            failed.append(answer["output_failed"].toBool() ? "yes" : "no");
        QCOMPARE(failed, QStringList({"no", "yes", "yes", "no", "yes"}));
    }

    void interruptionThatNoOutputReported_hasItsLine()
    {
        RecordedRun run;
        run.driver.begin();
        run.driver.startSound();
        ++Probe::disturbances(*run.window).interruptedSounds;
        run.driver.endSound();
        run.recorder.flush();
        QCOMPARE(eventsOf(run.lines()),
            QStringList({"run", "trial", "sound 1", "interrupted 1", "ended 1"}));
        QCOMPARE(linesOf(run.lines(), "ended")[0]["interrupted"].toBool(), true);
    }

    // There is no sound device here: all outputs fail. What the window says of it is taken back.
    void lostTrial_isToldAndWaits_untilItIsEnded()
    {
        RecordedRun run;
        const QSignalSpy lost(&run.recorder, &FlightRecorder::trialLost);
        const QSignalSpy failures(&run.recorder, &FlightRecorder::soundFailed);
        run.play({});
        playAndAnswer(run, true);
        loseFourthSound(run);
        run.recorder.endLostTrial(); // it is not told yet
        QTRY_VERIFY(lost.size() > 1);
        QCOMPARE(lost[1], QVariantList {2});
        QCOMPARE(Probe::soundIndex(*run.window), 4); // its ticks are not counted
        QVERIFY(!Probe::subjectWindow(*run.window)->isEnabled());
        Probe::disturbances(*run.window) = {};
        run.recorder.endLostTrial();
        QVERIFY(!Probe::timerPlay(*run.window)->isActive());
        run.driver.answerRightly(false);
        playAndAnswer(run, true);
        QCOMPARE(eventsOf(run.lines()),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));
        QCOMPARE(failures, QList<QVariantList>());
        const QVector<QJsonObject> answers = linesOf(run.lines(), "answer");
        for (int i = 0; i < 3; ++i)
            QCOMPARE(answers[i]["output_failed"].toBool(), i == 1);
    }

    void lostTrial_holdsUpNoOtherRun()
    {
        RecordedRun run;
        QSignalSpy lost(&run.recorder, &FlightRecorder::trialLost);
        run.play({});
        loseFourthSound(run);
        QTRY_VERIFY(!lost.isEmpty());
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        QTRY_VERIFY(Probe::soundIndex(*run.window) > 4); // as without a recorder
        run.recorder.endLostTrial();
        QVERIFY(!Probe::subjectWindow(*run.window)->isEnabled());
        lost.clear();
        run.play({});
        tickSoon(run);
        QTRY_COMPARE(Probe::soundIndex(*run.window), 4);
        tickSoon(run);
        QTRY_VERIFY(!lost.isEmpty());
        QCOMPARE(lost.last(), QVariantList {1});
    }

    void lostSound_isInTheReason_whenItsTrialEndsTheRun_data()
    {
        QTest::addColumn<bool>("isGivenUp");
        QTest::newRow("told, and the window closed") << false;
        QTest::newRow("trial ended, and the window closed") << true;
    }

    void lostSound_isInTheReason_whenItsTrialEndsTheRun()
    {
        QFETCH(bool, isGivenUp);
        RecordedRun run;
        QSignalSpy lost(&run.recorder, &FlightRecorder::trialLost);
        run.play({});
        playAndAnswer(run, true);
        loseFourthSound(run);
        QTRY_VERIFY(!lost.isEmpty());
        if (isGivenUp)
            run.recorder.endLostTrial();
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        const QJsonObject last = run.lines().last();
        QCOMPARE(last["trials"].toInt(), 1);
        QCOMPARE(last["reason"].toString(),
            QString("the listener's window was closed after the sound of trial 2 was lost"));
    }

    void lostSound_isNotInTheReason_whenItsTrialWasAnswered()
    {
        RecordedRun run;
        QSignalSpy lost(&run.recorder, &FlightRecorder::trialLost);
        run.play({});
        loseFourthSound(run);
        QTRY_VERIFY(!lost.isEmpty());
        run.recorder.endLostTrial();
        run.driver.answerRightly(true);
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        QCOMPARE(
            run.lines().last()["reason"].toString(), QString("the listener's window was closed"));
    }

    void folderGoneForGood_losesNoRunWhileTheProgramGoesOn()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        QVERIFY(QDir(run.folder.path()).removeRecursively());
        run.play("cwc");
        QCOMPARE(run.window->sessionRecord().records.size(), 3);
        QVERIFY(!failures.isEmpty());
        QVERIFY(!run.recorder.flush());
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        run.dismiss();
        run.play("cwc");
        QVERIFY(QDir().mkpath(run.folder.path()));
        QVERIFY(run.recorder.flush());
        QCOMPARE(run.names().filter(".jsonl").size(), 2);
        QCOMPARE(run.names().filter(".txt").size(), 2);
    }

    void recovery_isNotTold_whileAnEarlierRecordWaits()
    {
        RecordedRun run;
        const QSignalSpy failures(&run.recorder, &FlightRecorder::failed);
        const QSignalSpy recoveries(&run.recorder, &FlightRecorder::recovered);
        run.play("cw");
        {
            const SmallDisk disk(run.content().size()); // the next run's first line fits
            run.driver.playTrial();
            run.driver.answerRightly(true);
            QCOMPARE(failures.size(), 1);
            ModalBoxes boxes;
            boxes.answerNext(QMessageBox::Yes);
            run.dismiss();
            run.driver.open();
            QCOMPARE(run.lines().size(), 1);
            QCOMPARE(failures.size(), 1);
            QCOMPARE(recoveries.size(), 0);
        }
        run.driver.beReady();
        run.driver.playTrial();
        run.driver.answerRightly(true);
        QTRY_COMPARE(recoveries.size(), 1);
    }

private:
    static void tickSoon(const RecordedRun& run) { Probe::timerPlay(*run.window)->setInterval(1); }

    static void playAndAnswer(RecordedRun& run, bool isRight)
    {
        run.driver.playTrial();
        Probe::disturbances(*run.window) = {};
        run.driver.answerRightly(isRight);
    }

    static void loseFourthSound(RecordedRun& run)
    {
        for (int i = 0; i < 3; ++i) {
            run.driver.startSound();
            run.driver.endSound();
        }
        run.driver.startSound();
        tickSoon(run);
    }
};

QUORIN_TEST(TestRecorderFaults);
#include "tst_recorder_faults.moc"
