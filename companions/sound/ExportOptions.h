// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"
#include "sound/TrialSounds.h"

/// What quorin-sound export is told on its command line.
struct ExportOptions {
    Data data;
    Draws draws {1, 0};
    QString folder; ///< of the sounds; empty: none are written
    QString csvPath; ///< empty: none
    QString plotPath; ///< empty: none
    bool isForced = false; ///< whether a table or picture of a companion may be replaced
    std::optional<Answer> answer; ///< in place of the sounds
};

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first, without the command
ExportOptions exportOptions(const QStringList& arguments);
