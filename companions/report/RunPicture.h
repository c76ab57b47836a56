// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QSize>

class QPainter;

/// Size of a run's picture, pixels.
constexpr QSize runPictureSize(960, 720);

/// Draws a run: the adapted value over the trials, correct and wrong answers marked apart,
/// reversals ringed, a line at the threshold, and the reaction times below. Values are on a
/// logarithmic axis if all of them are above 0. Needs the run's records.
void drawRun(QPainter& painter, const QSize& size, const Run& run);
