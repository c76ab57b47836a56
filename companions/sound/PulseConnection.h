// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QString>

struct pa_context;
struct pa_mainloop;
struct pa_operation;

/// A connection to the sound server that programs of this user play on, PulseAudio or PipeWire's
/// PulseAudio server. It waits for an answer no longer than 5 s.
class PulseConnection {
public:
    PulseConnection();
    ~PulseConnection();
    Q_DISABLE_COPY(PulseConnection)

    /// @return false with an error() if there is no server
    bool open();
    /// For requests of libpulse, of an open connection.
    pa_context* context() const { return m_context; }
    /// Waits until a request is answered. Its callbacks run in the meantime.
    /// @param operation is given up; null is a request that failed
    /// @return false with an error() if it is not
    bool await(pa_operation* operation);
    QString error() const;

private:
    bool isOverdue() const;
    bool step();

    pa_mainloop* m_loop;
    pa_context* m_context;
    QElapsedTimer m_clock; ///< since the last request
};
