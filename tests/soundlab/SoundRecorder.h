// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/ChildProcess.h"

#include <QString>
#include <QTemporaryDir>
#include <QVector>

class SoundServer;

/// Records everything that a SoundServer's sink plays, silence included, in the sink's own format.
/// A sample's index in the recording is its time: index / rate of the sink, from start() on.
/// The recording goes through a file, so that a busy event loop loses nothing and is not disturbed.
/// Needs a sink of one float32le channel, a QCoreApplication, and the program parec.
class SoundRecorder {
public:
    /// @param server    must outlive the recorder
    /// @param latencyMs the block that the sink renders in, ms: the resolution of onsets
    explicit SoundRecorder(const SoundServer& server, int latencyMs = 5);

    /// Begins a new recording and waits until samples arrive.
    /// @return false with an errorText() if none do
    bool start();
    /// Waits until what was played up to now has arrived (0.1 s more is recorded), ends the
    /// recording, and gives it back whole. If the server is gone: what came until then.
    QVector<float> stop();

    /// Samples recorded so far.
    qint64 sampleCount() const;
    /// What was recorded so far, from a sample on; below 0 is taken as 0. For listening in while
    /// the recording goes on. Empty if it has not got that far.
    QVector<float> samples(qint64 from = 0) const;
    QString errorText() const { return m_errorText; }

private:
    QString fileName() const;

    const SoundServer& m_server;
    int m_latencyMs;
    QTemporaryDir m_folder;
    ChildProcess m_process;
    QString m_errorText;
};
