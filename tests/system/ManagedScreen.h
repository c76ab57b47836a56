// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/ChildProcess.h"

#include <QColor>
#include <QPoint>
#include <QString>
#include <QStringList>

class QWidget;

/// A virtual screen of its own with a window manager, and the mouse and keyboard of its user. Needs
/// Xvfb, openbox and xdotool.
class ManagedScreen {
public:
    /// Starts screen and window manager and sends the windows of this process there. Call it before
    /// the application is made.
    /// @return false when a program is missing or did not start; whatFailed tells which
    bool start();
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
    bool failed(ChildProcess& process);
    bool use(const QStringList& arguments, QString* output = nullptr);

    ChildProcess m_screen;
    ChildProcess m_windowManager;
    QString m_whatFailed;
};
