// SPDX-License-Identifier: GPL-3.0-or-later
// What a session tells in boxes, with a window manager: the listener's window keeps the keyboard.
#include "RecordedRun.h"
#include "output/CommandLine.h"
#include "session/FaultMessages.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"
#include "system/ManagedScreen.h"

#include <QApplication>
#include <QTimer>

#include <functional>
#include <memory>

using Tell = std::function<void(FlightRecorder&)>;
Q_DECLARE_METATYPE(Tell)

class TestFaultMessages : public WindowTest {
    Q_OBJECT

public:
    explicit TestFaultMessages(ManagedScreen& screen)
        : m_screen(screen)
    {
    }

private slots:
    void init() override
    {
        WindowTest::init();
        m_run = std::make_unique<RecordedRun>();
        m_messages = std::make_unique<FaultMessages>(m_run->recorder, *m_run->window, m_streams);
        m_run->window->show();
        QVERIFY(m_screen.becomesUsable(*m_run->window));
        m_run->driver.open();
        QVERIFY(m_screen.becomesUsable(listener()));
    }

    void cleanup() override
    {
        m_messages.reset();
        QVERIFY(boxes().isEmpty());
        m_run.reset();
        WindowTest::cleanup();
    }

    void message_isShown_andLeavesTheKeyboardToTheListener_data()
    {
        QTest::addColumn<Tell>("tell");
        QTest::newRow("disk") << Tell([](auto& recorder) { emit recorder.failed("full"); });
        QTest::newRow("results") << Tell(
            [](auto& recorder) { emit recorder.resultsFailed("full"); });
        QTest::newRow("sound") << Tell([](auto& recorder) { emit recorder.soundFailed(1); });
        QTest::newRow("calibration") << Tell(
            [](auto& recorder) { emit recorder.calibrationDiffers({"the volume is low"}); });
        QTest::newRow("lost trial") << Tell([](auto& recorder) { emit recorder.trialLost(1); });
    }

    void message_isShown_andLeavesTheKeyboardToTheListener()
    {
        QFETCH(Tell, tell);
        m_run->driver.beReady();
        m_run->driver.playTrial();
        tell(m_run->recorder);
        QCOMPARE(boxes().size(), 1);
        QTRY_VERIFY(ManagedScreen::isInFront(*boxes()[0]));
        QVERIFY(!boxes()[0]->geometry().intersects(listener().geometry()));
        QVERIFY(m_screen.press("2"));
        QTRY_COMPARE(Probe::data(*m_run->window).records.size(), 1);
    }

    void percentSign_staysWithItsNumber()
    {
        emit m_run->recorder.calibrationDiffers({"the volume of card is 40.0 %"});
        QCOMPARE(boxes()[0]->text(),
            QString("The calibration does not hold: the volume of card is 40.0%1%.\n\n"
                    "The run goes on, and its record tells it.")
                .arg(QChar(QChar::Nbsp)));
    }

    void lostTrial_goesOn_whereThatIsChosen()
    {
        loseTrial();
        QVERIFY(clickButton("Go on"));
        QTRY_VERIFY(boxes().isEmpty());
        QVERIFY(m_screen.becomesUsable(listener()));
        QVERIFY(m_screen.press("3"));
        QTRY_COMPARE(Probe::data(*m_run->window).records.size(), 1);
    }

    void lostTrial_isAskedAboutAgain_whereTheListenersWindowIsKept()
    {
        loseTrial();
        ModalBoxes answers;
        answers.answerNext(QMessageBox::No);
        QVERIFY(clickButton("End the run"));
        QTRY_COMPARE(answers.messages().size(), 1);
        expectQuestionInFront();
        answers.answerNext(QMessageBox::Yes);
        QVERIFY(clickButton("End the run"));
        QTRY_VERIFY(!listener().isVisible());
        QTRY_VERIFY(boxes().isEmpty());
    }

    void question_isInFront_whereTheListenersWindowFilledTheScreen()
    {
        listener().setWindowState(Qt::WindowFullScreen);
        QTRY_COMPARE(listener().geometry(), QRect(0, 0, 1366, 768));
        QVERIFY(m_screen.becomesUsable(listener()));
        loseTrial();
        QVERIFY(clickButton("Go on"));
        QTRY_VERIFY(boxes().isEmpty());
        QTRY_COMPARE(listener().geometry(), QRect(0, 0, 1366, 768));
        QVERIFY(m_screen.becomesUsable(listener()));
    }

    void question_comesForward_whenItIsAskedAgain()
    {
        loseTrial();
        Probe::timerPlay(*m_run->window)->stop(); // it asks again at each tick
        QWidget other;
        other.setGeometry(boxes()[0]->geometry());
        other.show();
        QVERIFY(m_screen.becomesUsable(other));
        QVERIFY(!ManagedScreen::isInFront(*boxes()[0]));
        emit m_run->recorder.trialLost(1);
        QTRY_VERIFY(ManagedScreen::isInFront(*boxes()[0]));
    }

    void question_goesWithTheListenersWindow()
    {
        loseTrial();
        ModalBoxes answers;
        answers.answerNext(QMessageBox::Yes);
        QVERIFY(listener().close());
        QTRY_VERIFY(boxes().isEmpty());
    }

private:
    SubjectWindow& listener() { return *Probe::subjectWindow(*m_run->window); }

    // A modal one is the listener's window's own.
    static QList<QMessageBox*> boxes()
    {
        QList<QMessageBox*> found;
        const QWidgetList all = QApplication::topLevelWidgets();
        for (QWidget* widget : all) {
            auto* const box = qobject_cast<QMessageBox*>(widget);
            if (box != nullptr && box->isVisible() && !box->isModal())
                found.append(box);
        }
        return found;
    }

    // There is no sound device here: every sound is lost.
    void loseTrial()
    {
        m_run->driver.beReady();
        for (int i = 0; i < 3; ++i) {
            m_run->driver.startSound();
            m_run->driver.endSound();
        }
        m_run->driver.startSound();
        Probe::timerPlay(*m_run->window)->setInterval(10);
        expectQuestionInFront();
    }

    // Before that, a click may miss it.
    static void expectQuestionInFront()
    {
        QTRY_COMPARE(boxes().size(), 1);
        QTRY_VERIFY(ManagedScreen::isInFront(*boxes()[0]));
    }

    bool clickButton(const QString& text)
    {
        const QList<QAbstractButton*> buttons = boxes().constFirst()->buttons();
        for (QAbstractButton* button : buttons) {
            if (button->text() == text)
                return m_screen.clickOurs(button->mapToGlobal(button->rect().center()));
        }
        return false;
    }

    ManagedScreen& m_screen;
    StandardStreams m_streams;
    std::unique_ptr<RecordedRun> m_run;
    std::unique_ptr<FaultMessages> m_messages;
};

QUORIN_MANAGED_SCREEN_TEST(TestFaultMessages);
#include "tst_fault_messages.moc"
