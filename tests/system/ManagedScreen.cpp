// SPDX-License-Identifier: GPL-3.0-or-later
// Starts an X server and openbox, waits until both are ready, and passes on what xdotool does and
// sees.
#include "system/ManagedScreen.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QWidget>

namespace {

constexpr int patienceMs = 20000;

constexpr auto firstScreen = "DUMMY0";
constexpr auto secondScreen = "DUMMY1";
constexpr auto dummySettings = R"(
Section "ServerFlags"
    Option "AutoAddDevices" "false"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 64000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
EndSection
)";

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

bool ManagedScreen::start(const QString& size)
{
    return startServer(
        "Xvfb", {"-displayfd", "1", "-screen", "0", size + "x24", "-nolisten", "tcp"});
}

bool ManagedScreen::startTwo()
{
    const QString settings = m_folder.filePath("xorg.conf");
    QFile file(settings);
    if (!file.open(QIODevice::WriteOnly) || file.write(dummySettings) < 0) {
        m_whatFailed = file.errorString();
        return false;
    }
    file.close();
    return startServer("Xorg",
               {"-displayfd", "1", "-config", settings, "-logfile", m_folder.filePath("xorg.log"),
                   "-nolisten", "tcp", "-noreset"})
        && xrandr({"--output", firstScreen, "--mode", "1280x800"})
        && xrandr({"--addmode", secondScreen, "1024x768"}) && connectSecond();
}

bool ManagedScreen::connectSecond()
{
    // The server looks at its outputs, and sees that one has come, when it is asked for them.
    return xrandr({"--output", secondScreen, "--mode", "1024x768", "--right-of", firstScreen})
        && xrandr({"--query"});
}

bool ManagedScreen::disconnectSecond()
{
    return xrandr({"--output", secondScreen, "--off"}) && xrandr({"--query"});
}

bool ManagedScreen::startServer(const QString& program, const QStringList& arguments)
{
    m_screen.start(program, arguments);
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
    return run("xdotool", arguments, output);
}

bool ManagedScreen::xrandr(const QStringList& arguments)
{
    return run("xrandr", arguments, nullptr);
}

bool ManagedScreen::run(const QString& name, const QStringList& arguments, QString* output)
{
    ChildProcess program;
    program.start(name, arguments);
    const bool isDone = program.waitForFinished(patienceMs)
        && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    if (!isDone) {
        return !failed(program);
    }
    if (output != nullptr) {
        *output = QString::fromLatin1(program.readAllStandardOutput());
    }
    return true;
}
