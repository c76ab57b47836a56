// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/PathMeasurement.h"

/// A table for the terminal: a line a tone, then what holds for all.
QString measureTable(const MeasuredPath& path, const PathMeasurement& measurement);

/// The same as comma-separated values, a line a tone; the headings without a line end.
QString measureHeadings();
QString measureRows(const MeasuredPath& path, const PathMeasurement& measurement);
