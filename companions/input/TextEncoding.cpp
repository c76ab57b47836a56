// SPDX-License-Identifier: GPL-3.0-or-later
// What can be told of a text's encoding from its first bytes.
#include "input/TextEncoding.h"

bool isUtf16(const QByteArray& text)
{
    constexpr int fewest = 8;
    return text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff")
        || (text.size() >= fewest && (text[0] == '\0') != (text[1] == '\0')
            && (text[2] == '\0') == (text[0] == '\0') && (text[3] == '\0') == (text[1] == '\0'));
}
