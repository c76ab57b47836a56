// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorin {

/// Of a line of standard input, bytes.
constexpr int longestTypedLine = 4096;

} // namespace quorin

/// Whether standard input is a terminal, where a person answers.
bool isTyped();

/// The next line of standard input without its end. Takes no more of a terminal than that.
/// @return null at the end of the input and where a line is longer than the longest
QString nextTypedLine();

/// Whether the last line was null for its length.
bool wasTypedLineTooLong();

/// Throws away what is typed on a terminal until no line has come for 1.2 s: a key that is
/// held down types on. Does nothing where standard input is no terminal.
void dropTypedLines();
