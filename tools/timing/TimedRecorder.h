// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timing/Recorder.h"
#include "timing/SampleClock.h"

#include <QProcessEnvironment>
#include <QString>
#include <QThread>

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
class TimedRecorder : public QThread, public Recorder {
    Q_OBJECT

public:
    explicit TimedRecorder(RecordingSource source);
    ~TimedRecorder() override;

    bool begin() override;
    void end() override;
    const QVector<float>& samples() const override { return m_samples; }
    double timeMs(qint64 sample) const override;
    QString errorText() const override { return m_errorText; }

protected:
    void run() override;

private:
    RecordingSource m_source;
    std::atomic<qint64> m_nSamples {0};
    QVector<float> m_samples;
    QVector<Arrival> m_arrivals;
    QString m_errorText;
};
