// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"

/// What the sounds of the window's settings at its start reach by a calibration.
struct PressureTable {
    QString text; ///< for the terminal
    double highestDb; ///< of all of them, dB SPL
};

/// The table for the sounds at the note's sampling rate. Seeds Qt's generator.
PressureTable pressureTable(const CalibrationNote& note);
