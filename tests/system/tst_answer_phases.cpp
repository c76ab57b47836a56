// SPDX-License-Identifier: GPL-3.0-or-later
// Clicks on the interval buttons, and when they are no answer.
#include "support/ModalBoxes.h"
#include "support/ShownRun.h"
#include "support/WindowTest.h"

#include <QWindow>

namespace {

enum Means { mouse, space };

// Presses a button as a listener does: the window system decides who gets it.
void press(QPushButton* button, Means means)
{
    if (means == mouse) {
        clickOn(*button);
        return;
    }
    button->setFocus();
    QTest::keyClick(button->window()->windowHandle(), Qt::Key_Space);
}

void pressAll(SubjectWindow& subject, Means means)
{
    for (QPushButton* button : choiceButtons(subject)) {
        press(button, means);
    }
}

} // namespace

Q_DECLARE_METATYPE(Means)

class TestAnswerPhases : public WindowTest {
    Q_OBJECT

private:
    static void addMeans()
    {
        QTest::addColumn<Means>("means");
        QTest::newRow("mouse") << mouse;
        QTest::newRow("keyboard") << space;
    }

private slots:
    void press_isNoAnswer_beforeTheListenerIsReady()
    {
        ShownRun run;
        QVERIFY(run.isShown);
        QWindow* const window = run.subject().windowHandle();
        for (const int eighths : {1, 3, 5, 7}) {
            QTest::mouseClick(window, Qt::LeftButton, {},
                QPoint(run.subject().width() * eighths / 8, run.subject().height() / 10));
        }
        QVERIFY(run.records().isEmpty());
        QCOMPARE(run.data.nTrials, 0);
    }

    void press_isNoAnswer_whileSoundsPlay_data() { addMeans(); }

    void press_isNoAnswer_whileSoundsPlay()
    {
        QFETCH(Means, means);
        ShownRun run;
        QVERIFY(run.isShown);
        press(buttonOf(run.subject(), "pushButtonIAmReady"), means);
        QCOMPARE(run.data.nTrials, 1);
        for (int trial = 1; trial <= 2; ++trial) {
            for (int sound = 1; sound <= 4; ++sound) {
                pressAll(run.subject(), means);
                run.driver.startSound();
                pressAll(run.subject(), means);
                QCOMPARE(run.records().size(), trial - 1);
                QCOMPARE(Probe::soundIndex(run.window), sound);
                run.driver.endSound();
            }
            press(buttonOf(run.subject(), "pushButtonChoice3"), means);
            QCOMPARE(run.records().size(), trial);
        }
    }

    void answer_isTheFirstPress_data()
    {
        addColumns<Means, int>("means", "answer");
        QTest::newRow("2 by mouse") << mouse << 2;
        QTest::newRow("3 by mouse") << mouse << 3;
        QTest::newRow("2 by keyboard") << space << 2;
        QTest::newRow("3 by keyboard") << space << 3;
    }

    void answer_isTheFirstPress()
    {
        QFETCH(Means, means);
        QFETCH(int, answer);
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        QPushButton* const second = buttonOf(run.subject(), "pushButtonChoice2");
        QPushButton* const third = buttonOf(run.subject(), "pushButtonChoice3");
        press(buttonOf(run.subject(), "pushButtonChoice1"), means);
        press(buttonOf(run.subject(), "pushButtonChoice4"), means);
        QVERIFY(run.records().isEmpty());

        press(answer == 2 ? second : third, means);
        pressAll(run.subject(), mouse);
        pressAll(run.subject(), space);
        QCOMPARE(run.records().size(), 1);
        QCOMPARE(run.records().constFirst().responsePosition, answer);
        QCOMPARE(run.data.nTrials, 2);
    }

    void doubleClick_isOneAnswer()
    {
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        QPushButton* const button = buttonOf(run.subject(), "pushButtonChoice2");
        QTest::mouseDClick(run.subject().windowHandle(), Qt::LeftButton, {},
            button->mapTo(&run.subject(), button->rect().center()));
        QCOMPARE(run.records().size(), 1);
    }

    void pressThatBeganBeforeTheAnswerPhase_isNoAnswer_data() { addMeans(); }

    void pressThatBeganBeforeTheAnswerPhase_isNoAnswer()
    {
        QFETCH(Means, means);
        ShownRun run;
        QVERIFY(run.isShown);
        run.driver.beReady();
        for (int i = 0; i < 3; ++i) {
            run.driver.startSound();
            run.driver.endSound();
        }
        run.driver.startSound();
        QPushButton* const button = buttonOf(run.subject(), "pushButtonChoice2");
        QWindow* const window = run.subject().windowHandle();
        const QPoint centre = button->mapTo(&run.subject(), button->rect().center());
        if (means == mouse) {
            QTest::mousePress(window, Qt::LeftButton, {}, centre);
            run.driver.endSound();
            QTest::mouseRelease(window, Qt::LeftButton, {}, centre);
        } else {
            QTest::keyPress(window, Qt::Key_Space);
            run.driver.endSound();
            button->setFocus();
            QTest::keyRelease(window, Qt::Key_Space);
        }
        QVERIFY(run.subject().isEnabled());
        QVERIFY(run.records().isEmpty());
    }

    void press_isNoAnswer_whileTheConfirmationIsOpen_data()
    {
        addColumns<Means, bool>("means", "isAnswerPhase");
        QTest::newRow("mouse, answer phase") << mouse << true;
        QTest::newRow("mouse, sound") << mouse << false;
        QTest::newRow("keyboard, answer phase") << space << true;
        QTest::newRow("keyboard, sound") << space << false;
    }

    void press_isNoAnswer_whileTheConfirmationIsOpen()
    {
        QFETCH(Means, means);
        QFETCH(bool, isAnswerPhase);
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        if (!isAnswerPhase) {
            run.driver.answer(2);
            run.driver.startSound();
        }
        const int before = run.records().size();
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::No);
        boxes.onOpen([&](QWidget*) {
            for (QPushButton* button : {buttonOf(run.subject(), "pushButtonChoice2"),
                     buttonOf(run.subject(), "pushButtonChoice3")}) {
                press(button, means);
            }
        });
        QVERIFY(!run.subject().close());
        QCOMPARE(boxes.messages().size(), 1);
        QCOMPARE(run.records().size(), before);

        QApplication::setActiveWindow(&run.subject());
        press(buttonOf(run.subject(), "pushButtonChoice3"), means);
        QCOMPARE(run.records().size(), isAnswerPhase ? before + 1 : before);
    }

    void press_isNoAnswer_afterTheRun_data() { addMeans(); }

    void press_isNoAnswer_afterTheRun()
    {
        QFETCH(Means, means);
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        run.data.reversalCount = 14;
        run.driver.answer(2);
        QVERIFY(buttonOf(run.subject(), "pushButtonDone")->isVisible());
        pressAll(run.subject(), means);
        QCOMPARE(run.records().size(), 1);
    }
};

QUORIN_TEST(TestAnswerPhases);
#include "tst_answer_phases.moc"
