// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timing/SampleClock.h"

#include <QProcessEnvironment>
#include <QString>
#include <QThread>
#include <QVector>

#include <atomic>

/// What to record: the monitor of a server's sink.
struct RecordingSource {
    QString address; ///< of the server, as in PULSE_SERVER; empty: the user's own
    QString monitor; ///< name of the source
    QProcessEnvironment environment; ///< of the recording process
    int rate; ///< of the sink, Hz
    int latencyMs; ///< the block that is asked for
};

/// Records what a sink plays and when every block of it came. It reads in a thread of its own, so
/// that a busy event loop neither delays the moments nor is disturbed. Needs the program parec.
class TimedRecorder : public QThread {
    Q_OBJECT

public:
    explicit TimedRecorder(RecordingSource source);
    ~TimedRecorder() override;

    /// Starts and waits for the first samples; the event loop runs meanwhile.
    /// @return false with an errorText() if none come
    bool begin();
    /// Records another 0.3 s, so that nothing played is missed, and ends the recording.
    void end();

    // To be read after end().
    const QVector<float>& samples() const { return m_samples; }
    const QVector<Arrival>& arrivals() const { return m_arrivals; }
    QString errorText() const { return m_errorText; }

protected:
    void run() override;

private:
    RecordingSource m_source;
    QVector<float> m_samples;
    QVector<Arrival> m_arrivals;
    std::atomic<qint64> m_nSamples {0};
    QString m_errorText;
};
