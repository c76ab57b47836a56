// SPDX-License-Identifier: GPL-3.0-or-later
// The subject window's texts, grid and buttons.
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"

#include <QGridLayout>

using namespace quorin;

class TestSubjectWindow : public QuietTest {
    Q_OBJECT

private slots:
    void widgets_haveTheirTextsAndPlaces_data()
    {
        addColumns<QString, QString, QVector<int>, bool>("name", "text", "place", "isVisible");
        const auto add
            = [](const char* name, const char* text, const QVector<int>& place, bool isVisible) {
                  QTest::newRow(name) << QString(name) << QString(text) << place << isVisible;
              };
        add("pushButtonChoice1", "1", {0, 0, 1, 1}, false);
        add("pushButtonChoice2", "2", {0, 1, 1, 1}, false);
        add("pushButtonChoice3", "3", {0, 2, 1, 1}, false);
        add("pushButtonChoice4", "4", {0, 3, 1, 1}, false);
        add("pushButtonIAmReady", "I am ready", {2, 1, 1, 2}, true);
        add("pushButtonDone", "Done", {3, 1, 1, 2}, false);
        add("labelThreshold", "Threshold = ", {1, 0, 1, 4}, false);
    }

    void widgets_haveTheirTextsAndPlaces()
    {
        QFETCH(QString, name);
        QFETCH(QVector<int>, place);
        SubjectWindow window(nullptr);
        window.show();
        auto* const widget = window.findChild<QWidget*>(name);
        QVERIFY(widget != nullptr);
        QTEST(widget->property("text").toString(), "text");
        QTEST(widget->isVisible(), "isVisible");
        const QGridLayout* const grid = widgetOf<QGridLayout>(window, "gridLayout");
        int row = 0;
        int column = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        grid->getItemPosition(grid->indexOf(widget), &row, &column, &rowSpan, &columnSpan);
        QCOMPARE(QVector<int>({row, column, rowSpan, columnSpan}), place);
    }

    void centralWidget_holdsTheGrid()
    {
        SubjectWindow window(nullptr);
        QCOMPARE(window.QMainWindow::centralWidget(), widgetOf<QWidget>(window, "centralWidget"));
        QCOMPARE(widgetOf<QWidget>(window, "centralWidget")->layout(),
            static_cast<QLayout*>(widgetOf<QGridLayout>(window, "gridLayout")));
        QCOMPARE(widgetOf<QGridLayout>(window, "gridLayout")->count(), 7);
    }

    void intervalButtons_fillTheWindow()
    {
        SubjectWindow window(nullptr);
        for (const QPushButton* button : choiceButtons(window)) {
            QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
            QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
            QCOMPARE(button->styleSheet(), QString());
        }
    }

