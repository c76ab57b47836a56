// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/ChildProcess.h"
#include "support/TestProgram.h"

#include <QColor>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class QWidget;

/// A virtual screen of its own with a window manager, and the mouse and keyboard of its user. Needs
/// Xvfb, openbox and xdotool.
class ManagedScreen {
public:
    /// Starts screen and window manager and sends the windows of this process there. Call it before
    /// the application is made.
    /// @param size WIDTHxHEIGHT, pixels
    /// @return false when a program is missing or did not start; whatFailed tells which
    bool start(const QString& size = "1366x768");
    /// The same with a second screen to the right of it, which the calls below take away and bring
    /// back: DUMMY0 of 1280 x 800 pixels and DUMMY1 of 1024 x 768. Needs Xorg with its driver that
    /// has no screen, and xrandr, beside openbox and xdotool. Only root may start it.
    bool startTwo();
    bool disconnectSecond();
    bool connectSecond();
    /// For a message when start() or a call below did not work.
    QString whatFailed() const { return m_whatFailed; }

    // Whatever the user does. False when it could not be done.
    /// Moves the mouse and presses its left button once.
    bool click(const QPoint& place);
    /// The same on a window of this process; returns when the window manager has met the click and
    /// Qt knows of it, even if a box keeps it from the window.
    bool clickOurs(const QPoint& place);
    /// Presses and releases a key or a combination of keys, as in "Return" or "alt+F4".
    bool press(const QString& keys);
    /// Types letters, digits and the like one after the other.
    bool type(const QString& text);
    /// Minimises a window.
    bool minimise(const QWidget& window);

    /// Which window has the keyboard, as the window manager says; 0 for none.
    quintptr keyboardWindow();
    /// Whether the screen shows a window whole: nothing is in front of it.
    static bool isInFront(QWidget& window);
    /// The colour that the screen shows at a place.
    static QColor colourAt(const QPoint& place);
    /// Waits until a window is in front and has the keyboard. False when that does not come.
    bool becomesUsable(QWidget& window);
    /// Handles the events that are on their way.
    void settle();

private:
    bool hasKeyboard(const QWidget& window);
    bool startServer(const QString& program, const QStringList& arguments);
    bool failed(ChildProcess& process);
    bool use(const QStringList& arguments, QString* output = nullptr);
    bool xrandr(const QStringList& arguments);
    bool run(const QString& name, const QStringList& arguments, QString* output);

    QTemporaryDir m_folder;
    ChildProcess m_screen;
    ChildProcess m_windowManager;
    QString m_whatFailed;
};

/// Runs a test class whose constructor takes the screen.
template <typename Test> int runOnAManagedScreen(int argc, char** argv)
{
    ManagedScreen screen;
    if (!screen.start()) {
        qCritical("no screen with a window manager: %s", qUtf8Printable(screen.whatFailed()));
        return EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    Test test(screen);
    return QTest::qExec(&test, argc, argv);
}

/// Ends the source of such a test.
#define QUORIN_MANAGED_SCREEN_TEST(Test)                                                           \
    static const RegisteredTest registered##Test(__FILE__, &runOnAManagedScreen<Test>)
