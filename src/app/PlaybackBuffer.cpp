// SPDX-License-Identifier: GPL-3.0-or-later
// When an output took the bytes of its sound, whether it ran dry in between, whether it is lost,
// and whether its sound has a gap or has ended.
#include "app/PlaybackBuffer.h"

#include "app/PlayedSound.h"

#include <QAudioOutput>

#include <algorithm>

namespace {

// The server's queue is asked only after a gap: some backends report the end before their queue is
// empty, and play the rest when they are stopped.
bool hasBeenPlayed(const PlayedSound& sound)
{
    return sound.buffer->atEnd()
        && (!sound.progress.isInterrupted
            || sound.output->bytesFree() >= sound.output->bufferSize());
}

// Whether the server's queue ran empty just before the last of the sound came: an end is reported
// before all can have been heard, and more is queued than can have been heard since that came. More
// than the output hands over at a time, too. PipeWire reports an end while up to a quantum is left,
// but long after it was handed over.
bool isReportedTooEarly(const PlayedSound& sound)
{
    const auto* const playback = qobject_cast<const PlaybackBuffer*>(sound.buffer);
    if (playback == nullptr || playback->canHaveBeenHeard() || isGone(sound.output)) {
        return false;
    }
    const int nQueued = sound.output->bufferSize() - sound.output->bytesFree();
    return nQueued > sound.output->periodSize() && nQueued > playback->mostHeardSinceTaken();
}

} // namespace

bool hasFailed(const QAudioOutput* output)
{
    return output != nullptr && output->error() != QAudio::NoError;
}

// There is no queue any more in which bytes could be free.
bool isGone(const QAudioOutput* output)
{
    return output != nullptr
        && (output->state() == QAudio::ActiveState || output->state() == QAudio::IdleState)
        && output->bytesFree() < 0;
}

PlaybackBuffer::PlaybackBuffer(QByteArray* bytes, double bytesPerMs)
    : QBuffer(bytes)
    , m_bytesPerMs(bytesPerMs)
{
    m_clock.start();
}

bool PlaybackBuffer::isOverdue(double mostOnsetMs) const
{
    const double lengthMs = static_cast<double>(size()) / m_bytesPerMs;
    return !atEnd() && ageMs() > lengthMs + (pos() == 0 ? mostOnsetMs : 0.0);
}

bool PlaybackBuffer::canHaveBeenHeard() const
{
    return atEnd() && ageMs() >= m_earliestEndMs;
}

double PlaybackBuffer::mostHeardSinceTaken() const
{
    return (ageMs() - m_lastTakenMs) * m_bytesPerMs;
}

double PlaybackBuffer::ageMs() const
{
    constexpr double nsPerMs = 1e6;
    return static_cast<double>(m_clock.nsecsElapsed()) / nsPerMs;
}

qint64 PlaybackBuffer::readData(char* data, qint64 maxSize)
{
    const qint64 nBefore = pos();
    const qint64 nTaken = QBuffer::readData(data, maxSize);
    if (nTaken > 0) {
        noteTaken(nBefore, nTaken);
    }
    return nTaken;
}

void PlaybackBuffer::noteTaken(qint64 nBefore, qint64 nTaken)
{
    const double nowMs = ageMs();
    m_lastTakenMs = nowMs;
    const bool hasBegun = nBefore > 0 && nBefore >= std::min(size(), m_bytesToBegin);
    const bool isDry = hasBegun && nowMs > m_earliestEndMs;
    const double fromMs = hasBegun ? std::max(m_earliestEndMs, nowMs) : nowMs;
    const qint64 nAhead = hasBegun ? nTaken : nBefore + nTaken;
    m_earliestEndMs = fromMs + static_cast<double>(nAhead) / m_bytesPerMs;
    if (nBefore == 0) {
        emit firstTaken();
    }
    if (isDry && !m_hasRunDry) {
        m_hasRunDry = true;
        emit ranDry();
    }
}

// An idle output has nothing to play, which is not always the end of the sound: while this thread,
// the process or the server stood still, the rest of it may have reached the server too late, or
// not yet. An output that is active again was given more since its report. One that is gone, or was
// given nothing, has no more to come.
bool isInterrupted(const PlayedSound& sound)
{
    switch (sound.output->state()) {
    case QAudio::ActiveState:
        return sound.buffer->pos() > 0 && !isGone(sound.output);
    case QAudio::IdleState:
        return !hasBeenPlayed(sound) || isReportedTooEarly(sound);
    default:
        return sound.progress.isInterrupted && !hasBeenPlayed(sound);
    }
}

bool isWatched(const PlayedSound& sound)
{
    return sound.progress.isInterrupted && sound.output != nullptr && !isGone(sound.output);
}

// Suspending and resuming makes a server play what is left of a queue that stands still.
bool looksEnded(PlayedSound& sound)
{
    constexpr int looksUntilStill = 5;
    constexpr int mostResumptions = 3; // after as many without effect the queue is given up
    // At the next look only: if the server was lost meanwhile, the output has been stopped by then.
    if (sound.output->state() == QAudio::SuspendedState) {
        sound.output->resume();
        return false;
    }
    if (hasBeenPlayed(sound)) {
        return true;
    }
    SoundProgress& progress = sound.progress;
    const int bytesFree = sound.output->bytesFree();
    const bool isStill = sound.buffer->atEnd() && bytesFree == progress.bytesFree
        && sound.output->state() != QAudio::StoppedState;
    progress.nLooksStill = isStill ? progress.nLooksStill + 1 : 0;
    progress.bytesFree = bytesFree;
    if (progress.nLooksStill < looksUntilStill) {
        return false;
    }
    if (progress.nResumptions == mostResumptions) {
        return true;
    }
    progress.nLooksStill = 0;
    ++progress.nResumptions;
    sound.output->suspend();
    return false;
}
