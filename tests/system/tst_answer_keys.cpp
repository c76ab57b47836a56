// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the listener: 2, 3, Return and Enter, and when they do nothing.
#include "support/ModalBoxes.h"
#include "support/ShownRun.h"
#include "support/WindowTest.h"

#include <QKeyEvent>
#include <QWindow>

namespace {

// With Ctrl a key types nothing that could be read.
void click(SubjectWindow& subject, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const bool isTyped = key < Qt::Key_Escape && (modifiers & Qt::ControlModifier) == 0;
    const QString text = isTyped ? QString(QChar(key)) : QString();
    QTest::sendKeyEvent(QTest::Click, subject.windowHandle(), key, text, modifiers);
}

// What a key does that is held down: presses that the window system marks as repeated.
void repeat(SubjectWindow& subject, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(subject.windowHandle(), &event);
}

void clickAllThatAnswer(SubjectWindow& subject)
{
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_3}) {
        click(subject, key);
        click(subject, key, Qt::KeypadModifier);
    }
}

QVector<int> answers(const QVector<Record>& records)
{
    QVector<int> positions;
    for (const Record& record : records) {
        positions.append(record.responsePosition);
    }
    return positions;
}

void endTheRun(ShownRun& run)
{
    run.data.reversalCount = run.data.nReversals;
    click(run.subject(), Qt::Key_2);
}

} // namespace

class TestAnswerKeys : public WindowTest {
    Q_OBJECT

private slots:
    void digit_isTheAnswer_inTheAnswerPhase_data()
    {
        addColumns<Qt::Key, Qt::KeyboardModifiers, int>("key", "modifiers", "answer");
        const auto row = [](const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers) {
            QTest::newRow(name) << key << modifiers << (key == Qt::Key_2 ? 2 : 3);
        };
        row("2", Qt::Key_2, Qt::NoModifier);
        row("3", Qt::Key_3, Qt::NoModifier);
        row("2 of the keypad", Qt::Key_2, Qt::KeypadModifier);
        row("3 of the keypad", Qt::Key_3, Qt::KeypadModifier);
        row("2 on the shifted level", Qt::Key_2, Qt::ShiftModifier);
        row("3 on the shifted level", Qt::Key_3, Qt::ShiftModifier);
        row("2 on the level of AltGr", Qt::Key_2, Qt::GroupSwitchModifier);
        row("3 on the level of AltGr", Qt::Key_3, Qt::GroupSwitchModifier);
        row("2 of AltGr as Ctrl and Alt", Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
        row("3 of AltGr as Ctrl and Alt", Qt::Key_3, Qt::ControlModifier | Qt::AltModifier);
        row("3 of Shift and AltGr", Qt::Key_3, Qt::ShiftModifier | Qt::GroupSwitchModifier);
    }

    // The press alone answers, before any event is processed.
    void digit_isTheAnswer_inTheAnswerPhase()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(int, answer);
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        QKeyEvent press(QEvent::KeyPress, key, modifiers, QString(QChar(key)));
        QCoreApplication::sendEvent(run.subject().windowHandle(), &press);
        QCOMPARE(answers(run.records()), QVector<int>({answer}));
        QVERIFY(!run.subject().isEnabled());

        clickAllThatAnswer(run.subject());
        QCOMPARE(run.records().size(), 1);
        QCOMPARE(run.data.nTrials, 2);
    }

    void digits_areTheAnswers_ofAWholeRun()
    {
        const QVector<int> wanted({2, 3, 3, 2, 2, 2, 3});
        ShownRun run;
        QVERIFY(run.isShown);
        click(run.subject(), Qt::Key_Return);
        for (int trial = 0; trial < wanted.size(); ++trial) {
            for (int sound = 0; sound < 4; ++sound) {
                clickAllThatAnswer(run.subject());
                run.driver.startSound();
                clickAllThatAnswer(run.subject());
                run.driver.endSound();
                QCOMPARE(run.records().size(), trial);
            }
            click(run.subject(), wanted[trial] == 2 ? Qt::Key_2 : Qt::Key_3);
        }
        QCOMPARE(answers(run.records()), wanted);
        for (const Record& record : run.records()) {
            QCOMPARE(record.correctness, record.responsePosition == record.stimulusPosition);
        }
    }

    void digit_isNoAnswer_beforeTheListenerIsReady()
    {
        ShownRun run;
        QVERIFY(run.isShown);
        clickAllThatAnswer(run.subject());
        QVERIFY(run.records().isEmpty());
        QCOMPARE(run.data.nTrials, 0);
    }

    // An enabled button is not enough: it is hidden.
    void digit_isNoAnswer_whenTheButtonIsHidden()
    {
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        buttonOf(run.subject(), "pushButtonChoice2")->hide();
        click(run.subject(), Qt::Key_2);
        QVERIFY(run.records().isEmpty());
        buttonOf(run.subject(), "pushButtonChoice2")->show();
        click(run.subject(), Qt::Key_2);
        QCOMPARE(run.records().size(), 1);
    }

