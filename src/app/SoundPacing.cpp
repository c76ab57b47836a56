// SPDX-License-Identifier: GPL-3.0-or-later
// When the sounds of a trial are due.
#include "app/SoundPacing.h"

void SoundPacing::begin(double nowMs, int periodMs)
{
    m_periodMs = periodMs;
    dueAfter(nowMs, periodMs);
}

void SoundPacing::soundStarted(double nowMs)
{
    m_dueMs += m_periodMs;
    if (m_dueMs < nowMs) {
        dueAfter(nowMs, m_periodMs);
    }
}
