// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"

#include <array>

class Data;

/// Digital levels of a trial's standard and deviant, as in a CalibrationNote. Computed from the
/// sounds: that of a noise differs from another's by some hundredths of a dB. Seeds Qt's generator.
/// @return not finite for silent, empty or undefined sounds
std::array<double, 2> trialLevelsDb(const Data& data);

/// The sound pressure level that a digital level has by a calibration, dB SPL.
double pressureLevelDb(const CalibrationNote& note, double levelDb);

/// The level per hertz of a white noise that reaches up to half its rate.
/// @param levelDb overall
/// @param rate    Hz
double spectrumLevelDb(double levelDb, double rate);

/// The digital levels that a run plays at; a run adapts one thing, and with it often the level.
struct LevelRange {
    std::array<double, 2> startDb; ///< of standard and deviant as the settings have them
    double lowestDb; ///< of both, from the smallest to the largest value
    double highestDb;
};

/// @param data     settings of the run; its value is where the run starts
/// @param smallest value that the run reaches, a fraction
/// @param largest  likewise
LevelRange levelRange(const Data& data, double smallest, double largest);
