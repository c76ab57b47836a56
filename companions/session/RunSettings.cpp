// SPDX-License-Identifier: GPL-3.0-or-later
// The surroundings of a run: machine, screens, sound server.
#include "session/RunSettings.h"

#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"

#include <QAudioDeviceInfo>
#include <QCoreApplication>
#include <QDateTime>
#include <QGuiApplication>
#include <QLocale>
#include <QProcess>
#include <QScreen>

namespace {

QJsonObject describedScreen(const QScreen& screen)
{
    const QRect geometry = screen.geometry();
    return {{"name", screen.name()}, {"x", geometry.x()}, {"y", geometry.y()},
        {"width", geometry.width()}, {"height", geometry.height()},
        {"pixel_ratio", screen.devicePixelRatio()}, {"refresh_hz", screen.refreshRate()},
        {"is_primary", &screen == QGuiApplication::primaryScreen()}};
}

QJsonArray describedScreens()
{
    QJsonArray screens;
    const QList<QScreen*> all = QGuiApplication::screens();
    for (const QScreen* screen : all) {
        screens.append(describedScreen(*screen));
    }
    return screens;
}

// Where the window system has not shown the window yet, it counts to the screen that it came from.
QString screenOf(const QWidget& window)
{
    const QScreen* const screen = QGuiApplication::screenAt(window.geometry().center());
    return screen == nullptr ? window.screen()->name() : screen->name();
}

// The server must not hold up the start of a run for long.
QString toldBy(const QStringList& arguments)
{
    constexpr int patienceMs = 1000;
    QProcess pactl;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C");
    pactl.setProcessEnvironment(environment);
    pactl.start("pactl", arguments, QIODevice::ReadOnly);
    if (!pactl.waitForFinished(patienceMs)) {
        pactl.kill();
        pactl.waitForFinished(patienceMs);
        return {};
    }
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

QJsonObject describedAudio()
{
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
    return {{"device", device.deviceName()}, {"backend", device.realm()},
        {"server", soundServer(toldBy({"info"}), toldBy({"list", "short", "sinks"}))}};
}

// The offset is left out of ISO 8601 unless it is given.
QString timeWithOffset()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

} // namespace

QJsonObject soundServer(const QString& information, const QString& sinks)
{
    const QVector<QPair<QString, QString>> keys
        = {{"Server Name: ", "name"}, {"Server Version: ", "version"},
            {"Default Sample Specification: ", "format"}, {"Default Sink: ", "sink"}};
    constexpr int formatColumn = 3; // after number, name and driver
    QJsonObject server;
    const QStringList lines = information.split('\n');
    for (const QString& line : lines) {
        for (const auto& key : keys) {
            if (line.startsWith(key.first)) {
                server.insert(key.second, line.mid(key.first.size()).trimmed());
            }
        }
    }
    const QStringList sinkLines = sinks.split('\n');
    for (const QString& line : sinkLines) {
        const QStringList cells = line.split('\t');
        if (cells.size() > formatColumn && cells[1] == server["sink"].toString()) {
            server.insert("sink_format", cells[formatColumn]);
        }
    }
    return server;
}

RunBegun runSettings(const MainWindow& window)
{
    const Data& data = window.sessionRecord();
    RunBegun run;
    run.program
        = QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion();
    run.commit = QUORIN_COMMIT;
    run.qtVersion = qVersion();
    run.time = timeWithOffset();
    run.locale = QLocale().name();
    run.screens = describedScreens();
    const QList<SubjectWindow*> listeners = window.findChildren<SubjectWindow*>();
    if (!listeners.isEmpty()) {
        run.listenerScreen = screenOf(*listeners.constLast());
    }
    run.audio = describedAudio();
    run.sessionType = data.sesTypes.value(data.sesType);
    run.soundType = data.soundTypes.value(data.soundType);
    run.mainParameter = data.mainParameters.value(data.mainParameter);
    return run;
}
