// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "psychometrics/PsychometricFunction.h"

#include <QString>

#include <random>

class SoundRecorder;

/// The listener of the demonstration and of the pictures: logistic, of this slope and these
/// thresholds, which are fractions.
constexpr double demoSlopeDb = 2.5;
constexpr double demoDepthThreshold = 0.056;
constexpr double demoFrequencyThreshold = 0.002;

/// A listener who hears the trials of a run in a recording that is still growing, and is right
/// about the deviant as often as a psychometric function says. Knows nothing of the windows.
class Listener {
public:
    /// @param recorder runs, and outlives the listener
    /// @param seed     the same seed and the same deviants give the same answers
    Listener(const SoundRecorder& recorder, const PsychometricFunction& function, quint64 seed);

    /// Waits until the four sounds that follow those of the last trial are recorded to their end.
    /// @return the interval that holds the deviant, 2 or 3; 0 with an errorText() if four sounds
    ///         do not come or do not tell it
    int hear();

    /// What the listener says after having heard the deviant in interval 2 or 3.
    /// @param value of the deviant, a fraction
    /// @return that interval, or the other one
    int answer(int heard, double value);

    QString errorText() const { return m_errorText; }

private:
    const SoundRecorder& m_recorder;
    PsychometricFunction m_function;
    std::mt19937_64 m_generator;
    qint64 m_heardUpTo; // samples of the recording
    QString m_errorText;
};
