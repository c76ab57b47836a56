// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"
#include "session/ListenerScreen.h"
#include "session/Study.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What quorin-session is told on its command line.
struct SessionOptions {
    QString folder; ///< that the records go to
    bool asksFolder = false; ///< whether a dialog asks for the folder; then none is given
    QString replayed; ///< a record to compute again; empty: none
    QString calibration; ///< path of a note that each run is recorded with; empty: none
    std::optional<qint64> seed; ///< none: one from the system
    ListenerPlace listener; ///< its screen as it was told, not yet looked for
    StudyRequest study; ///< without a protocol: runs as the experimenter sets them
    std::optional<Answer> answer; ///< in place of recording and replaying
};

/// Seeds that give sequences of their own: 1 to this. With 0 the generator would give that of 1.
constexpr qint64 largestSeed = 2147483646;

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first
SessionOptions sessionOptions(const QStringList& arguments);
