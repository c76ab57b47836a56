// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program where a property does not hold: libFuzzer then reports and keeps the input.
inline void demand(bool holds, const char* property)
{
    if (!holds) {
        std::fprintf(stderr, "property does not hold: %s\n", property);
        std::abort();
    }
}
