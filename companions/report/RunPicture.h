// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QSize>

class QPainter;

namespace quorin {

/// Size of a run's picture, pixels.
constexpr QSize runPictureSize(960, 720);

} // namespace quorin

/// Draws a run with its figures: the adapted value over the trials, correct and wrong answers
/// marked apart, reversals that the threshold uses ringed and all others boxed, a line at the
/// threshold, and the reaction times below. Values are on a logarithmic axis if all of them are
/// above 0.
void drawRun(QPainter& painter, const QSize& size, const Run& run);

/// Draws a run as drawRun does, without its title and figures and without keys.
void drawPlainRun(QPainter& painter, const QSize& size, const Run& run);
