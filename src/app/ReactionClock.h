// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QElapsedTimer;

/// What the trial loop asks of the clock of the reaction time. The program's is ElapsedTimerClock;
/// tests put one of their own in its place, since no test can know what a real one will show.
class ReactionClock {
public:
    ReactionClock() = default;
    virtual ~ReactionClock() = default;
    Q_DISABLE_COPY(ReactionClock)

    /// Counts from now on, for the first time.
    virtual void start() = 0;
    /// Counts from now on, again.
    virtual void restart() = 0;
    /// Whole ms since the last start or restart, rounded down; 0 while there was none.
    virtual qint64 elapsedMs() const = 0;
};

/// The clock that is a QElapsedTimer.
class ElapsedTimerClock : public ReactionClock {
public:
    /// @param timer must live as long as the clock is used
    explicit ElapsedTimerClock(QElapsedTimer& timer);

    void start() override;
    void restart() override;
    qint64 elapsedMs() const override;

private:
    QElapsedTimer& m_timer;
};
