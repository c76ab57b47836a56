// SPDX-License-Identifier: GPL-3.0-or-later
// The listener's window on a second screen, which may go away and come back.
#include "drivers/RunDriver.h"
#include "session/ListenerScreen.h"
#include "session/RunSettings.h"
#include "session/TextWindow.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"
#include "system/ManagedScreen.h"

#include <QApplication>
#include <QScreen>
#include <QSignalSpy>

#include <memory>
#include <unistd.h>

namespace {

const QRect first(0, 0, 1280, 800);
const QRect second(1280, 0, 1024, 768);
const QList<QVariant> movedToTheFirst {"DUMMY1", "DUMMY0"};

} // namespace

class TestTwoScreens : public WindowTest {
    Q_OBJECT

public:
    explicit TestTwoScreens(ManagedScreen* screen)
        : m_screen(screen)
    {
    }

private:
    ManagedScreen* m_screen;
    const QColor m_coverColour {Qt::darkGray};
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ListenerScreen> m_listenerScreen;
    std::unique_ptr<RunDriver> m_driver;
    std::unique_ptr<QSignalSpy> m_moved;
    QString m_recordedScreen; ///< of the listener's window, right after Go

    SubjectWindow& listener() { return *Probe::subjectWindow(*m_window); }
    QPoint onTheMainWindow() const { return m_window->mapToGlobal(QPoint(30, 30)); }

    void open(const ListenerPlace& place)
    {
        m_window = std::make_unique<MainWindow>();
        m_listenerScreen = std::make_unique<ListenerScreen>(*m_window, place);
        m_moved = std::make_unique<QSignalSpy>(m_listenerScreen.get(), &ListenerScreen::moved);
        m_driver = std::make_unique<RunDriver>(*m_window);
        m_window->show();
        QVERIFY(m_screen->becomesUsable(*m_window));
        m_driver->open();
        m_recordedScreen = runSettings(*m_window).listenerScreen.value_or(QString());
        QVERIFY(m_screen->becomesUsable(listener()));
    }

    void openAgain()
    {
        ModalBoxes boxes;
        boxes.onOpen([this](QWidget* box) { QVERIFY(m_screen->becomesUsable(*box)); });
        boxes.answerNext(QMessageBox::Yes);
        listener().close();
        m_driver->open();
        QVERIFY(m_screen->becomesUsable(listener()));
    }

    void loseSecond()
    {
        QVERIFY(m_screen->disconnectSecond());
        QTRY_COMPARE(QGuiApplication::screens().size(), 1);
    }

    void bringSecondBack()
    {
        QVERIFY(m_screen->connectSecond());
        QTRY_COMPARE(QGuiApplication::screens().size(), 2);
    }

private slots:
    void initTestCase()
    {
        if (m_screen == nullptr) {
            QSKIP("only root may start an X server with two screens");
        }
    }

    void cleanup() override
    {
        m_driver.reset();
        m_moved.reset();
        m_listenerScreen.reset();
        m_window.reset();
        if (QGuiApplication::screens().size() < 2) {
            bringSecondBack();
        }
        WindowTest::cleanup();
    }

    void screens_haveNamesAndNumbers()
    {
        QCOMPARE(screenList(), QString("1 DUMMY0 1280x800, 2 DUMMY1 1024x768"));
        QCOMPARE(screenNameOf("2"), std::optional<QString>("DUMMY1"));
        QCOMPARE(screenNameOf("DUMMY0"), std::optional<QString>("DUMMY0"));
        QVERIFY(!screenNameOf("3"));
    }

    void listenersWindow_isInTheMiddleOfItsScreen()
    {
        open({"DUMMY1", false, false});
        QCOMPARE(listener().size(), QSize(563, 230)); // 55 % and 30 % of that screen
        QVERIFY(second.contains(listener().frameGeometry()));
        QVERIFY(qAbs(listener().geometry().center().x() - second.center().x()) <= 1);
        QVERIFY(m_screen->press("Return"));
        QTRY_COMPARE(Probe::data(*m_window).nTrials, 1);
        QCOMPARE(m_moved->size(), 0);
        QCOMPARE(m_recordedScreen, QString("DUMMY1"));
    }

