// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timing/Recorder.h"
#include "timing/SampleClock.h"

#include <memory>

/// Records a sink from inside PipeWire's graph, whose clock tells when each cycle began. So the
/// moments stay true when the quantum changes. The recorder asks for no quantum, and the recording
/// has zeros while nothing plays and the sink rests. A cycle's samples are said to be played from
/// its begin on, as by a sink without a buffer of its own.
class GraphRecorder : public Recorder {
public:
    struct Sink {
        QString socket; ///< of its PipeWire server, a file's name
        QString name;
        int rate; ///< of the sink and the graph, Hz
    };

    /// @param seconds how much can be recorded; what comes later is left out
    /// @param isAwake keeps the sink from resting, as another program that plays does
    GraphRecorder(Sink sink, int seconds, bool isAwake);
    ~GraphRecorder() override;

    bool begin() override;
    void end() override;
    const QVector<float>& samples() const override { return m_samples; }
    double timeMs(qint64 sample) const override;
    QString errorText() const override { return m_errorText; }

private:
    struct Stream;

    void prepare();
    bool connectStream();

    Sink m_sink;
    int m_seconds;
    bool m_isAwake;
    std::unique_ptr<Stream> m_stream;
    QVector<float> m_samples;
    QVector<Arrival> m_arrivals;
    QString m_errorText;
};
