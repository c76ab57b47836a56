// SPDX-License-Identifier: GPL-3.0-or-later
// When an output took the bytes of its sound, whether it ran dry in between, and whether it is
// lost.
#include "app/PlaybackBuffer.h"

#include <QAudioOutput>

#include <algorithm>

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
