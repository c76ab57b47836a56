// SPDX-License-Identifier: GPL-3.0-or-later
// Which intervals of a trial hold the deviant, and how long its timer waits.
#include "app/TrialSequence.h"

#include "session/Counts.h"
#include "session/Data.h"
#include "session/Units.h"

#include <algorithm>
#include <limits>

using namespace quorin;

namespace {

constexpr double msPerSecond = 1000.0;

} // namespace

QVector<bool> trialSequence(int nSounds, int deviantPosition)
{
    QVector<bool> sequence(nSounds, false);
    sequence[deviantPosition - 1] = true;
    return sequence;
}

int trialPeriodMs(double silentInterval, const QVector<double>& durations)
{
    const double longer = std::max(durations[standard], durations[deviant]);
    return std::max(truncatedCount(inMs(silentInterval) + inMs(longer)), 1);
}

int silentIntervalMs(double silentInterval)
{
    return std::max(truncatedCount(silentInterval * msPerSecond), 1);
}

int endReportTimeoutMs(int periodMs)
{
    constexpr int patienceMs = 5000;
    return std::min(periodMs, std::numeric_limits<int>::max() - patienceMs) + patienceMs;
}
