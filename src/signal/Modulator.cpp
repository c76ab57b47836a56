// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Modulator.h"

#include <cmath>

const QVector<double>& Modulator::samples(Oscillation modulation, int n)
{
    if (!holds(modulation, n)) {
        m_modulation = modulation;
        m_samples.resize(n);
        double* const samples = m_samples.data();
        for (int k = 0; k < n; ++k) {
            samples[k] = std::cos(modulation.angle(k));
        }
    }
    return m_samples;
}

bool Modulator::holds(Oscillation modulation, int n) const
{
    return m_samples.size() == n && m_modulation.frequency == modulation.frequency
        && m_modulation.fs == modulation.fs && m_modulation.phase == modulation.phase;
}
