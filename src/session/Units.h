// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// From the record's fractions and seconds to the percent and milliseconds that are shown, and back.

constexpr double inPercent(double fraction)
{
    return fraction * 100.0;
}

constexpr double fromPercent(double percent)
{
    return percent / 100.0;
}

constexpr double inMs(double seconds)
{
    return seconds * 1000.0;
}

constexpr double fromMs(double ms)
{
    return ms / 1000.0;
}
