// SPDX-License-Identifier: GPL-3.0-or-later
// When a sample of a recording was played.
#include "timing/SampleClock.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

double monotonicOriginMs()
{
    using Clock = std::chrono::steady_clock;
    static const auto origin = Clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(origin).count();
}

double monotonicMs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count() - monotonicOriginMs();
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

double timeInCyclesMs(const QVector<Arrival>& cycles, double rate, qint64 sample)
{
    if (cycles.isEmpty())
        return std::numeric_limits<double>::quiet_NaN();
    const auto isAfter = [](qint64 n, const Arrival& cycle) { return n < cycle.nSamples; };
    auto cycle = std::upper_bound(cycles.cbegin(), cycles.cend(), sample, isAfter);
    if (cycle != cycles.cbegin())
        --cycle;
    return cycle->timeMs + 1000.0 * double(sample - cycle->nSamples) / rate;
}

void fillPauses(QVector<float>& samples, QVector<Arrival>& cycles, double rate)
{
    QVector<float> filled;
    filled.reserve(samples.size());
    double dueMs = cycles.isEmpty() ? 0.0 : cycles.constFirst().timeMs;
    for (int i = 0; i < cycles.size(); ++i) {
        const qint64 begin = cycles[i].nSamples;
        const qint64 end = i + 1 < cycles.size() ? cycles[i + 1].nSamples : samples.size();
        const auto pause = int(std::lround((cycles[i].timeMs - dueMs) / 1000.0 * rate));
        filled += QVector<float>(std::max(pause, 0), 0.0F);
        dueMs = cycles[i].timeMs + 1000.0 * double(end - begin) / rate;
        cycles[i].nSamples = filled.size();
        filled += samples.mid(int(begin), int(end - begin));
    }
    samples = filled;
}
