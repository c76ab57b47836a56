// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"

#include <QString>

struct RunRecord;

/// What keeps a recorded run from being a whole one, and after which trial: it was abandoned or cut
/// short. Empty if nothing does: all its reversals are there.
QString lackOfRecord(const RunRecord& record);

/// What became of a record that was to be taken as a run.
struct RecordTaken {
    Complaint complaint; ///< why the run cannot be used; without text if it can
    QString leftOut; ///< why it is left out although nothing is wrong; empty if it is not
};

/// Takes a run from its record and judges it, by the record's own rule as far as the other one is
/// left open. An incomplete run is left out.
/// @param run         with its path; filled like that of a results file, with the settings
/// @param isUnchecked whether a run whose lines contradict each other, or an incomplete one that
///                    has trials, is taken nevertheless
RecordTaken takeRecord(Run& run, const RunRecord& record, const RunRule& rule, bool isUnchecked);
