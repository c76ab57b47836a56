// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/ChildProcess.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// A private PipeWire with its PulseAudio server, a session manager and a D-Bus of their own, whose
/// sink is a null sink of one channel: PipeWire as a desktop has it, without a sound card.
/// Needs a QCoreApplication and the programs dbus-daemon, pipewire, wireplumber, pipewire-pulse,
/// pw-metadata and pactl.
class PipeWireServer {
public:
    /// @param quantum samples that the graph handles at a time; 0 leaves it to PipeWire
    /// @param rules   a file of settings for the PulseAudio server; empty: none
    /// @param rate    of the graph and of the sink, Hz
    explicit PipeWireServer(int quantum, QString rules = {}, int rate = 48000);
    ~PipeWireServer();
    PipeWireServer(const PipeWireServer&) = delete;
    PipeWireServer& operator=(const PipeWireServer&) = delete;

    /// Starts the processes, waits until the sink can be used, and sets PULSE_SERVER for this
    /// process. Call it before the first use of Qt's audio classes.
    /// @return false with an errorText() if it can't be used
    bool start();

    QString errorText() const { return m_errorText; }
    /// The value of PULSE_SERVER for this server.
    QString address() const;
    /// The file by which PipeWire's own clients reach it.
    QString socket() const;
    static QString sink();
    /// The source that gives back what the sink plays.
    static QString monitor();
    /// Of the graph and of the sink, Hz.
    int rate() const { return m_rate; }
    /// The environment of the server and of its clients: no folder or server of the user's.
    QProcessEnvironment environment() const;

private:
    bool makeFolders();
    bool write(const QString& file, const QByteArray& text);
    bool launch(const QString& program, const QStringList& arguments, const QString& socket);
    bool run(const QString& program, const QStringList& arguments);
    bool makeSink();
    bool setQuantum();
    QString runtimeFolder() const;

    int m_quantum;
    QString m_rules;
    int m_rate;
    QTemporaryDir m_folder;
    std::vector<std::unique_ptr<ChildProcess>> m_processes;
    QByteArray m_answer; ///< of the last program that was run
    QString m_errorText;
};
