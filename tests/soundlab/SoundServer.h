// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/ChildProcess.h"

#include <QString>
#include <QTemporaryDir>

/// A private PulseAudio server whose only sink is a null sink, so that sounds can be played without
/// a sound card and recorded as they were played (SoundRecorder).
///
/// The sink renders in blocks of the smallest latency that a client asks for, the recorder
/// included: onsets are quantised to it. Keep a recorder attached while something plays. Needs a
/// QCoreApplication and the programs pulseaudio and pactl.
class SoundServer {
public:
    struct Settings {
        int rate = 40000; ///< of the sink, Hz
        int channels = 1;
        QString format = QStringLiteral("float32le"); ///< PulseAudio's name of a sample format
        /// A sink that may rewind takes back what it rendered: beginnings and tails of sounds are
        /// lost in the recording.
        bool mayRewind = false;
        QString resampleMethod {}; ///< PulseAudio's name of it; empty: its own choice
        QStringList moreModules; ///< loaded besides, with their arguments
        bool sharesMemory = true; ///< with its clients
    };

    /// For programs that come and go: a server that shares no memory with them. One that does now
    /// and then ends at an assertion of PulseAudio 16 when a program ends whose sound is recorded.
    static Settings copyingSettings();

    SoundServer();
    explicit SoundServer(Settings settings);
    /// Stops the server and removes its folder. PULSE_SERVER stays, so that nothing that plays
    /// afterwards reaches another server of this machine.
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /// Starts the server, waits until its sink can be used, and sets PULSE_SERVER for this process.
    /// Call it before the first use of Qt's audio classes, which keep their connection.
    /// @return false with an errorText() if the server can't be used
    bool start();
    /// Ends the server if it runs.
    void stop();
    /// Kills the server, as in a crash.
    void kill();
    /// 0: it does not run.
    qint64 processId() const { return m_process.processId(); }
    /// The server's process stands still for a time, as when the machine is busy. Returns at once.
    void standStill(int ms);
    /// Where sounds that name no sink are played from now on; "lab" is this server's own sink.
    void setDefaultSink(const QString& name);
    /// Whether the server has put a sink to sleep.
    bool isSuspended(const QString& sink) const;
    /// Takes the sink away from the running server, as when a sound card is pulled out.
    void removeSink();
    /// Gives the running server its sink again.
    void addSink();

    bool isRunning() const;
    /// What the server or its failed start said.
    QString errorText() const { return m_errorText; }
    /// The value of PULSE_SERVER for this server.
    QString address() const;
    /// The source that gives back what the sink plays.
    QString monitor() const;
    const Settings& settings() const { return m_settings; }
    /// The environment of the server and of its clients: no folder or server of the user's.
    QProcessEnvironment environment() const;

private:
    QString sinkModule() const;
    QStringList arguments() const;
    QByteArray description() const;
    QByteArray answerTo(const QStringList& command) const;

    Settings m_settings;
    QTemporaryDir m_folder;
    ChildProcess m_process;
    QString m_errorText;
};
