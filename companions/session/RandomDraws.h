// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <algorithm>

// How many numbers the window draws from Qt's generator: one a sample of noise, one a position.

namespace quorin {

constexpr qint64 drawsOfPosition = 1;

} // namespace quorin

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
