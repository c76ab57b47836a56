// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectSummary.h"

#include <QSize>

class QPainter;

namespace quorin {

/// Size of a subject's picture, pixels.
constexpr QSize subjectPictureSize(960, 720);

} // namespace quorin

/// Draws all runs of a subject, a column for each main parameter: the thresholds with their
/// standard deviations and below them the mean reaction times, over the runs in the order of the
/// page.
void drawSubject(QPainter& painter, const QSize& size, const Subject& subject);
