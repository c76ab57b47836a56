// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// A moment at which a recording had grown to a number of samples.
struct Arrival {
    qint64 nSamples; ///< of the recording so far
    double timeMs; ///< on the monotonic clock, see monotonicMs
};

/// The monotonic clock, ms from an arbitrary moment that is the same for the whole process.
double monotonicMs();

/// Tells when a sample of a recording was played, on the monotonic clock.
///
/// Samples arrive in blocks, some of them late, none early. So the least delayed arrival within a
/// second of a sample ties its number to the clock, and the sampling rate does the rest. What is
/// left of the error is a delay that every block has, and a part of a block.
class SampleClock {
public:
    /// @param arrivals in their order
    /// @param rate     samples a second, above 0
    SampleClock(const QVector<Arrival>& arrivals, double rate);

    /// When all samples before this one had been played, ms. NaN without any arrivals.
    double timeMs(qint64 sample) const;

private:
    QVector<Arrival> m_arrivals;
    double m_rate;
};
