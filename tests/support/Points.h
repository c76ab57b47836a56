// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

/// The first n points (x[k], y[k]); both vectors must hold as many.
inline QVector<QPointF> pointsOf(const QVector<double>& x, const QVector<double>& y, int n)
{
    QVector<QPointF> points;
    for (int k = 0; k < n; ++k) {
        points.append(QPointF(x[k], y[k]));
    }
    return points;
}
