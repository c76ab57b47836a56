// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectSummary.h"

#include <QRectF>
#include <QSize>

class QPainter;

namespace quorin {

/// Size of a learning curve's picture, pixels.
constexpr QSize learningPictureSize(960, 420);

} // namespace quorin

/// What a learning curve goes over.
enum class CurveAxis {
    session, ///< the number in the file's name; runs without one are left out
    date, ///< the day that the file was last written, counted from the subject's first
};

/// Whether there is a run to draw.
bool hasLearningCurve(const Subject& subject, CurveAxis over);

/// Draws the thresholds of a subject's runs over sessions or days, a column for each main
/// parameter: a mark for each run, and a line through the geometric means of each sound.
void drawLearning(QPainter& painter, const QSize& size, const Subject& subject, CurveAxis over);

/// The same without a heading, into a rectangle.
void drawLearningPlots(
    QPainter& painter, const QRectF& outer, const Subject& subject, CurveAxis over);
