// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "support/ScriptedListener.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/// Where one sound of a trial lies in a recording, samples; a sound with a gap is longer than what
/// was played.
struct SoundPlace {
    int begin;
    int end; ///< one past the last sample

    int length() const { return end - begin; }
};
Q_DECLARE_TYPEINFO(SoundPlace, Q_PRIMITIVE_TYPE);

/// One trial of a window on a real sound server while something disturbs it.
class DisturbedTrial {
public:
    static constexpr int soundMs = 600;
    static constexpr int defaultSilenceMs = 300;
    static constexpr int nSounds = 4;

    /// Sets the panel to noise sounds of soundMs and this silent interval.
    explicit DisturbedTrial(int silenceMs = defaultSilenceMs);

    /// Makes the sounds tones of 1000 Hz, of one level from the first sample to the last.
    void setUnmodulatedTones() const;

    /// Is called at every soundPlaying, with its state, when the windows have been told.
    std::function<void(int)> disturb = [](int) {};

    /// Presses View, Go and "I am ready" and waits until the answer is allowed and no sound is
    /// left.
    /// @return whether that came within a minute
    bool play();

    /// All states that soundPlaying told.
    const QVector<int>& states() const { return m_states; }
    /// The samples of a sound, counted from 1, as they must be played; once it was.
    QVector<float> sound(int interval) const;
    /// Where the sounds lie in a recording that holds each of their samples, in order, and nothing
    /// else but zeros.
    /// @return no place, and a reason in whatIsWrong(), if anything is missing, too much or mixed
    QVector<SoundPlace> placesIn(const QVector<float>& recording);
    QString whatIsWrong() const { return m_whatIsWrong; }

    MainWindow window;

private:
    ScriptedListener m_listener {window, "c"};
    QVector<int> m_states;
    QString m_whatIsWrong;
};

/// The lines that a trial must have logged about interrupted sounds, by their places: one for each
/// sound that has a gap.
QStringList interruptionLines(const QVector<SoundPlace>& places, int samplesPerSound);
