// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"

/// A note in which a tone of -30 dB was read as 70 dB SPL.
inline CalibrationNote sampleNote()
{
    CalibrationNote note;
    note.program = "quorin-sound 1.0.0";
    note.time = "2026-01-02T03:04:05.678+01:00";
    note.outputs = {{"one_ear", "Remapped card", {100.0}}, {"card", "Card", {40.0, 40.5}}};
    note.ear = "both";
    note.sound = "tone";
    note.frequency = 1000.0;
    note.rate = 48000;
    note.levelDb = -30.0;
    note.readingDb = 70.0;
    note.weighting = "Z";
    note.remark = "Kopfhörer 3, \"links\"";
    return note;
}
