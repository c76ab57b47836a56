// SPDX-License-Identifier: GPL-3.0-or-later
// The listener's window on a screen with a window manager, behind the main window and in front of
// it again: real clicks, real keys, and a window of another program.
#include "drivers/RunDriver.h"
#include "support/EventCounter.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"
#include "system/ManagedScreen.h"

#include <functional>

namespace {

// A place of the main window that the listener's window does not cover.
QPoint besidesTheListener(const MainWindow& window)
{
    constexpr QPoint margin(30, 30);
    return window.mapToGlobal(margin);
}

} // namespace

class TestBuriedWindow : public WindowTest {
    Q_OBJECT

public:
    explicit TestBuriedWindow(ManagedScreen& screen)
        : m_screen(screen)
    {
    }

private:
    ManagedScreen& m_screen;
    MainWindow* m_window = nullptr;
    RunDriver* m_driver = nullptr;

    SubjectWindow& subject() { return *Probe::subjectWindow(*m_window); }
    int nTrials() { return Probe::data(*m_window).nTrials; }
    int nAnswers() { return Probe::data(*m_window).records.size(); }

    bool clickMainWindow() { return m_screen.clickOurs(besidesTheListener(*m_window)); }
    bool becomesUsable(QWidget& window) { return m_screen.becomesUsable(window); }

    void openRun()
    {
        m_driver->open();
        QVERIFY(becomesUsable(subject()));
    }

    // Runs a function while a box is open; the listener's window is asked to close by Alt+F4.
    void closeByKeys(ModalBoxes& boxes, const std::function<void(QWidget&)>& function)
    {
        boxes.onOpen([&](QWidget* box) {
            QVERIFY(becomesUsable(*box));
            function(*box);
        });
        QVERIFY(m_screen.press("alt+F4"));
        QTRY_COMPARE(boxes.messages().size(), 1);
    }

private slots:
    void init() override
    {
        WindowTest::init();
        m_window = new MainWindow;
        m_driver = new RunDriver(*m_window);
        m_window->show();
        QVERIFY(becomesUsable(*m_window));
    }

    void cleanup() override
    {
        delete m_driver;
        delete m_window;
        WindowTest::cleanup();
    }

    void listenersWindow_isBackWithItsKeys_afterAClickOnTheMainWindow()
    {
        openRun();
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        QVERIFY(m_screen.press("Return"));
        QTRY_COMPARE(nTrials(), 1);

        m_driver->playTrial();
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        QVERIFY(m_screen.press("2"));
        QTRY_COMPARE(nAnswers(), 1);

        m_driver->startSound(); // the listener's window is disabled
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        m_driver->endSound();
        for (int sound = 2; sound <= 4; ++sound) {
            m_driver->startSound();
            m_driver->endSound();
        }
        QVERIFY(m_screen.press("3"));
        QTRY_COMPARE(nAnswers(), 2);
        QCOMPARE(Probe::data(*m_window).records[0].responsePosition, 2);
        QCOMPARE(Probe::data(*m_window).records[1].responsePosition, 3);
    }

    void listenersWindow_isBack_afterThePressThatActivatesNothing()
    {
        openRun();
        // As with window managers that raise a window without giving it the keyboard.
        m_window->raise();
        QTRY_VERIFY(!ManagedScreen::isInFront(subject()));
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
        QVERIFY(becomesUsable(subject()));
    }

    void listenersWindow_isBack_afterTheKeysThatSwitchWindows()
    {
        openRun();
        const EventCounter ofMain(m_window);
        QVERIFY(m_screen.press("alt+Tab"));
        QTRY_COMPARE(ofMain.count(QEvent::WindowActivate), 1);
        QVERIFY(becomesUsable(subject()));
    }

    void listenersWindow_isBack_whenItWasMinimised()
    {
        openRun();
        const EventCounter ofSubject(&subject());
        QVERIFY(m_screen.minimise(subject()));
        // The window manager then gives the keyboard to the main window.
        QTRY_VERIFY(ofSubject.count(QEvent::WindowStateChange) >= 2);
        QVERIFY(becomesUsable(subject()));
        QVERIFY(!subject().isMinimized());
    }

    void activation_endsWithTheListenersWindow()
    {
        openRun();
        m_screen.settle();
        const EventCounter ofMain(m_window);
        const EventCounter ofSubject(&subject());
        QVERIFY(clickMainWindow());
        QTRY_COMPARE(ofSubject.count(QEvent::WindowActivate), 1);
        QVERIFY(becomesUsable(subject()));
        m_screen.settle();
        QCOMPARE(ofMain.count(QEvent::WindowActivate), 1);
        QCOMPARE(ofSubject.count(QEvent::WindowActivate), 1);
        QVERIFY(ofSubject.wasRaised());
    }

    void currentWindowAlone_isBack_afterTwentyRuns()
    {
        constexpr int nEarlier = 20;
        ModalBoxes boxes;
        QVector<SubjectWindow*> earlier;
        for (int run = 0; run < nEarlier; ++run) {
            m_driver->open();
            earlier.append(&subject());
            QVERIFY(subject().close());
        }
        openRun();
        m_screen.settle();
        QVector<EventCounter*> counters;
        for (SubjectWindow* const window : earlier) {
            counters.append(new EventCounter(window));
        }
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        QVERIFY(m_screen.press("Return"));
        QTRY_COMPARE(nTrials(), 1);
        for (int run = 0; run < nEarlier; ++run) {
            QVERIFY(earlier[run] != &subject());
            QVERIFY(!earlier[run]->isVisible());
            QCOMPARE(counters[run]->all(), 0);
        }
    }

