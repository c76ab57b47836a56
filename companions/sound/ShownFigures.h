// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorin {

constexpr int decibelDecimals = 2; ///< of levels in tables
constexpr double hertzPerKilohertz = 1000.0; ///< of axes

} // namespace quorin

/// A number with so many decimals, without the minus of a zero.
inline QString shown(double value, int decimals)
{
    const QString text = QString::number(value, 'f', decimals);
    return text.toDouble() == 0.0 && text.startsWith('-') ? text.mid(1) : text;
}
