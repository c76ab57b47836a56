// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBuffer>
#include <QElapsedTimer>

class QAudioOutput;
struct PlayedSound;

/// Whether an output tells an error, that of a sound's end included.
/// @param output null: it has not
bool hasFailed(const QAudioOutput* output);

/// Whether the server has ended an output's stream by itself, as when its device was pulled out:
/// the output then reports nothing, and goes on in its state. Qt's ALSA backend never knows.
/// @param output null: it has not
bool isGone(const QAudioOutput* output);

/// The bytes of one sound on their way to an output, with the times at which the output took them.
/// From these it follows whether the output must have run dry: nothing is heard before it was
/// taken, nor faster than in real time, nor before the output has enough to begin.
class PlaybackBuffer : public QBuffer {
    Q_OBJECT

public:
    /// @param bytes      the sound; must outlive the buffer
    /// @param bytesPerMs of its format; must be above 0
    PlaybackBuffer(QByteArray* bytes, double bytesPerMs);

    /// How many bytes the output takes before it begins to play, unless the sound has fewer; 0
    /// until it is set: it may begin with the first.
    void setBytesToBegin(qint64 nBytes) { m_bytesToBegin = nBytes; }
    /// Whether something is left to take although the time that the whole sound lasts has passed
    /// since the buffer was made; with so much more time until the first bytes are taken.
    bool isOverdue(double mostOnsetMs) const;
    /// Whether all of it was taken, and so long ago that it can have been heard to its end.
    bool canHaveBeenHeard() const;
    /// How many bytes can have been heard since the last were taken.
    double mostHeardSinceTaken() const;
    /// ms since the buffer was made.
    double ageMs() const;

signals:
    /// The output takes its first bytes.
    void firstTaken();
    /// The output takes more at a time when all that it took before must have been heard. Once.
    void ranDry();

protected:
    qint64 readData(char* data, qint64 maxSize) override;

private:
    void noteTaken(qint64 nBefore, qint64 nTaken);

    double m_bytesPerMs;
    qint64 m_bytesToBegin = 0;
    QElapsedTimer m_clock;
    double m_lastTakenMs = 0.0; ///< on the clock
    double m_earliestEndMs = 0.0; ///< of what was taken so far, on the clock
    bool m_hasRunDry = false;
};

/// Whether the report of an idle output is that of a gap and not of the sound's end.
/// @param sound must have an output
bool isInterrupted(const PlayedSound& sound);

/// Whether a gap of the sound is known and its end is looked for, since it may not be reported.
bool isWatched(const PlayedSound& sound);

/// Looks at an interrupted sound, sets a queue that stands still going again, and gives it up where
/// that has no effect. To be called every 20 ms or so.
/// @return whether the sound has ended or is given up
bool looksEnded(PlayedSound& sound);
