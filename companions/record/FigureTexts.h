// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

// Figures of a record as messages tell them: a number to its last bit, so that two are the same
// where their texts are.

QString textOf(double number);
QString textOf(int number);
/// "yes" or "no".
QString textOf(bool truth);
QString textOf(const QString& text);
/// "none" where there is no number.
QString textOf(const std::optional<double>& number);