    void digit_isNoAnswer_whileTheConfirmationIsOpen()
    {
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::No);
        boxes.onOpen([&](QWidget* box) {
            for (QWindow* window : {run.subject().windowHandle(), box->windowHandle()}) {
                QTest::keyClick(window, Qt::Key_2);
                QTest::keyClick(window, Qt::Key_3);
            }
        });
        QVERIFY(!run.subject().close());
        QVERIFY(run.records().isEmpty());
        QApplication::setActiveWindow(&run.subject());
        click(run.subject(), Qt::Key_3);
        QCOMPARE(answers(run.records()), QVector<int>({3}));
    }

    void digit_isNoAnswer_afterTheRun()
    {
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        endTheRun(run);
        QVERIFY(buttonOf(run.subject(), "pushButtonDone")->isVisible());
        clickAllThatAnswer(run.subject());
        QCOMPARE(run.records().size(), 1);
    }

    void heldDigit_isOneAnswer()
    {
        ShownRun run;
        QVERIFY(run.isShown);
        run.driver.beReady();
        repeat(run.subject(), Qt::Key_2);
        run.driver.playTrial();
        repeat(run.subject(), Qt::Key_2);
        QVERIFY(run.records().isEmpty());

        QTest::keyPress(run.subject().windowHandle(), Qt::Key_2);
        QCOMPARE(run.records().size(), 1);
        repeat(run.subject(), Qt::Key_2);
        run.driver.playTrial();
        repeat(run.subject(), Qt::Key_2);
        QTest::keyRelease(run.subject().windowHandle(), Qt::Key_2);
        QCOMPARE(run.records().size(), 1);
        QVERIFY(run.subject().isEnabled());
    }

    void otherKeys_areNoAnswer_data()
    {
        addColumns<Qt::Key, Qt::KeyboardModifiers>("key", "modifiers");
        const auto row
            = [](const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
                  QTest::newRow(name) << key << modifiers;
              };
        row("1", Qt::Key_1);
        row("4", Qt::Key_4);
        row("Return", Qt::Key_Return);
        row("Enter", Qt::Key_Enter, Qt::KeypadModifier);
        row("Space", Qt::Key_Space);
        row("Escape", Qt::Key_Escape);
        row("right", Qt::Key_Right);
        row("Ctrl+2", Qt::Key_2, Qt::ControlModifier);
        row("Alt+2", Qt::Key_2, Qt::AltModifier);
        row("Meta+3", Qt::Key_3, Qt::MetaModifier);
        row("Ctrl+Shift+3", Qt::Key_3, Qt::ControlModifier | Qt::ShiftModifier);
        row("Ctrl+Alt+2", Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
        row("Ctrl+Alt+Meta+2", Qt::Key_2, Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    }

    // Wherever Tab, a click and a new activation of the window could have put the focus.
    void otherKeys_areNoAnswer()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        ShownRun run;
        QVERIFY(run.isShown);
        click(run.subject(), Qt::Key_Space);
        QCOMPARE(run.data.nTrials, 1);
        for (int trial = 0; trial < 2; ++trial) {
            run.driver.playTrial();
            click(run.subject(), key, modifiers);
            click(run.subject(), Qt::Key_Tab);
            click(run.subject(), key, modifiers);
            QApplication::setActiveWindow(&run.window);
            QApplication::setActiveWindow(&run.subject());
            click(run.subject(), key, modifiers);
            QCOMPARE(run.records().size(), trial);
            QVERIFY(run.subject().isEnabled());

            clickOn(*buttonOf(run.subject(), "pushButtonChoice3"));
            QCOMPARE(run.records().size(), trial + 1);
        }
    }

    void return_pressesIAmReady_data()
    {
        addColumns<Qt::Key, Qt::KeyboardModifiers>("key", "modifiers");
        QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers(Qt::NoModifier);
        QTest::newRow("Enter") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
    }

    void return_pressesIAmReady()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        ShownRun run;
        QVERIFY(run.isShown);
        repeat(run.subject(), key);
        click(run.subject(), key, Qt::AltModifier);
        QCOMPARE(run.data.nTrials, 0);
        click(run.subject(), key, modifiers);
        QCOMPARE(run.data.nTrials, 1);
        QVERIFY(buttonOf(run.subject(), "pushButtonChoice2")->isVisible());
        click(run.subject(), key, modifiers);
        run.driver.startSound();
        click(run.subject(), key, modifiers);
        QCOMPARE(run.data.nTrials, 1);
        QCOMPARE(Probe::soundIndex(run.window), 1);
    }

    void return_pressesDone_data() { return_pressesIAmReady_data(); }

    void return_pressesDone()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        ShownRun run;
        QVERIFY(run.awaitsAnswer());
        endTheRun(run);
        clickOn(*labelOf(run.subject(), "labelThreshold"));

        ModalBoxes boxes;
        repeat(run.subject(), key);
        QVERIFY(boxes.messages().isEmpty());
        boxes.answerNext(QMessageBox::No);
        click(run.subject(), key, modifiers);
        QCOMPARE(boxes.messages().size(), 1);
        QVERIFY(run.subject().isVisible());
        QApplication::setActiveWindow(&run.subject());
        boxes.answerNext(QMessageBox::Yes);
        click(run.subject(), key, modifiers);
        QVERIFY(!run.subject().isVisible());
        QVERIFY(run.window.isEnabled());
        QCOMPARE(run.records().size(), 1);
        QCOMPARE(run.data.nTrials, 1);
    }
};

QUORIN_TEST(TestAnswerKeys);
#include "tst_answer_keys.moc"
