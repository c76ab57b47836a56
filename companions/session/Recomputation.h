// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordReader.h"

#include <QStringList>

/// Computes a run again from the first line of its record and the listener's answers, by the
/// functions that the windows use, and compares positions, values, judgements, results and the
/// digest of every sound. Seeds Qt's generator.
/// @return a text for each figure that is not the recorded one; empty if all are the same
QStringList differencesOf(const RunRecord& run);
