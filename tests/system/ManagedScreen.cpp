// SPDX-License-Identifier: GPL-3.0-or-later
// Starts Xvfb and openbox, waits until both are ready, and passes on what xdotool does and sees.
#include "system/ManagedScreen.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QWidget>

namespace {

constexpr int patienceMs = 20000;

QStringList coordinates(const QPoint& place)
{
    return {QString::number(place.x()), QString::number(place.y())};
}

QImage comparable(const QPixmap& picture)
{
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage shown(const QRect& place)
{
    QScreen* const screen = QGuiApplication::primaryScreen();
    return comparable(screen->grabWindow(0, place.x(), place.y(), place.width(), place.height()));
}

} // namespace

bool ManagedScreen::start()
{
    m_screen.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp"});
    if (!m_screen.waitForReadyRead(patienceMs)) {
        return !failed(m_screen);
    }
    const QByteArray number = m_screen.readAllStandardOutput().trimmed();
    qputenv("DISPLAY", ':' + number);
    qputenv("QT_QPA_PLATFORM", "xcb");

    // What it is told to start, it starts when it manages the screen.
    m_windowManager.start("openbox", {"--sm-disable", "--startup", "echo ready"});
    return m_windowManager.waitForReadyRead(patienceMs) || !failed(m_windowManager);
}

bool ManagedScreen::click(const QPoint& place)
{
    return use(QStringList("mousemove") + coordinates(place) + QStringList({"click", "1"}));
}

bool ManagedScreen::clickOurs(const QPoint& place)
{
    const auto holds = [](Qt::MouseButtons buttons) {
        return QTest::qWaitFor(
            [=] { return QGuiApplication::mouseButtons() == buttons; }, patienceMs);
    };
    const bool isDone
        = use(QStringList("mousemove") + coordinates(place) + QStringList({"mousedown", "1"}))
        && holds(Qt::LeftButton) && use({"mouseup", "1"}) && holds(Qt::NoButton);
    settle();
    return isDone;
}

bool ManagedScreen::press(const QString& keys)
{
    return use({"key", keys});
}

bool ManagedScreen::type(const QString& text)
{
    return use({"type", text});
}

bool ManagedScreen::minimise(const QWidget& window)
{
    return use({"windowminimize", QString::number(window.winId())});
}

quintptr ManagedScreen::keyboardWindow()
{
    QString output;
    return use({"getactivewindow"}, &output) ? output.trimmed().toULongLong() : 0;
}

bool ManagedScreen::isInFront(QWidget& window)
{
    const QRect place(window.mapToGlobal(QPoint(0, 0)), window.size());
    const QImage seen = shown(place);
    const QImage drawn = comparable(window.grab());
    int nUnlike = 0;
    for (int y = 0; y < place.height(); ++y) {
        for (int x = 0; x < place.width(); ++x) {
            nUnlike += seen.pixel(x, y) == drawn.pixel(x, y) ? 0 : 1;
        }
    }
    // The shade of a default button and a blinking cursor come to less.
    constexpr int share = 50;
    return nUnlike < place.width() * place.height() / share;
}

QColor ManagedScreen::colourAt(const QPoint& place)
{
    return shown(QRect(place, QSize(1, 1))).pixelColor(0, 0);
}

bool ManagedScreen::becomesUsable(QWidget& window)
{
    return QTest::qWaitFor([&] { return hasKeyboard(window) && isInFront(window); }, patienceMs);
}

// What has reached the window manager before it is asked is here when it has answered.
void ManagedScreen::settle()
{
    for (int i = 0; i < 2; ++i) {
        keyboardWindow();
        QCoreApplication::processEvents();
    }
}

bool ManagedScreen::hasKeyboard(const QWidget& window)
{
    return QApplication::activeWindow() == &window && keyboardWindow() == window.winId();
}

bool ManagedScreen::failed(ChildProcess& process)
{
    process.end();
    m_whatFailed = process.whatFailed();
    return true;
}

bool ManagedScreen::use(const QStringList& arguments, QString* output)
{
    ChildProcess xdotool;
    xdotool.start("xdotool", arguments);
    const bool isDone = xdotool.waitForFinished(patienceMs)
        && xdotool.exitStatus() == QProcess::NormalExit && xdotool.exitCode() == 0;
    if (!isDone) {
        return !failed(xdotool);
    }
    if (output != nullptr) {
        *output = QString::fromLatin1(xdotool.readAllStandardOutput());
    }
    return true;
}
