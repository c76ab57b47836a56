// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace quorin {

/// What some editors put before UTF-8.
constexpr char utf8Mark[] = "\xef\xbb\xbf";

} // namespace quorin

/// Whether text seems to be in UTF-16 of either byte order: by its mark, or without one by the zero
/// bytes of its first two characters.
bool isUtf16(const QByteArray& text);
