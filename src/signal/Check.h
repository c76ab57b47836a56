// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

/// Writes "file:line: check failed: text" to the standard error and aborts.
[[noreturn]] inline void stopAtCheck(const char* file, int line, const char* text)
{
    std::fprintf(stderr, "%s:%d: check failed: %s\n", file, line, text);
    std::fflush(stderr);
    std::abort();
}

/// Stops the program when the condition is false, in every build: unlike assert and Q_ASSERT it
/// does not depend on NDEBUG. The text is given apart, so that no formatting of the code alters it.
#define QUORIN_CHECK(condition, text)                                                              \
    ((condition) ? static_cast<void>(0) : stopAtCheck(__FILE__, __LINE__, text))
