// SPDX-License-Identifier: GPL-3.0-or-later
// A subject's way from run to run, in the application's windows.
#include "StudyTexts.h"
#include "app/MainWindow.h"
#include "drivers/RunDriver.h"
#include "record/RecordReader.h"
#include "session/FlightRecorder.h"
#include "session/StudyCourse.h"
#include "session/TextWindow.h"
#include "subject/SubjectWindow.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

namespace {

/// A session of a subject, whose runs are played by hand.
class PlayedStudy {
public:
    PlayedStudy(const QByteArray& rows, bool pressesGo)
        : driver(window)
        , recorder(window, folder.path(), 1)
        , course(window, study(rows), pressesGo)
        , finished(&course, &StudyCourse::finished)
    {
        recorder.askForPlace([this] { return course.place(); });
        QObject::connect(
            &course, &StudyCourse::told, &course, [this](const QString& text) { told += text; });
        course.start();
    }

    QPushButton* go() const { return buttonOf(window, "pushButtonGo"); }

    /// The window of a text that waits for Return; null if there is none.
    TextWindow* text() const { return window.findChild<TextWindow*>(); }

    /// The listener's window of a run under way; null if there is none.
    SubjectWindow* listener() const
    {
        for (auto* const each : window.findChildren<SubjectWindow*>()) {
            if (each->isVisible())
                return each;
        }
        return nullptr;
    }

    /// Answers the trials of a run that has begun, and presses "Done".
    void playRun()
    {
        driver.beReady();
        for (const bool isRight : {true, false, true}) {
            driver.playTrial();
            driver.answerRightly(isRight);
        }
        buttonOf(*listener(), "pushButtonDone")->click();
    }

    RunRecord record() const { return readRecordFile(folder.filePath(recorder.recordName())).run; }

    QTemporaryDir folder;
    ModalBoxes boxes; // say yes to closing the listener's window
    MainWindow window;
    RunDriver driver;
    FlightRecorder recorder;
    QString told;
    StudyCourse course;
    QSignalSpy finished;

private:
    Study study(const QByteArray& rows) const
    {
        StudyRequest request;
        request.subject = "S07";
        const QString path = writtenFile(folder, "study.csv", quickProtocol(rows));
        return plannedStudy(request, studyProtocol(path), {}, 3);
    }
};

QString shownText(const PlayedStudy& session)
{
    return session.text() == nullptr
        ? QString()
        : widgetOf<QTextEdit>(*session.text(), "textEdit")->toPlainText();
}

} // namespace

class TestStudyCourse : public WindowTest {
    Q_OBJECT

private slots:
    void course_fillsThePanelAndPressesView_beforeEachRun()
    {
        PlayedStudy session("1,sinusoid,,\n1,noise,,", false);
        QCOMPARE(textOf(session.window, "lineEditSubCode"), QString("S07"));
        QCOMPARE(textOf(session.window, "lineEditStdDuration"), QString("10"));
        QCOMPARE(session.window.sessionRecord().soundType, quorin::sinusoidCarrier);
        QVERIFY(session.go()->isEnabled());
        QVERIFY(session.listener() == nullptr);
        session.go()->click();
        session.playRun();
        QTRY_COMPARE(session.window.sessionRecord().soundType, quorin::noiseCarrier);
        QVERIFY(session.go()->isEnabled());
        QCOMPARE(session.finished.count(), 0);
        session.go()->click();
        session.playRun();
        QTRY_COMPARE(session.finished.count(), 1);
        QVERIFY(session.told.endsWith("S07, study.csv, order as-written: 2 of 2 runs completed\n"
                                      "  run  row  repeat  state  settings\n"
                                      "    1    1       1  done   sinusoid\n"
                                      "    2    2       1  done   noise\n"));
    }

    void records_tellTheProtocol()
    {
        PlayedStudy session("2,,,", false);
        session.go()->click();
        session.playRun();
        const std::optional<ProtocolPlace> first = session.record().begun.protocol;
        QVERIFY(first.has_value());
        QCOMPARE(first->file, QString("study.csv"));
        QCOMPARE(first->sha256, studyProtocol(session.folder.filePath("study.csv")).sha256);
        QCOMPARE(first->subject, QString("S07"));
        QCOMPARE(first->order, QString("as-written"));
        QCOMPARE(first->orderSeed, 3);
        QCOMPARE(first->row, 1);
        QCOMPARE(first->repeat, 1);
        QCOMPARE(first->place, 1);
        QCOMPARE(first->runs, 2);
        QTRY_VERIFY(session.go()->isEnabled());
        session.go()->click();
        QCOMPARE(session.record().begun.protocol->repeat, 2);
        QCOMPARE(session.record().begun.protocol->place, 2);
    }

