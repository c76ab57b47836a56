// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/Oscillation.h"

#include <QVector>

/// The modulator of a sound's envelope. Its samples are kept until others are asked for: from trial
/// to trial of a run they are the same, and their cosines cost more than the rest of the sound.
class Modulator {
public:
    /// cos(angle(k)) for k = 0 to n - 1.
    /// @param n not negative
    const QVector<double>& samples(const Oscillation& modulation, int n);

private:
    bool holds(const Oscillation& modulation, int n) const;

    Oscillation m_modulation = {0.0, 0.0, 0.0};
    QVector<double> m_samples;
};
