// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <optional>

class MainWindow;
class QScreen;
class SubjectWindow;
class TextWindow;

/// Where the listener's window stands, and on what.
struct ListenerPlace {
    QString screen; ///< the screen's name; empty: where the window puts itself
    bool isFullScreen = false;
    bool isCovered = false; ///< whether a plain window hides what else the screen shows
};

/// The name of a screen that is told by its name, or by its number in screenList().
/// @return none if there is no such screen
std::optional<QString> screenNameOf(const QString& nameOrNumber);

/// The screens for a message: number, from 1 on, name and size in pixels of each.
QString screenList();

/// Gives each listener's window of a main window its place when it is opened, by watching both.
/// The cover comes with the listener's window and goes with it. A text for the listener comes to
/// the screen that the place names, too. Must be made before a run is begun, and be deleted before
/// the main window.
class ListenerScreen : public QObject {
    Q_OBJECT

public:
    ListenerScreen(MainWindow& window, ListenerPlace place);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The screen of the listener's window is not there, or no more: the window is on another one.
    void moved(const QString& missing, const QString& instead);

private:
    void watch(QObject* child);
    void listenerOpens(SubjectWindow& listener);
    void putInPlace();
    void textOpens(TextWindow& text);
    void putTextInPlace();
    void moveTo(const QScreen& screen);
    void showCover(const QScreen& screen);
    void bringListenerForward();
    void lose(const QScreen* screen);

    MainWindow& m_window;
    ListenerPlace m_place;
    QPointer<SubjectWindow> m_listener; ///< the one opened last
    QSize m_size; ///< that it opened with
    QString m_screen; ///< the name of the one that it belongs on
    QPointer<TextWindow> m_text; ///< the one opened last
    QSize m_textSize; ///< that it opened with
    QTimer m_lossTimer; ///< until Qt has done with a screen that went away
    QTimer m_textLossTimer; ///< the same for a text
    QWidget m_cover;
};
