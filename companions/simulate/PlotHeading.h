// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulate/Simulation.h"

#include <QRectF>
#include <QStringList>

class QPainter;
class QSize;

/// Two lines at the top of a picture that tell the listener, the rule, the runs and their seed.
/// @param swept the options that a sweep sets: the values of its first simulation are shown
/// @return what is left below, pixels
QRectF drawPlotHeading(QPainter& painter, const QSize& size, const Simulation& simulation,
    const QStringList& swept = {});
