// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// The rectangle of a window that takes a part of the screen's available area, truncated to pixels.
/// @param available      size of the screen's available area, pixels
/// @param topLeft        present top-left corner, kept when not centred but at least (5, 40)
/// @param center         whether the window is centred in the available area
/// @param widthFraction  part of the available width, limited to 0 to 1
/// @param heightFraction part of the available height, limited to 0 to 1
QRect windowRectangle(const QSize& available, const QPoint& topLeft, bool center,
    double widthFraction, double heightFraction);
