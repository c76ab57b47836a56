// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"
#include "sound/CalibrationSound.h"

/// What quorin-sound calibrate is told on its command line.
struct CalibrateOptions {
    CalibrationSound sound;
    Ear ear = Ear::both;
    double startDb = -30.0; ///< digital level of the first sound
    double stepDb = 3.0;
    QString weighting = QStringLiteral("Z"); ///< of the meter: "A", "C" or "Z"
    std::optional<double> readingDb; ///< dB SPL; none: the dialogue asks for it
    std::optional<QString> remark; ///< none: the dialogue asks for it
    QString folder; ///< of the note
    std::optional<Answer> answer; ///< in place of the sound
};

/// The name of an ear: "both", "left" or "right".
QString nameOf(Ear ear);

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first
CalibrateOptions calibrateOptions(const QStringList& arguments);
