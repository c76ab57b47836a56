// SPDX-License-Identifier: GPL-3.0-or-later
// The subject window's states: lights, answers, result and closing.
#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"

namespace {

const QString none;
const QString darkGrey(" QPushButton {background-color: rgb(190, 190, 190); border: none;} ");
const QString green(
    " QPushButton {background-color: rgb(0, 255, 0); border: 1px solid rgb(180, 180, 180);} ");
const QString lightGrey(
    " QPushButton {background-color: rgb(240, 240, 240); border: 1px solid rgb(180, 180, 180);} ");
const QString hover(
    "QPushButton:hover {background-color: rgb(0, 255, 255); border: 1px solid blue;}");

QStringList styles(SubjectWindow& window)
{
    QStringList sheets;
    for (const QPushButton* button : choiceButtons(window)) {
        sheets.append(button->styleSheet());
    }
    return sheets;
}

// Which of the window and the buttons "1" to "4" can be used.
QVector<bool> enabled(SubjectWindow& window)
{
    QVector<bool> states = {window.isEnabled()};
    for (const QPushButton* button : choiceButtons(window)) {
        states.append(button->isEnabled());
    }
    return states;
}

const QVector<bool> allDisabled = {false, false, false, false, false};
const QVector<bool> answering = {true, false, true, true, false};

// All that a listener can see of the window.
QVariantList look(SubjectWindow& window)
{
    QVariantList list = {window.isVisible(), styles(window),
        labelOf(window, "labelThreshold")->text(), labelOf(window, "labelThreshold")->isVisible(),
        buttonOf(window, "pushButtonDone")->isVisible(),
        buttonOf(window, "pushButtonIAmReady")->isVisible()};
    for (const bool state : enabled(window)) {
        list.append(state);
    }
    return list;
}

} // namespace

class TestSubjectStates : public QuietTest {
    Q_OBJECT

private slots:
    void buttons_lightUpInTurn()
    {
        const QVector<QPair<int, QStringList>> looks {
            {1, {green, none, none, none}},
            {2, {darkGrey, green, none, none}},
            {3, {darkGrey, lightGrey, green, none}},
            {4, {darkGrey, lightGrey, lightGrey, green}},
            {-1, {darkGrey, hover, hover, darkGrey}},
        };
        SubjectWindow window(nullptr);
        for (const auto& [state, expected] : looks) {
            window.updateSubjectWindow(state);
            QCOMPARE(styles(window), expected);
            QCOMPARE(enabled(window), state == -1 ? answering : allDisabled);
        }
    }

    void highlight_stays_untilTheNextTrialReplacesIt()
    {
        SubjectWindow window(nullptr);
        for (const int state : {1, 2, 3, 4, -1, 1}) {
            window.updateSubjectWindow(state);
        }
        QCOMPARE(styles(window), QStringList({green, hover, hover, darkGrey}));
        window.updateSubjectWindow(2);
        QCOMPARE(styles(window), QStringList({darkGrey, green, hover, darkGrey}));
        window.updateSubjectWindow(3);
        QCOMPARE(styles(window), QStringList({darkGrey, lightGrey, green, darkGrey}));
    }

    void otherStates_onlyDisable_data() { addIntegers("state", {0, 5, 6, -2, 100, -100}); }

    void otherStates_onlyDisable()
    {
        QFETCH(int, state);
        SubjectWindow window(nullptr);
        for (const int earlier : {1, 2, 3, 4, -1}) {
            window.updateSubjectWindow(earlier);
        }
        const QStringList before = styles(window);
        window.updateSubjectWindow(state);
        QCOMPARE(enabled(window), allDisabled);
        QCOMPARE(styles(window), before);
    }

    void eachState_disablesTheButtonsThemselves_data() { addIntegers("state", {0, 1, 2, 3, 4, 5}); }

    void eachState_disablesTheButtonsThemselves()
    {
        QFETCH(int, state);
        SubjectWindow window(nullptr);
        window.updateSubjectWindow(state);
        window.setEnabled(true);
        QCOMPARE(enabled(window), QVector<bool>({true, false, false, false, false}));
    }

    void result_replacesTheButtons_data()
    {
        addColumns<int, QString>("mainParameter", "text");
        QTest::newRow("depth") << 1 << "Modulation Threshold = 0.2 %,   Reaction Time = 734.5 ms";
        QTest::newRow("frequency")
            << 0 << "Frequency Difference = 2 Hz,   Reaction Time = 734.5 ms";
        QTest::newRow("unknown") << 7 << "";
    }

