// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Messages.h"

#include <QStringList>

class QTextStream;

/// Makes of each record a results file of its answered trials, beside it, with "_rescued.txt" in
/// the place of its ending. No file is ever replaced, and none is made where these trials are in
/// one already: a finished run's own, or one that was rescued before.
/// @param isUnchecked whether records whose lines contradict each other are taken too
/// @param output      told what was written
/// @return whether every record's trials are in a results file now
bool rescueRecords(
    const QStringList& records, bool isUnchecked, QTextStream& output, Messages& messages);
