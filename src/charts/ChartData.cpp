// SPDX-License-Identifier: GPL-3.0-or-later
// What the charts show, as plain vectors: times, points and ranges.
#include "charts/ChartData.h"

#include "session/Units.h"

#include <algorithm>

double sampleTime(int k, double fs)
{
    return inMs(k / fs);
}

void extendTimeAxis(QVector<double>& timeAxis, int nPoints, double fs)
{
    timeAxis.reserve(nPoints);
    for (int k = timeAxis.size(); k < nPoints; ++k) {
        timeAxis.append(sampleTime(k, fs));
    }
}

QVector<double> plottedTimes(int nPoints, double fs)
{
    QVector<double> times;
    extendTimeAxis(times, nPoints, fs);
    return times;
}

QVector<double> amplitudeRange(const QVector<double>& samples)
{
    if (samples.isEmpty()) {
        return {-1.0, 1.0};
    }
    const double smallest = *std::min_element(samples.begin(), samples.end());
    const double largest = *std::max_element(samples.begin(), samples.end());
    return {smallest, largest};
}

QVector<QPointF> chartPoints(const QVector<double>& x, const QVector<double>& y, int n)
{
    QVector<QPointF> points;
    overwritePoints(points, x, y, n);
    return points;
}

void overwritePoints(
    QVector<QPointF>& points, const QVector<double>& x, const QVector<double>& y, int n)
{
    const int nPoints = std::min({n, x.size(), y.size()});
    if (points.size() < nPoints) {
        points.resize(nPoints);
    }
    for (int i = 0; i < nPoints; ++i) {
        points[i] = QPointF(x[i], y[i]);
    }
}
