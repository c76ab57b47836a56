// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// A line of comma-separated values with its end: fields with a comma, a quotation mark or a line
/// break are quoted.
QString csvLine(const QStringList& fields);

/// A number with up to 10 significant digits; empty for NaN.
QString csvNumber(double number);
