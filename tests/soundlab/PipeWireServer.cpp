// SPDX-License-Identifier: GPL-3.0-or-later
// A private PipeWire with its PulseAudio server and a null sink.
#include "soundlab/PipeWireServer.h"

#include "soundlab/ServerParts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtCore/qtestsupport_core.h>

#include <utility>

using namespace quorin;

namespace {

constexpr int commandTimeoutMs = 5000;

} // namespace

PipeWireServer::PipeWireServer(int quantum, QString rules, int rate)
    : m_quantum(quantum)
    , m_rules(std::move(rules))
    , m_rate(rate)
{
}

PipeWireServer::~PipeWireServer()
{
    while (!m_processes.empty())
        m_processes.pop_back(); // clients before their server
}

bool PipeWireServer::start()
{
    const QString bus = m_folder.filePath("bus");
    const bool isUp = makeFolders()
        && launch("dbus-daemon", {"--session", "--nofork", "--address=unix:path=" + bus}, bus)
        && launch("pipewire", {}, socket()) && launch("wireplumber", {}, QString())
        && launch("pipewire-pulse", {}, runtimeFolder() + "/pulse/native") && makeSink()
        && setQuantum();
    if (isUp)
        qputenv("PULSE_SERVER", address().toLocal8Bit());
    return isUp;
}

QString PipeWireServer::address() const
{
    return "unix:" + runtimeFolder() + "/pulse/native";
}

QString PipeWireServer::socket() const
{
    return runtimeFolder() + "/pipewire-0";
}

QString PipeWireServer::sink()
{
    return sinkName;
}

QString PipeWireServer::monitor()
{
    return QString(sinkName) + ".monitor";
}

QProcessEnvironment PipeWireServer::environment() const
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    const QStringList names = variables.keys();
    for (const QString& name : names) {
        if (name.startsWith("PULSE_") || name.startsWith("PIPEWIRE_") || name.startsWith("XDG_")
            || name == "DISPLAY")
            variables.remove(name);
    }
    variables.insert("HOME", m_folder.path());
    variables.insert("XDG_RUNTIME_DIR", runtimeFolder());
    variables.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + m_folder.filePath("bus"));
    variables.insert("LC_ALL", "C.UTF-8");
    return variables;
}

QString PipeWireServer::runtimeFolder() const
{
    return m_folder.filePath("runtime");
}

bool PipeWireServer::makeFolders()
{
    QDir().mkpath(runtimeFolder());
    QFile::setPermissions(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // The sound cards belong to the user's own session manager; its settings were written in Lua
    // up to version 0.4. That one ends where there is no systemd-logind, unless Bluetooth is off.
    const QString manager = m_folder.filePath(".config/wireplumber/");
    if (!write(manager + "main.lua.d/51-no-cards.lua", "alsa_monitor.enabled = false\n")
        || !write(
            manager + "bluetooth.lua.d/51-no-bluetooth.lua", "bluez_monitor.enabled = false\n")
        || !write(manager + "wireplumber.conf.d/no-cards.conf",
            "wireplumber.profiles = { main = { hardware.audio = disabled } }\n")
        || !write(m_folder.filePath(".config/pipewire/pipewire.conf.d/rate.conf"),
            "context.properties = { default.clock.rate = " + QByteArray::number(m_rate) + " }\n"))
        return false;
    if (m_rules.isEmpty())
        return true;
    QFile rules(m_rules);
    if (!rules.open(QIODevice::ReadOnly)) {
        m_errorText = m_rules + ": " + rules.errorString();
        return false;
    }
    return write(
        m_folder.filePath(".config/pipewire/pipewire-pulse.conf.d/rules.conf"), rules.readAll());
}

bool PipeWireServer::write(const QString& fileName, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(fileName).path());
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size())
        return true;
    m_errorText = fileName + ": " + file.errorString();
    return false;
}

bool PipeWireServer::launch(
    const QString& program, const QStringList& arguments, const QString& socket)
{
    m_processes.push_back(std::make_unique<ChildProcess>());
    ChildProcess& process = *m_processes.back();
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    const auto isDecided = [&] {
        return process.state() == QProcess::NotRunning || socket.isEmpty()
            || QFileInfo::exists(socket);
    };
    const bool isUp = process.waitForStarted() && QTest::qWaitFor(isDecided, serverStartTimeoutMs)
        && process.state() == QProcess::Running;
    if (!isUp) {
        process.end();
        m_errorText = process.whatFailed();
    }
    return isUp;
}

bool PipeWireServer::run(const QString& program, const QStringList& arguments)
{
    ChildProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    if (process.waitForFinished(commandTimeoutMs) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0) {
        m_answer = process.readAllStandardOutput();
        return true;
    }
    process.end();
    m_errorText = process.whatFailed();
    return false;
}

bool PipeWireServer::makeSink()
{
    const QStringList server = {"--server", address()};
    const QString rateOfSink = QString("rate=%1").arg(m_rate);
    if (!run("pactl",
            server
                + QStringList {"load-module", "module-null-sink", QString("sink_name=") + sinkName,
                    rateOfSink, "channels=1", "format=float32le"}))
        return false;
    const auto isDefault = [&] {
        return run("pactl", server + QStringList {"set-default-sink", sinkName})
            && run("pactl", server + QStringList {"info"})
            && m_answer.contains(QByteArray("Default Sink: ") + sinkName + "\n");
    };
    return QTest::qWaitFor(isDefault, serverStartTimeoutMs);
}

bool PipeWireServer::setQuantum()
{
    return m_quantum == 0
        || run("pw-metadata",
            {"-n", "settings", "0", "clock.force-quantum", QString::number(m_quantum)});
}
