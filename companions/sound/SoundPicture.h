// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/TrialSounds.h"

#include <QString>

/// Draws the first 50 ms and the amplitude spectrum of both sounds into a picture file.
/// @param rate Hz
/// @return what went wrong; empty if the file was written
QString writeSoundPicture(
    const QString& path, const TrialSounds& sounds, double rate, bool isForced);