    void listenersWindow_fillsItsScreen_whenItIsToldTo()
    {
        open({"DUMMY1", true, false});
        QTRY_COMPARE(listener().geometry(), second);
        QVERIFY(ManagedScreen::isInFront(*m_window));
        QCOMPARE(m_recordedScreen, QString("DUMMY1"));
    }

    void cover_isOnTheListenersScreenAlone()
    {
        open({"DUMMY1", false, true});
        QTRY_COMPARE(ManagedScreen::colourAt(second.topLeft()), m_coverColour);
        QTRY_COMPARE(ManagedScreen::colourAt(second.bottomRight()), m_coverColour);
        QVERIFY(ManagedScreen::isInFront(*m_window));
    }

    void listenersWindow_staysReachable_whenItsScreenGoes_data()
    {
        QTest::addColumn<bool>("isFullScreen");
        QTest::addColumn<bool>("isCovered");
        QTest::newRow("plain") << false << false;
        QTest::newRow("full screen") << true << false;
        QTest::newRow("cover") << false << true;
    }

    void listenersWindow_staysReachable_whenItsScreenGoes()
    {
        QFETCH(bool, isFullScreen);
        QFETCH(bool, isCovered);
        open({"DUMMY1", isFullScreen, isCovered});
        loseSecond();
        QTRY_COMPARE(m_moved->size(), 1);
        QCOMPARE(m_moved->constFirst(), movedToTheFirst);
        QTRY_VERIFY(first.contains(listener().frameGeometry()));
        QTRY_COMPARE(listener().size(), isFullScreen ? first.size() : QSize(704, 240));
        QVERIFY(m_screen->becomesUsable(listener()));
        QTRY_COMPARE(ManagedScreen::colourAt(first.topLeft()) == m_coverColour, isCovered);
        QVERIFY(m_screen->press("Return"));
        QTRY_COMPARE(Probe::data(*m_window).nTrials, 1);
    }

    void text_isOnTheListenersScreen_andStaysReachable_whenThatGoes()
    {
        open({"DUMMY1", false, false});
        auto* const text = new TextWindow("Listen.", m_window.get());
        text->show();
        QVERIFY(m_screen->becomesUsable(*text));
        QCOMPARE(text->size(), QSize(819, 614)); // 80 % of that screen
        QVERIFY(second.contains(text->frameGeometry()));
        loseSecond();
        QTRY_COMPARE(text->size(), QSize(1024, 640));
        QTRY_VERIFY(first.contains(text->frameGeometry()));
        QVERIFY(m_screen->becomesUsable(*text));
        const QSignalSpy closed(text, &TextWindow::closed);
        QVERIFY(m_screen->press("Return"));
        QTRY_COMPARE(closed.size(), 1);
    }

    void text_isOnThePrimaryScreen_whenNoneIsNamed()
    {
        open({});
        auto* const text = new TextWindow("Listen.", m_window.get());
        text->show();
        QVERIFY(m_screen->becomesUsable(*text));
        QVERIFY(first.contains(text->frameGeometry()));
    }

    void nextListenersWindow_isOnTheScreenThatCameBack()
    {
        open({"DUMMY1", false, false});
        loseSecond();
        QTRY_COMPARE(m_moved->size(), 1);
        openAgain();
        QCOMPARE(m_moved->size(), 2); // told before each run
        QCOMPARE(m_moved->constLast(), movedToTheFirst);
        QVERIFY(first.contains(listener().frameGeometry()));

        bringSecondBack();
        openAgain();
        QVERIFY(second.contains(listener().frameGeometry()));
        QCOMPARE(m_moved->size(), 2);
    }
};

static int runOnTwoScreens(int argc, char** argv)
{
    ManagedScreen screen;
    const bool isRoot = ::geteuid() == 0;
    if (isRoot && !screen.startTwo()) {
        qCritical("no two screens with a window manager: %s", qUtf8Printable(screen.whatFailed()));
        return EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    TestTwoScreens test(isRoot ? &screen : nullptr);
    return QTest::qExec(&test, argc, argv);
}

static const RegisteredTest twoScreens(__FILE__, &runOnTwoScreens);
#include "tst_two_screens.moc"
