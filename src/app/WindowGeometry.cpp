// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowGeometry.h"

#include <QtGlobal>

QRect windowRectangle(const QSize& available, const QPoint& topLeft, bool center,
    double widthFraction, double heightFraction)
{
    constexpr int leastX = 5;
    constexpr int leastY = 40;
    const int width = static_cast<int>(available.width() * qBound(0.0, widthFraction, 1.0));
    const int height = static_cast<int>(available.height() * qBound(0.0, heightFraction, 1.0));
    const QSize size(width, height);
    if (center) {
        return {QPoint((available.width() - width) / 2, (available.height() - height) / 2), size};
    }
    return {QPoint(qMax(topLeft.x(), leastX), qMax(topLeft.y(), leastY)), size};
}
