// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plots/Axis.h"
#include "plots/PlotArea.h"
#include "report/Run.h"

#include <QColor>
#include <QPair>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QVector>

class QPainter;
class QSize;

// What the pictures of runs and of subjects share.

namespace quorin {

constexpr QColor correctColor(31, 119, 180);
constexpr QColor wrongColor(204, 51, 34);
constexpr QColor reversalColor(60, 60, 60);
constexpr QColor thresholdColor(34, 136, 68);
constexpr QColor trackColor(170, 170, 170);

} // namespace quorin

/// The picture's title and a line of text under it.
/// @return what is left below, pixels
QRectF drawHeading(QPainter& painter, const QSize& size, const QString& title, const QString& text);

/// Coloured texts in one row above a plot, from the left.
void drawKey(
    QPainter& painter, const QRectF& inside, const QVector<QPair<QString, QColor>>& entries);

/// A vertical axis for adapted values: logarithmic if all of them are above 0.
Axis axisOfValues(const QString& title, const QVector<double>& values);

/// What the run adapts, with its unit.
QString adaptedQuantity(const Data& data);

/// The vertical coordinates of all points.
QVector<double> valuesOf(const QVector<QVector<QPointF>>& lines);

/// Reaction times of correct and of wrong answers, from 0 ms up.
void drawReactionTimes(QPainter& painter, const QRectF& outer, const Axis& x,
    const QVector<QPointF>& correct, const QVector<QPointF>& wrong, bool hasKey = true);

/// How a run is marked among others: filled for a test and open otherwise, round for a sinusoid and
/// a square otherwise.
PlotArea::Mark markOf(const Run& run);

/// The colour and the line of a run's sound: broken for noise.
QPen penOf(const Run& run);

/// The key of markOf and penOf.
QVector<QPair<QString, QColor>> keyOfRuns();

/// The runs of each main parameter that there is.
QVector<QVector<Run>> byParameter(const QVector<Run>& runs);
