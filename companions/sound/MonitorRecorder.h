// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

#include <memory>

/// Records what an output of the running sound server plays, silence included, in a thread of its
/// own.
class MonitorRecorder {
public:
    /// @param sink name of the output
    /// @param rate Hz; that of the output, otherwise the recording is resampled
    MonitorRecorder(const QString& sink, int rate);
    ~MonitorRecorder();
    Q_DISABLE_COPY(MonitorRecorder)

    /// Samples recorded so far; stays 0 where the output cannot be recorded.
    int sampleCount() const;
    /// All samples so far; they count from 0 again.
    QVector<float> take();

private:
    struct Stream;
    std::unique_ptr<Stream> m_stream;
};
