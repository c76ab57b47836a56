// SPDX-License-Identifier: GPL-3.0-or-later
// Counts of samples, points and bins, made of numbers of any size.
#include "session/Counts.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace quorin;

int truncatedCount(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

int flooredCount(double value)
{
    return truncatedCount(std::floor(value));
}

int soundLength(double fs, double duration)
{
    return std::min(flooredCount(fs * duration), longestSound);
}

int plottedPoints(double fs, double span, int nSamples)
{
    return std::min({flooredCount(fs * span), nSamples, mostPlottedPoints});
}

long long spectrumLength(int nSamples)
{
    constexpr double ln2 = 0.6931471805599453;
    const double bits = std::ceil(std::log(std::max(nSamples, 1)) / ln2);
    return static_cast<long long>(std::exp2(bits));
}
