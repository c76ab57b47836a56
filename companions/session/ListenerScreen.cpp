// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the listener's window on a screen of its own, or a cover behind it.
#include "session/ListenerScreen.h"

#include "app/MainWindow.h"
#include "app/WindowParts.h"
#include "session/TextWindow.h"
#include "subject/SubjectWindow.h"

#include <QApplication>
#include <QChildEvent>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace {

QScreen* screenNamed(const QString& name)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (QScreen* screen : screens) {
        if (screen->name() == name) {
            return screen;
        }
    }
    return nullptr;
}

// The same part of this screen as the window's size is of the primary one.
QRect centredOn(const QScreen& screen, const QSize& size)
{
    const QRect area = screen.availableGeometry();
    const QSize usual = availableScreenSize();
    QRect place(0, 0, size.width() * area.width() / usual.width(),
        size.height() * area.height() / usual.height());
    place.moveCenter(area.center());
    return place;
}

} // namespace

std::optional<QString> screenNameOf(const QString& nameOrNumber)
{
    if (screenNamed(nameOrNumber) != nullptr) {
        return nameOrNumber;
    }
    const QList<QScreen*> screens = QGuiApplication::screens();
    const int number = nameOrNumber.toInt(); // 0 if it is none
    if (number < 1 || number > screens.size()) {
        return std::nullopt;
    }
    return screens[number - 1]->name();
}

QString screenList()
{
    QStringList entries;
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QSize size = screen->size();
        const QString entry = QString("%1 %2 %3x%4")
                                  .arg(entries.size() + 1)
                                  .arg(screen->name())
                                  .arg(size.width())
                                  .arg(size.height());
        entries.append(entry.simplified());
    }
    return entries.join(", ");
}

ListenerScreen::ListenerScreen(MainWindow& window, ListenerPlace place)
    : m_window(window)
    , m_place(std::move(place))
    , m_cover(nullptr, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus)
{
    m_cover.setObjectName("cover");
    m_cover.setWindowTitle("Quorin Lab | Cover");
    m_cover.setAttribute(Qt::WA_ShowWithoutActivating);
    m_cover.setAttribute(Qt::WA_QuitOnClose, false);
    m_cover.setPalette(QPalette(Qt::darkGray));
    m_cover.installEventFilter(this);
    m_window.installEventFilter(this);
    for (QTimer* const timer : {&m_lossTimer, &m_textLossTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&m_lossTimer, &QTimer::timeout, this, &ListenerScreen::putInPlace);
    connect(&m_textLossTimer, &QTimer::timeout, this, &ListenerScreen::putTextInPlace);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ListenerScreen::lose);
}

// The window system shows a window only after its show event: it appears in its place.
bool ListenerScreen::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOurs = !event->spontaneous();
    if (watched == &m_window && event->type() == QEvent::ChildPolished) {
        watch(static_cast<QChildEvent*>(event)->child());
    } else if (watched == &m_cover && event->type() == QEvent::MouseButtonPress) {
        bringListenerForward();
    } else if (isOurs && event->type() == QEvent::Show) {
        if (auto* const listener = qobject_cast<SubjectWindow*>(watched)) {
            listenerOpens(*listener);
        } else if (auto* const text = qobject_cast<TextWindow*>(watched)) {
            textOpens(*text);
        }
    } else if (isOurs && watched == m_listener && event->type() == QEvent::Hide) {
        m_cover.hide();
    } else if (watched == m_listener && event->type() == QEvent::WindowActivate
        && m_cover.isVisible()) {
        m_listener->raise(); // a dialog that was open has brought the cover forward
    }
    return QObject::eventFilter(watched, event);
}

void ListenerScreen::watch(QObject* child)
{
    if (qobject_cast<SubjectWindow*>(child) != nullptr
        || qobject_cast<TextWindow*>(child) != nullptr) {
        child->installEventFilter(this);
    }
}

void ListenerScreen::listenerOpens(SubjectWindow& listener)
{
    m_listener = &listener;
    m_size = listener.size();
    m_screen = m_place.screen.isEmpty() ? listener.screen()->name() : m_place.screen;
    putInPlace();
}

void ListenerScreen::putInPlace()
{
    if (m_listener == nullptr || QGuiApplication::primaryScreen() == nullptr) {
        return;
    }
    const QScreen* screen = screenNamed(m_screen);
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
        emit moved(m_screen, screen->name());
    }
    // A window whose screen went away counts to another one, but may be where none shows it.
    if (!screen->geometry().contains(m_listener->geometry().center())) {
        moveTo(*screen);
    }
    if (m_place.isFullScreen) {
        m_listener->setWindowState(m_listener->windowState() | Qt::WindowFullScreen);
    }
    if (m_place.isCovered) {
        showCover(*screen);
    }
}

void ListenerScreen::textOpens(TextWindow& text)
{
    m_text = &text;
    m_textSize = text.size();
    if (screenNamed(m_place.screen) != nullptr) {
        putTextInPlace();
    }
}

void ListenerScreen::putTextInPlace()
{
    const QScreen* const wanted = screenNamed(m_place.screen);
    const QScreen* const screen = wanted != nullptr ? wanted : QGuiApplication::primaryScreen();
    if (m_text != nullptr && screen != nullptr) {
        m_text->setGeometry(centredOn(*screen, m_textSize));
    }
}

void ListenerScreen::moveTo(const QScreen& screen)
{
    m_listener->setWindowState(m_listener->windowState() & ~Qt::WindowFullScreen);
    m_listener->setGeometry(centredOn(screen, m_size));
}

// A window manager keeps a dialog in front of the window that it belongs to.
void ListenerScreen::showCover(const QScreen& screen)
{
    m_cover.setGeometry(screen.geometry());
    m_cover.winId(); // makes the handle
    m_cover.windowHandle()->setTransientParent(m_window.windowHandle());
    m_cover.show();
    m_listener->raise();
}

void ListenerScreen::bringListenerForward()
{
    m_listener->setWindowState(m_listener->windowState() & ~Qt::WindowMinimized);
    m_listener->raise();
    m_listener->activateWindow();
}

// Qt takes the screen away only after this.
void ListenerScreen::lose(const QScreen* screen)
{
    const auto isOnIt = [screen](const QWidget* window) {
        return window != nullptr && window->isVisible() && window->screen() == screen;
    };
    if (isOnIt(m_listener)) {
        m_screen = screen->name();
        m_lossTimer.start();
    }
    if (isOnIt(m_text)) {
        m_textLossTimer.start();
    }
}
