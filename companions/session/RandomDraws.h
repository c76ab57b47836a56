// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <algorithm>

// How many numbers the window draws from Qt's generator: one a sample of noise, one a position.

namespace quorin {

constexpr qint64 drawsOfPosition = 1;

} // namespace quorin

/// Puts the generator where so many numbers have been drawn since it was seeded. Draws them, since
/// it has no other way there.
inline void seedGenerator(uint seed, qint64 draws)
{
    qsrand(seed);
    for (qint64 i = 0; i < draws; ++i) {
        static_cast<void>(qrand());
    }
}

/// For a new deviant after an answer.
inline qint64 drawsOfStep(const Data& data)
{
    return data.soundType == quorin::noiseCarrier ? std::max(data.nSamples[quorin::deviant], 0) : 0;
}

/// For both sounds, at View and when the window is made.
inline qint64 drawsOfView(const Data& data)
{
    const int nStandard
        = data.soundType == quorin::noiseCarrier ? std::max(data.nSamples[quorin::standard], 0) : 0;
    return nStandard + drawsOfStep(data);
}
