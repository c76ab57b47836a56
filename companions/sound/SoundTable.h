// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/SoundFigures.h"

#include <QString>

#include <array>

/// The figures of standard and deviant.
using BothFigures = std::array<SoundFigures, 2>;

/// A table for the terminal: a line a figure, a column a sound.
QString soundTable(const BothFigures& figures, const QVector<int>& lengths, double rate);

/// The same as comma-separated values, a line a sound; the headings without a line end.
QString soundHeadings();
QString soundRows(const BothFigures& figures, const QVector<int>& lengths, double rate);
