// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Modulator.h"

#include <algorithm>
#include <cmath>

const QVector<double>& Modulator::samples(const Oscillation& modulation, int n)
{
    if (!holds(modulation, n)) {
        m_modulation = modulation;
        m_samples.resize(n);
        std::generate(m_samples.begin(), m_samples.end(),
            [modulation, k = 0]() mutable { return std::cos(modulation.angle(k++)); });
    }
    return m_samples;
}

bool Modulator::holds(const Oscillation& modulation, int n) const
{
    return m_samples.size() == n && m_modulation.frequency == modulation.frequency
        && m_modulation.fs == modulation.fs && m_modulation.phase == modulation.phase;
}
