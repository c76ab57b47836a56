// SPDX-License-Identifier: GPL-3.0-or-later
// When a sample of a recording was played.
#include "timing/SampleClock.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

double monotonicMs()
{
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point origin = Clock::now();
    return std::chrono::duration<double, std::milli>(Clock::now() - origin).count();
}

SampleClock::SampleClock(const QVector<Arrival>& arrivals, double rate)
    : m_arrivals(arrivals)
    , m_rate(rate)
{
}

double SampleClock::timeMs(qint64 sample) const
{
    const auto isBefore = [](const Arrival& arrival, qint64 n) { return arrival.nSamples < n; };
    const auto at = [&](double n) {
        return std::lower_bound(m_arrivals.cbegin(), m_arrivals.cend(), qint64(n), isBefore);
    };
    const auto position = double(sample);
    const auto near = std::make_pair(at(position - m_rate), at(position + m_rate));
    const bool hasNone = near.first == near.second; // within a second: then all that there are
    const auto first = hasNone ? m_arrivals.cbegin() : near.first;
    const auto last = hasNone ? m_arrivals.cend() : near.second;
    double least = std::numeric_limits<double>::infinity();
    for (auto arrival = first; arrival != last; ++arrival) {
        const double awayMs = 1000.0 * double(sample - arrival->nSamples) / m_rate;
        least = std::min(least, arrival->timeMs + awayMs);
    }
    return std::isinf(least) ? std::numeric_limits<double>::quiet_NaN() : least;
}
