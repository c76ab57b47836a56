// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/RecordedSounds.h"
#include "timing/TrialObserver.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/// What was observed of a run, and what was planned.
struct Measurement {
    QVector<SoundMoments> sounds;
    QVector<RecordedSound> recorded; ///< as many as sounds
    std::function<double(qint64)> timeMs; ///< when a recorded sample began to be played
    double rate; ///< of the recording, Hz
    int periodMs; ///< from tick to tick
    int soundSamples; ///< length of every sound
};

/// The heading of the table, two lines of Markdown.
QStringList tableHeading();

/// The rows of the table for one condition, a line of Markdown each.
QStringList tableRows(const QString& condition, const Measurement& measurement);
