// SPDX-License-Identifier: GPL-3.0-or-later
// The clock of the reaction time, as a QElapsedTimer keeps it.
#include "app/ReactionClock.h"

#include <QElapsedTimer>

ElapsedTimerClock::ElapsedTimerClock(QElapsedTimer& timer)
    : m_timer(timer)
{
}

void ElapsedTimerClock::start()
{
    m_timer.start();
}

void ElapsedTimerClock::restart()
{
    m_timer.restart();
}

qint64 ElapsedTimerClock::elapsedMs() const
{
    return m_timer.isValid() ? m_timer.elapsed() : 0;
}
