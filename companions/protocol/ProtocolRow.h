// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/CsvParser.h"
#include "protocol/Protocol.h"

namespace quorin {

/// What the listener reads in a break whose cell says "yes".
constexpr char plainBreakText[] = "Break";

} // namespace quorin

/// Makes a row of its cells and fills in the empty ones: with what the panel shows as it opens, and
/// where that depends on other cells with what it shows then.
/// @param cells      of all columns, by ProtocolColumnIndex, without blanks around; empty and with
///                   the row's line for the columns that the file does not have
/// @param complaints gets one for each cell that the panel would not take as it stands, or that
///                   contradicts others
ProtocolRow protocolRow(
    const QVector<CsvCell>& cells, int line, QVector<ProtocolComplaint>& complaints);

/// What the panel is to hold for the runs of a row. Set in this order, no choice ever meets one
/// that it excludes, and no field is put back by a choice that is set after it.
QVector<PanelSetting> panelSettings(const ProtocolRow& row);
