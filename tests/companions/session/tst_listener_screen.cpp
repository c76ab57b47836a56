// SPDX-License-Identifier: GPL-3.0-or-later
// The listener's window on a cover or over the whole screen, with a window manager and one screen.
#include "drivers/RunDriver.h"
#include "session/ListenerScreen.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"
#include "system/ManagedScreen.h"

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>

#include <memory>

class TestListenerScreen : public WindowTest {
    Q_OBJECT

public:
    explicit TestListenerScreen(ManagedScreen& screen)
        : m_screen(screen)
    {
    }

private:
    ManagedScreen& m_screen;
    const QColor m_coverColour {Qt::darkGray};
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ListenerScreen> m_listenerScreen;
    std::unique_ptr<RunDriver> m_driver;

    SubjectWindow& listener() { return *Probe::subjectWindow(*m_window); }
    QPoint onTheMainWindow() const { return m_window->mapToGlobal(QPoint(30, 30)); }
    bool isMainWindowShown() const
    {
        return ManagedScreen::colourAt(onTheMainWindow()) != m_coverColour;
    }

    void makeWindow(bool isFullScreen, bool isCovered)
    {
        m_window = std::make_unique<MainWindow>();
        const ListenerPlace place {{}, isFullScreen, isCovered};
        m_listenerScreen = std::make_unique<ListenerScreen>(*m_window, place);
        m_driver = std::make_unique<RunDriver>(*m_window);
        m_window->show();
        QVERIFY(m_screen.becomesUsable(*m_window));
    }

    void closeListener(QMessageBox::StandardButton answer)
    {
        ModalBoxes boxes;
        boxes.onOpen([this](QWidget* box) { QVERIFY(m_screen.becomesUsable(*box)); });
        boxes.answerNext(answer);
        listener().close();
    }

private slots:
    void cleanup() override
    {
        m_driver.reset();
        m_listenerScreen.reset();
        m_window.reset();
        WindowTest::cleanup();
    }

    void screens_haveNamesAndNumbers()
    {
        QCOMPARE(screenList(), QString("1 screen 1366x768"));
        QCOMPARE(screenNameOf("screen"), std::optional<QString>("screen"));
        QCOMPARE(screenNameOf("1"), std::optional<QString>("screen"));
        for (const char* other : {"0", "2", "-1", "1.0", "Screen", ""}) {
            QVERIFY2(!screenNameOf(other), other);
        }
    }

    void windows_areAsWithout_whenNothingIsAskedFor()
    {
        makeWindow(false, false);
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        QVERIFY(isMainWindowShown());
        QCOMPARE(listener().size(), QSize(751, 230));
    }

    void listenersWindow_isInFrontWithItsKeys_onTheCover()
    {
        makeWindow(false, true);
        QVERIFY(isMainWindowShown());
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        for (const QPoint place : {QPoint(0, 0), QPoint(1365, 767), onTheMainWindow()}) {
            QTRY_COMPARE(ManagedScreen::colourAt(place), m_coverColour);
        }
        QVERIFY(m_screen.press("Return"));
        QTRY_COMPARE(Probe::data(*m_window).nTrials, 1);
    }

    void cover_goesWithTheListenersWindow_andComesWithTheNext()
    {
        makeWindow(false, true);
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        closeListener(QMessageBox::Yes);
        QVERIFY(m_screen.becomesUsable(*m_window));
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        QTRY_VERIFY(!isMainWindowShown());
    }

    void cover_stays_whenTheListenersWindowIsNotClosed()
    {
        makeWindow(false, true);
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        closeListener(QMessageBox::No);
        QVERIFY(m_screen.becomesUsable(listener()));
        QVERIFY(!isMainWindowShown());
    }

    void clickOnTheCover_givesTheListenersWindowTheKeyboard()
    {
        makeWindow(false, true);
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        const quintptr ours = m_screen.keyboardWindow();
        ChildProcess other;
        other.start(OTHER_WINDOW, {"300", "200", "800", "400"});
        QTRY_VERIFY(m_screen.keyboardWindow() != ours && m_screen.keyboardWindow() != 0);
        QVERIFY(m_screen.clickOurs(QPoint(20, 20)));
        QVERIFY(m_screen.becomesUsable(listener()));
    }

    void saveDialog_isInFrontOfTheCover()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("run.txt");
        makeWindow(false, true);
        checkBoxOf(*m_window, "checkBoxSaveData")->setChecked(true);
        m_driver->open();
        QVERIFY(m_screen.becomesUsable(listener()));
        m_driver->beReady();
        m_driver->playTrial();
        Probe::data(*m_window).reversalCount = Probe::data(*m_window).nReversals;
        ModalBoxes boxes;
        boxes.onOpen([&](QWidget* dialog) {
            QVERIFY(m_screen.becomesUsable(*dialog));
            QVERIFY(!isMainWindowShown());
        });
        boxes.chooseFile(path);
        QVERIFY(m_screen.press("2"));
        QTRY_VERIFY(QFile::exists(path));
        QVERIFY(m_screen.becomesUsable(listener()));
        QVERIFY(!isMainWindowShown());
    }

    void listenersWindow_fillsTheScreen_whenItIsToldTo()
    {
        makeWindow(true, false);
        m_driver->open();
        QTRY_COMPARE(listener().geometry(), QRect(0, 0, 1366, 768));
        QVERIFY(m_screen.becomesUsable(listener()));
        QVERIFY(m_screen.clickOurs(QPoint(3, 3)));
        QVERIFY(m_screen.becomesUsable(listener()));
        closeListener(QMessageBox::Yes);
        QVERIFY(m_screen.becomesUsable(*m_window));
    }
};

QUORIN_MANAGED_SCREEN_TEST(TestListenerScreen);
#include "tst_listener_screen.moc"