    void label_isCentredAndSelectable()
    {
        SubjectWindow window(nullptr);
        const QLabel* const label = labelOf(window, "labelThreshold");
        QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignHCenter));
        QCOMPARE(
            label->textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextSelectableByMouse));
    }

    void reservedColors_keepTheirValues()
    {
        SubjectWindow window(nullptr);
        const std::array<int, 9> expected = {0, 240, 240, 240, 255, 255, 255, 0, 255};
        QCOMPARE(Probe::reservedColors(window), expected);
    }

    void iAmReady_startsTheRun()
    {
        SubjectWindow window(nullptr);
        window.show();
        QSignalSpy responses(&window, SIGNAL(subjectResponded(int)));
        connect(&window, &SubjectWindow::subjectResponded, &window, [&window] {
            QVERIFY(!window.isEnabled());
            QVERIFY(buttonOf(window, "pushButtonChoice4")->isVisible());
            QVERIFY(!buttonOf(window, "pushButtonIAmReady")->isVisible());
        });
        buttonOf(window, "pushButtonDone")->show();
        buttonOf(window, "pushButtonIAmReady")->click();

        QCOMPARE(responses, QList<QVariantList>() << (QVariantList() << 0));
        QVERIFY(!buttonOf(window, "pushButtonDone")->isVisible());
        for (const QPushButton* button : choiceButtons(window)) {
            QVERIFY(button->isVisible());
            QVERIFY(button->testAttribute(Qt::WA_ForceDisabled));
        }
    }

    void answer_disablesTheWindowAtOnce_data()
    {
        addColumns<QString, int>("name", "response");
        QTest::newRow("2") << "pushButtonChoice2" << 2;
        QTest::newRow("3") << "pushButtonChoice3" << 3;
    }

    void answer_disablesTheWindowAtOnce()
    {
        QFETCH(QString, name);
        QFETCH(int, response);
        SubjectWindow window(nullptr);
        window.updateSubjectWindow(-1);
        QSignalSpy responses(&window, SIGNAL(subjectResponded(int)));
        connect(&window, &SubjectWindow::subjectResponded, &window,
            [&window] { QVERIFY(!window.isEnabled()); });
        auto* const button = window.findChild<QPushButton*>(name);
        button->click();
        button->click();
        QCOMPARE(responses, QList<QVariantList>() << (QVariantList() << response));
    }

    void outerButtons_sayNothing()
    {
        SubjectWindow window(nullptr);
        QSignalSpy responses(&window, SIGNAL(subjectResponded(int)));
        for (QPushButton* button :
            {buttonOf(window, "pushButtonChoice1"), buttonOf(window, "pushButtonChoice4")}) {
            button->click();
        }
        QCOMPARE(responses.count(), 0);
        QVERIFY(window.isEnabled());
    }

    void allChoiceButtons_canBeDisabled()
    {
        SubjectWindow window(nullptr);
        window.updateSubjectWindow(-1);
        window.disableAllChoiceButtons();
        QVERIFY(window.isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonChoice1")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonChoice2")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonChoice3")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonChoice4")->isEnabled());
        QVERIFY(buttonOf(window, "pushButtonIAmReady")->isEnabled());
    }

    void giveUpPicture_doesNothing_whileTheWindowIsShown()
    {
        SubjectWindow window(nullptr);
        window.show();
        const WId id = window.internalWinId();
        const QWindow* const handle = window.windowHandle();
        QVERIFY(id != 0);
        window.giveUpPicture();
        QCOMPARE(window.internalWinId(), id);
        QCOMPARE(window.windowHandle(), handle);
        QVERIFY(window.isVisible());
    }

    void giveUpPicture_leavesWhatIsShownAgain_whenTheWindowIsHidden_data()
    {
        addColumns<int, bool>("state", "isEnabled");
        QTest::newRow("a sound plays") << 1 << false;
        QTest::newRow("the answer may be given") << answerState << true;
    }

    void giveUpPicture_leavesWhatIsShownAgain_whenTheWindowIsHidden()
    {
        QFETCH(int, state);
        QFETCH(bool, isEnabled);
        SubjectWindow window(nullptr);
        window.show();
        buttonOf(window, "pushButtonIAmReady")->click();
        window.updateSubjectWindow(state);
        const QRect geometry = window.geometry();
        window.hide();
        QVERIFY(window.internalWinId() != 0);
        window.giveUpPicture();
        QCOMPARE(window.internalWinId(), WId(0));
        QVERIFY(!window.isVisible());

        window.show();
        QVERIFY(window.internalWinId() != 0);
        QVERIFY(window.isVisible());
        QCOMPARE(window.geometry(), geometry);
        QCOMPARE(window.isEnabled(), isEnabled);
        QCOMPARE(buttonOf(window, "pushButtonChoice2")->isEnabled(), isEnabled);
        QVERIFY(buttonOf(window, "pushButtonChoice2")->isVisible());
        QVERIFY(!buttonOf(window, "pushButtonChoice1")->isEnabled());
    }
};

QUORIN_TEST(TestSubjectWindow);
#include "tst_subject_window.moc"
