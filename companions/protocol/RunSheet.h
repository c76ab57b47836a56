// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/RunOrder.h"

/// A table of the runs for the terminal: number, row, repeat, state, and those of the row's cells
/// that are not the same in all rows; a line of its own for each break. The first run that is not
/// completed is the next one.
/// @param runs      in the order of the session
/// @param completed identifiers of runs
QString runSheet(
    const Protocol& protocol, const QVector<ProtocolRun>& runs, const QStringList& completed);
