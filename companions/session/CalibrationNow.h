// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"

/// What the session was given, with how the sound server's outputs now differ from the note's. Asks
/// the server and waits 5 s for it at most.
RunCalibration calibrationNow(const RunCalibration& given);
