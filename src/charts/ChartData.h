// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/Spectrum.h"

#include <QPointF>
#include <QVector>

/// The standard or the deviant: its sound and its spectrum, each with what its chart shows.
struct Stimulus {
    QVector<double> samples; ///< full scale is +-1
    QVector<QPointF> points; ///< (ms, amplitude)
    QVector<double> range; ///< smallest and largest sample
    Spectrum spectrum;
    QVector<QPointF> spectrumPoints; ///< (Hz, amplitude)
    QVector<double> amplitudeRange; ///< smallest and largest amplitude of the spectrum
};

namespace quorin {

/// The limits of the trend's vertical axis while there is nothing to show, % or Hz.
constexpr double emptyTrendMin = 0.0;
constexpr double emptyTrendMax = 100.0;

} // namespace quorin

/// The time of sample k in ms, k / fs * 1000.
double sampleTime(int k, double fs);

/// Lengthens a time axis in ms to at least nPoints entries, entry k at sampleTime(k); never
/// shortens.
void extendTimeAxis(QVector<double>& timeAxis, int nPoints, double fs);

/// The time axis of the plotted samples in ms, one entry a sample.
/// @param nPoints below 1 gives an empty axis
QVector<double> plottedTimes(int nPoints, double fs);

/// Smallest and largest element, the first found on ties; {-1, 1} for an empty vector, so that an
/// empty sound still has a range that an axis can show.
QVector<double> amplitudeRange(const QVector<double>& samples);

/// The first n points (x[i], y[i]), n limited to what both vectors hold; none when it is negative.
QVector<QPointF> chartPoints(const QVector<double>& x, const QVector<double>& y, int n);

/// Overwrites the first n points by (x[i], y[i]), n limited to what both vectors hold. The list
/// keeps its length unless it is too short, then it becomes n.
void overwritePoints(
    QVector<QPointF>& points, const QVector<double>& x, const QVector<double>& y, int n);
