// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectFits.h"

#include <QSize>

class QPainter;

namespace quorin {

constexpr QSize fitPictureSize(900, 560);

} // namespace quorin

/// The name of a fit's picture, without a suffix: subject and condition.
QString fitName(const SubjectFit& fit);

/// Draws a fit: shares of right answers in bins of 1 dB as discs whose areas go with their trials,
/// the function, and the thresholds with their intervals.
void drawFit(QPainter& painter, const QSize& size, const SubjectFit& fit);
