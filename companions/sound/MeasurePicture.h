// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/PathMeasurement.h"

/// Draws level and strongest image of each tone into a picture file.
/// @return what went wrong; empty if the file was written
QString writeMeasurePicture(const QString& path, const MeasuredPath& measured,
    const QVector<ToneFigures>& tones, bool isForced);
