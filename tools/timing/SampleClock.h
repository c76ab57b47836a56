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
/// That moment on the system's monotonic clock, ms.
double monotonicOriginMs();

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

/// When a sample of a recording began to be played, where exact moments of its cycles are known.
/// Unlike the SampleClock it stands cycles that are missing or change their length.
/// @param cycles each with the number of its first sample and its begin, in their order
/// @param rate   samples a second, above 0
/// @return ms; NaN without any cycles
double timeInCyclesMs(const QVector<Arrival>& cycles, double rate, qint64 sample);

/// Puts zeros into a recording wherever a cycle began later than the one before had lasted, and
/// moves the numbers of the cycles along.
void fillPauses(QVector<float>& samples, QVector<Arrival>& cycles, double rate);