    void mainWindow_staysInFront_afterTheRun()
    {
        openRun();
        ModalBoxes boxes;
        QVERIFY(subject().close());
        QVERIFY(becomesUsable(*m_window));
        m_window->disableAllComponents();
        const EventCounter ofSubject(&subject());
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(*m_window));
        QVERIFY(!subject().isVisible());
        QCOMPARE(ofSubject.all(), 0);
    }

    void mainWindow_staysInFront_whenItIsEnabled()
    {
        openRun();
        m_window->setEnabled(true);
        const EventCounter ofSubject(&subject());
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(*m_window));
        QVERIFY(!ofSubject.wasRaised());
    }

    void confirmation_staysInFront()
    {
        openRun();
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::No);
        closeByKeys(boxes, [&](QWidget& box) {
            QVERIFY(clickMainWindow());
            QVERIFY(becomesUsable(box));
            // Other window systems may tell the main window of its activation all the same.
            const EventCounter ofSubject(&subject());
            QEvent activation(QEvent::WindowActivate);
            QCoreApplication::sendEvent(m_window, &activation);
            m_screen.settle();
            QVERIFY(becomesUsable(box));
            QVERIFY(!ofSubject.wasRaised());
        });
        QVERIFY(becomesUsable(subject()));
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
    }

    void confirmation_takesKeys_afterAClickOnTheMainWindow()
    {
        openRun();
        ModalBoxes boxes;
        closeByKeys(boxes, [&](QWidget& box) {
            QVERIFY(clickMainWindow());
            QVERIFY(becomesUsable(box));
            QVERIFY(m_screen.press("Return"));
            QTRY_VERIFY(!box.isVisible());
        });
        QVERIFY(becomesUsable(*m_window));
        QVERIFY(m_window->isEnabled());
        QVERIFY(!subject().isVisible());
    }

    void saveDialog_staysInFront_andTakesKeys()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("run.txt");
        checkBoxOf(*m_window, "checkBoxSaveData")->setChecked(true);
        openRun();
        m_driver->beReady();
        m_driver->playTrial();
        Probe::data(*m_window).reversalCount = Probe::data(*m_window).nReversals;
        ModalBoxes boxes;
        boxes.onOpen([&](QWidget* dialog) {
            QVERIFY(becomesUsable(*dialog));
            QVERIFY(clickMainWindow());
            QVERIFY(becomesUsable(*dialog));
            QVERIFY(m_screen.press("ctrl+a"));
            QVERIFY(m_screen.type(path));
            QVERIFY(m_screen.press("Return"));
            QTRY_VERIFY(!dialog->isVisible());
        });
        QVERIFY(m_screen.press("2"));
        QTRY_VERIFY(QFile::exists(path));
        QCOMPARE(boxes.fileChoices().size(), 1);

        QVERIFY(becomesUsable(subject()));
        QVERIFY(buttonOf(subject(), "pushButtonDone")->isVisible());
        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        boxes.onOpen([](QWidget*) {});
        QVERIFY(m_screen.press("Return"));
        QTRY_VERIFY(!subject().isVisible());
        QVERIFY(m_window->isEnabled());
    }

    void anotherProgramsWindow_staysInFront_untilTheMainWindowIsClicked()
    {
        openRun();
        const quintptr ours = m_screen.keyboardWindow();
        // It covers all of the listener's window, and reaches out of the main window to the right.
        const QRect place(subject().frameGeometry().topLeft() - QPoint(10, 10),
            QSize(m_window->frameGeometry().width(), 400));
        const QPoint outside(m_window->frameGeometry().right() + 20, place.center().y());
        QVERIFY(place.contains(subject().frameGeometry()) && place.contains(outside));
        ChildProcess other;
        other.start(OTHER_WINDOW,
            {QString::number(place.x()), QString::number(place.y()), QString::number(place.width()),
                QString::number(place.height())});
        QTRY_VERIFY(m_screen.keyboardWindow() != ours && m_screen.keyboardWindow() != 0);
        const quintptr others = m_screen.keyboardWindow();
        const QPoint middle = subject().mapToGlobal(subject().rect().center());
        QTRY_COMPARE(ManagedScreen::colourAt(middle), QColor(Qt::red));
        m_screen.settle();
        QCOMPARE(m_screen.keyboardWindow(), others);

        QVERIFY(clickMainWindow());
        QVERIFY(becomesUsable(subject()));
        QVERIFY(m_screen.press("Return"));
        QTRY_COMPARE(nTrials(), 1);

        QVERIFY(m_screen.click(outside));
        QTRY_COMPARE(m_screen.keyboardWindow(), others);
        m_screen.settle();
        QCOMPARE(m_screen.keyboardWindow(), others);
        QCOMPARE(ManagedScreen::colourAt(middle), QColor(Qt::red));
    }
};

QUORIN_MANAGED_SCREEN_TEST(TestBuriedWindow);
#include "tst_buried_window.moc"
