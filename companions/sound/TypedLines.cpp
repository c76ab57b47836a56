// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of standard input, and keys that are held down.
#include "sound/TypedLines.h"

#include <array>
#include <iostream>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

using namespace quorin;

bool isTyped()
{
    return ::isatty(STDIN_FILENO) == 1;
}

// QFile takes all lines that a terminal holds, where they can no longer be thrown away.
QString nextTypedLine()
{
    std::array<char, longestTypedLine + 1> line {};
    return std::cin.getline(line.data(), line.size()) ? QString::fromLocal8Bit(line.data())
                                                      : QString();
}

bool wasTypedLineTooLong()
{
    return std::cin.fail() && !std::cin.eof();
}

// A terminal that hung up has an event for ever.
void dropTypedLines()
{
    constexpr int restMs = 1200; // a key that is held repeats after a delay of up to a second
    if (!isTyped()) {
        return;
    }
    pollfd keys {STDIN_FILENO, POLLIN, 0};
    while (::poll(&keys, 1, restMs) == 1 && keys.revents == POLLIN) {
        ::tcflush(STDIN_FILENO, TCIFLUSH);
    }
    ::tcflush(STDIN_FILENO, TCIFLUSH); // the beginning of a line
}
