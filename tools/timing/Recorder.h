// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

/// Records what a sink plays, and when.
class Recorder {
public:
    Recorder() = default;
    virtual ~Recorder() = default;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Starts and waits for the first samples; the event loop runs meanwhile.
    /// @return false with an errorText() if none come
    virtual bool begin() = 0;
    /// Records another 0.3 s, so that nothing played is missed, and ends the recording.
    virtual void end() = 0;

    // To be read after end().
    virtual const QVector<float>& samples() const = 0;
    /// When a sample began to be played, ms of the monotonic clock.
    virtual double timeMs(qint64 sample) const = 0;
    virtual QString errorText() const = 0;

protected:
    static constexpr int timeoutMs = 20000; ///< of the first samples, and of the last
};