    void result_replacesTheButtons()
    {
        QFETCH(int, mainParameter);
        SubjectWindow window(nullptr);
        window.show();
        buttonOf(window, "pushButtonIAmReady")->click();
        window.finishExperiment(0.002, 734.5, mainParameter, 1000.0);
        QTEST(labelOf(window, "labelThreshold")->text(), "text");
        QVERIFY(labelOf(window, "labelThreshold")->isVisible());
        QVERIFY(buttonOf(window, "pushButtonDone")->isVisible());
        QVERIFY(buttonOf(window, "pushButtonDone")->isEnabled());
        QVERIFY(window.isEnabled());
        for (const QPushButton* button : choiceButtons(window)) {
            QVERIFY(!button->isVisible());
        }
        QVERIFY(!buttonOf(window, "pushButtonIAmReady")->isVisible());
    }

    void closing_asksForConfirmation()
    {
        ModalBoxes boxes;
        SubjectWindow window(nullptr);
        window.show();
        window.close();
        QCOMPARE(boxes.messages().size(), 1);
        const ModalBoxes::Message box = boxes.messages().constFirst();
        QCOMPARE(box.title, QString("Confirmation MessageBox"));
        QCOMPARE(box.text, QString("Do you want to close this window?\n"));
        QCOMPARE(box.icon, QMessageBox::Question);
        QCOMPARE(box.buttons,
            QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel));
        QCOMPARE(box.defaultButton, QMessageBox::Yes);
        QCOMPARE(box.parent, &window);
    }

    void closing_happensOnYes_data()
    {
        QTest::addColumn<bool>("byDone");
        QTest::newRow("title bar") << false;
        QTest::newRow("Done") << true;
    }

    void closing_happensOnYes()
    {
        QFETCH(bool, byDone);
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        SubjectWindow window(nullptr);
        QSignalSpy closed(&window, SIGNAL(subjectWindowClosed()));
        window.show();
        window.finishExperiment(0.002, 734.5, 1, 1000.0);
        if (byDone) {
            buttonOf(window, "pushButtonDone")->click();
        } else {
            QVERIFY(window.close());
        }
        QCOMPARE(boxes.messages().size(), 1);
        QCOMPARE(closed.count(), 1);
        QVERIFY(!window.isVisible());
    }

    void closing_changesNothing_onAnyOtherAnswer_data()
    {
        addColumns<int, int>("answer", "state");
        constexpr int escapeKey = QMessageBox::NoButton;
        for (const int state : {3, -1}) {
            QTest::addRow("No in state %d", state) << int(QMessageBox::No) << state;
            QTest::addRow("Cancel in state %d", state) << int(QMessageBox::Cancel) << state;
            QTest::addRow("Escape in state %d", state) << escapeKey << state;
        }
    }

    void closing_changesNothing_onAnyOtherAnswer()
    {
        QFETCH(int, answer);
        QFETCH(int, state);
        ModalBoxes boxes;
        if (answer == QMessageBox::NoButton) {
            boxes.escapeNext();
        } else {
            boxes.answerNext(static_cast<QMessageBox::StandardButton>(answer));
        }
        SubjectWindow window(nullptr);
        window.show();
        buttonOf(window, "pushButtonIAmReady")->click();
        for (const int earlier : {1, 2, state}) {
            window.updateSubjectWindow(earlier);
        }
        const QVariantList before = look(window);
        QSignalSpy closed(&window, SIGNAL(subjectWindowClosed()));
        QVERIFY(!window.close());
        QCOMPARE(boxes.messages().size(), 1);
        QCOMPARE(boxes.unusedAnswers(), 0);
        QCOMPARE(closed.count(), 0);
        QCOMPARE(look(window), before);
    }

    void result_staysHidden_inAHiddenWindow()
    {
        SubjectWindow window(nullptr);
        window.updateSubjectWindow(-1);
        window.finishExperiment(0.002, 734.5, 1, 1000.0);
        QVERIFY(!window.isVisible());
        QCOMPARE(labelOf(window, "labelThreshold")->text(),
            QString("Modulation Threshold = 0.2 %,   Reaction Time = 734.5 ms"));
    }
};

QUORIN_TEST(TestSubjectStates);
#include "tst_subject_states.moc"
