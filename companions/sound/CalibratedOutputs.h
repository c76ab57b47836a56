// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"
#include "sound/SoundPath.h"

/// The outputs of a path as a calibration note has them.
QVector<CalibratedOutput> calibratedOutputs(const SoundPath& path);
