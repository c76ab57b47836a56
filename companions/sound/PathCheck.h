// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/SoundPath.h"

/// What a line of the check says of the experiment.
enum class Verdict { fine, look, stop };

/// A line of the check.
struct CheckLine {
    Verdict verdict;
    QString subject;
    QString finding;
    QString effect; ///< on the experiment; may be empty
    QString remedy; ///< a command, or what to do; empty if there is nothing to mend
};

/// The settings of the panel that a path is checked for.
struct CheckedSettings {
    int rate; ///< Hz
    double durationMs;
};

/// What the path does to the sounds of these settings.
QVector<CheckLine> checkedPath(const SoundPath& path, const CheckedSettings& settings);

/// The check where no server can be asked.
/// @param obstacle why
QVector<CheckLine> checkWithoutServer(const QString& obstacle);

/// A table for the terminal, with its sum in the last line.
QString checkTable(const QVector<CheckLine>& lines);

/// Whether a line says stop.
bool mustStop(const QVector<CheckLine>& lines);
