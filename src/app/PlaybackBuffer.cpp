// SPDX-License-Identifier: GPL-3.0-or-later
// When an output took the bytes of its sound, and whether it ran dry in between.
#include "app/PlaybackBuffer.h"

#include <algorithm>

PlaybackBuffer::PlaybackBuffer(QByteArray* bytes, double bytesPerMs)
    : QBuffer(bytes)
    , m_bytesPerMs(bytesPerMs)
{
    m_clock.start();
}

bool PlaybackBuffer::isOverdue() const
{
    return !atEnd() && ageMs() > static_cast<double>(size()) / m_bytesPerMs;
}

double PlaybackBuffer::ageMs() const
{
    constexpr double nsPerMs = 1e6;
    return static_cast<double>(m_clock.nsecsElapsed()) / nsPerMs;
}

qint64 PlaybackBuffer::readData(char* data, qint64 maxSize)
{
    const qint64 nTaken = QBuffer::readData(data, maxSize);
    if (nTaken > 0) {
        const double nowMs = ageMs();
        const bool isFirst = pos() == 0;
        m_hasRunDry = m_hasRunDry || (!isFirst && nowMs > m_earliestEndMs);
        m_earliestEndMs
            = std::max(m_earliestEndMs, nowMs) + static_cast<double>(nTaken) / m_bytesPerMs;
        if (isFirst) {
            emit firstTaken();
        }
    }
    return nTaken;
}
