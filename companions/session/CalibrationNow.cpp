// SPDX-License-Identifier: GPL-3.0-or-later
// A calibration note beside the outputs that sounds are played on now.
#include "session/CalibrationNow.h"

#include "sound/CalibratedOutputs.h"
#include "sound/PulseServer.h"

RunCalibration calibrationNow(const RunCalibration& given)
{
    RunCalibration now = given;
    now.differences = differencesFrom(given.note, calibratedOutputs(askPulseServer().path));
    return now;
}
