// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"
#include "session/SessionOptions.h"

#include <QLockFile>

#include <memory>

/// What a session needs before it has windows.
struct PreparedSession {
    std::unique_ptr<QLockFile> lock; ///< on the folder, until the end of the session
    qint64 seed = 1; ///< of the generator
    std::optional<Study> study; ///< none without a protocol
    std::optional<RunCalibration> calibration; ///< as it was given; none: without
    QStringList notes; ///< what the experimenter should know
    QStringList errors; ///< why the session cannot begin
};

/// Locks the folder, brings back what an earlier session had to keep elsewhere, reads and checks
/// the protocol, and looks for the runs that are there.
PreparedSession preparedSession(const SessionOptions& options);