    void resumedSession_offersWhatTheRecordsDoNotHave()
    {
        PlayedStudy session("3,,,", false);
        session.go()->click();
        session.playRun();
        QTRY_VERIFY(session.go()->isEnabled());
        session.go()->click();
        session.driver.beReady();
        session.listener()->close(); // abandoned
        const QString sha256 = session.record().begun.protocol->sha256;
        const EarlierRuns earlier = earlierRuns(session.folder.path(), sha256, "S07");
        QCOMPARE(earlier.completed, QStringList("row 1, repeat 1"));
        QCOMPARE(earlier.orderSeed, 3);
    }

    void resumedSession_knowsARun_whoseProgramWasKilledAfterTheLastAnswer()
    {
        PlayedStudy session("2,,,", false);
        session.go()->click();
        session.playRun();
        const RunBegun begun = session.record().begun;
        QFile file(session.folder.filePath(session.recorder.recordName()));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray content = file.readAll();
        const int beforeEnd = content.chopped(1).lastIndexOf('\n') + 1;
        const int beforeAnswer = content.left(beforeEnd - 1).lastIndexOf('\n') + 1;
        QVERIFY(file.resize(beforeEnd));
        const auto completed = [&session, &begun] {
            return earlierRuns(session.folder.path(), begun.protocol->sha256, "S07").completed;
        };
        QCOMPARE(completed(), QStringList("row 1, repeat 1"));
        QVERIFY(file.resize(beforeAnswer));
        QCOMPARE(completed(), QStringList());
    }

    void autoGo_pressesGo_forEachRun()
    {
        PlayedStudy session("2,,,", true);
        QVERIFY(session.listener() != nullptr);
        session.playRun();
        QTRY_VERIFY(session.listener() != nullptr);
        session.playRun();
        QTRY_COMPARE(session.finished.count(), 1);
        QVERIFY(session.listener() == nullptr);
    }

    void abandonedRun_isOfferedAgain_withoutPressingGo()
    {
        PlayedStudy session("2,,Rest,Listen", true);
        QTest::keyClick(session.text(), Qt::Key_Return);
        QTRY_COMPARE(shownText(session), QString("Listen"));
        QTest::keyClick(session.text(), Qt::Key_Return);
        QTRY_VERIFY(session.listener() != nullptr);
        session.driver.beReady();
        session.listener()->close();
        QTRY_VERIFY(session.told.endsWith("row 1, repeat 1 was not completed: it is offered "
                                          "again.\n"));
        QTRY_COMPARE(shownText(session), QString("Listen")); // no second break
        QTest::keyClick(session.text(), Qt::Key_Return);
        QTRY_VERIFY(session.text() == nullptr);
        QCoreApplication::processEvents();
        QVERIFY(session.listener() == nullptr);
        session.go()->click();
        QCOMPARE(session.record().begun.protocol->repeat, 1);
        session.playRun();
        QTRY_VERIFY(session.told.contains(": 1 of 2 runs completed\n"));
    }

    void panelViewedWithOtherSettings_makesARunThatDoesNotCount()
    {
        PlayedStudy session("1,,,", false);
        type(session.window, "lineEditStdDuration", "20");
        buttonOf(session.window, "pushButtonView")->click();
        type(session.window, "lineEditStdDuration", "10");
        session.go()->click();
        QVERIFY(session.told.endsWith("this run is recorded, but it does not count.\n"));
        QVERIFY(!session.record().begun.protocol.has_value());
    }

    void changedPanel_makesARunThatDoesNotCount()
    {
        PlayedStudy session("1,,,", false);
        type(session.window, "lineEditNReversalsToCalc", "1");
        session.go()->click();
        QVERIFY(
            session.told.endsWith("The settings at View or at Go are not those of row 1, repeat "
                                  "1: this run is recorded, but it does not count.\n"));
        session.playRun();
        QVERIFY(!session.record().begun.protocol.has_value());
        QVERIFY(std::holds_alternative<RunSaved>(session.record().end));
        QTRY_COMPARE(textOf(session.window, "lineEditNReversalsToCalc"), QString("2"));
        QCOMPARE(session.finished.count(), 0);
        session.go()->click();
        session.playRun();
        QTRY_COMPARE(session.finished.count(), 1);
    }

    void texts_areShownBeforeTheRun_theBreakFirst()
    {
        PlayedStudy session("1,,Have a rest,Which one?\n1,,,", true);
        QCOMPARE(shownText(session), QString("Have a rest"));
        QTest::keyClick(session.text(), Qt::Key_Space);
        QCoreApplication::processEvents();
        QCOMPARE(shownText(session), QString("Have a rest"));
        QVERIFY(session.listener() == nullptr);
        QTest::keyClick(session.text(), Qt::Key_Return);
        QTRY_COMPARE(shownText(session), QString("Which one?"));
        QVERIFY(session.listener() == nullptr);
        QTest::keyClick(session.text(), Qt::Key_Return);
        QTRY_VERIFY(session.listener() != nullptr);
        QTRY_VERIFY(session.text() == nullptr);
        session.playRun();
        QTRY_VERIFY(session.listener() != nullptr); // the next has no texts
        QVERIFY(session.text() == nullptr);
    }
};

QUORIN_TEST(TestStudyCourse);
#include "tst_study_course.moc"
