// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBuffer>
#include <QElapsedTimer>

/// The bytes of one sound on their way to an output, with the times at which the output took them.
/// From these it follows whether the output must have run dry: nothing is heard before it was
/// taken, nor faster than in real time.
class PlaybackBuffer : public QBuffer {
    Q_OBJECT

public:
    /// @param bytes      the sound; must outlive the buffer
    /// @param bytesPerMs of its format; must be above 0
    PlaybackBuffer(QByteArray* bytes, double bytesPerMs);

    /// Whether more was taken at a time when all that had been taken before must have been heard.
    bool hasRunDry() const { return m_hasRunDry; }
    /// Whether something is left to take although the time that the whole sound lasts has passed
    /// since the buffer was made.
    bool isOverdue() const;
    /// ms since the buffer was made.
    double ageMs() const;

signals:
    /// The output takes its first bytes.
    void firstTaken();

protected:
    qint64 readData(char* data, qint64 maxSize) override;

private:
    double m_bytesPerMs;
    QElapsedTimer m_clock;
    double m_earliestEndMs = 0.0; ///< of what was taken so far, on the clock
    bool m_hasRunDry = false;
};
