// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/Protocol.h"

#include <QByteArray>

namespace quorin {

/// Limits of a protocol.
constexpr int mostProtocolBytes = 1 << 20;
constexpr int mostProtocolRuns = 10000;

} // namespace quorin

/// Reads a protocol: comma-separated values in UTF-8, with a byte order mark or without, a line of
/// headings and a line for each condition. Cells are taken without the blanks around them, empty
/// lines are skipped. All wrong cells are told; where the file itself or its headings are wrong,
/// only these. For what editors and spreadsheets do to a file the text names the cause.
/// @param bytes of the whole file
Protocol readProtocol(const QByteArray& bytes);

/// A complaint as a line of text: line 3, column "session": ...
QString complaintText(const ProtocolComplaint& complaint);
