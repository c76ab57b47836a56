// SPDX-License-Identifier: GPL-3.0-or-later
// A private PulseAudio server with a null sink.
#include "soundlab/SoundServer.h"

#include "soundlab/ServerParts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtCore/qtestsupport_core.h>

#include <algorithm>
#include <utility>

using namespace quorin;

namespace {

constexpr int queryTimeoutMs = 5000;

} // namespace

SoundServer::Settings SoundServer::copyingSettings()
{
    Settings settings;
    settings.sharesMemory = false;
    return settings;
}

SoundServer::SoundServer()
    : SoundServer(Settings())
{
}

SoundServer::SoundServer(Settings settings)
    : m_settings(std::move(settings))
{
}

SoundServer::~SoundServer()
{
    stop();
}

bool SoundServer::start()
{
    const QString runtime = m_folder.filePath("runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    m_process.setProcessEnvironment(environment());
    m_process.start("pulseaudio", arguments());
    const auto isDecided
        = [this] { return m_process.state() == QProcess::NotRunning || !description().isEmpty(); };
    const bool isUp
        = m_process.waitForStarted() && QTest::qWaitFor(isDecided, serverStartTimeoutMs);
    // The server goes on without a module that it could not load.
    if (!isUp || !description().contains(QByteArray("Default Sink: ") + sinkName + "\n")) {
        stop();
        m_errorText = m_process.whatFailed();
        return false;
    }
    qputenv("PULSE_SERVER", address().toLocal8Bit());
    return true;
}

void SoundServer::stop()
{
    m_process.end();
}

void SoundServer::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

void SoundServer::standStill(int ms)
{
    stopProcess(m_process.processId(), ms);
}

void SoundServer::setDefaultSink(const QString& name)
{
    answerTo({"set-default-sink", name});
}

bool SoundServer::isSuspended(const QString& sink) const
{
    const QList<QByteArray> sinks = answerTo({"list", "short", "sinks"}).split('\n');
    return std::any_of(sinks.cbegin(), sinks.cend(), [&](const QByteArray& line) {
        return line.contains('\t' + sink.toLatin1() + '\t') && line.endsWith("SUSPENDED");
    });
}

void SoundServer::removeSink()
{
    answerTo({"unload-module", "module-null-sink"});
}

void SoundServer::addSink()
{
    answerTo(QStringList("load-module") + sinkModule().split(' '));
}

bool SoundServer::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

QString SoundServer::address() const
{
    return "unix:" + m_folder.filePath("pulse.sock");
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): each server has its own
QString SoundServer::monitor() const
{
    return QString(sinkName) + ".monitor";
}

QProcessEnvironment SoundServer::environment() const
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    const QStringList names = variables.keys();
    for (const QString& name : names) {
        if (name.startsWith("PULSE_") || name == "DISPLAY" || name.startsWith("DBUS_"))
            variables.remove(name);
    }
    variables.insert("HOME", m_folder.path());
    variables.insert("XDG_RUNTIME_DIR", m_folder.filePath("runtime"));
    variables.insert("LC_ALL", "C.UTF-8");
    return variables;
}

QString SoundServer::sinkModule() const
{
    return QString("module-null-sink sink_name=%1 rate=%2 channels=%3 format=%4 norewinds=%5")
        .arg(sinkName)
        .arg(m_settings.rate)
        .arg(m_settings.channels)
        .arg(m_settings.format)
        .arg(m_settings.mayRewind ? 0 : 1);
}

QStringList SoundServer::arguments() const
{
    const QString protocol = QString("module-native-protocol-unix socket=%1 auth-anonymous=1")
                                 .arg(m_folder.filePath("pulse.sock"));
    QStringList all = {"-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
        "--disallow-exit", "--high-priority=no", "--realtime=no", "--log-target=stderr", "-L",
        sinkModule(), "-L", protocol};
    if (!m_settings.resampleMethod.isEmpty()) {
        all << "--resample-method=" + m_settings.resampleMethod;
    }
    if (!m_settings.sharesMemory) {
        all << "--disable-shm=yes";
    }
    for (const QString& module : m_settings.moreModules) {
        all << "-L" << module;
    }
    return all;
}

QByteArray SoundServer::description() const
{
    if (!QFileInfo::exists(m_folder.filePath("pulse.sock")))
        return {};
    return answerTo({"info"});
}

QByteArray SoundServer::answerTo(const QStringList& command) const
{
    ChildProcess query;
    query.setProcessEnvironment(environment());
    query.start("pactl", QStringList({"--server", address()}) + command);
    if (!query.waitForFinished(queryTimeoutMs) || query.exitCode() != 0)
        return {};
    return query.readAllStandardOutput();
}
