// SPDX-License-Identifier: GPL-3.0-or-later
// Values of runs in dB and back.
#include "report/Units.h"

#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "session/Units.h"

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

double zeroDbOf(const Data& data)
{
    return adaptedParameter(data.mainParameter)->isOfCarrier ? 1.0 : inPercent(1.0);
}

} // namespace

double decibelsOf(const Data& data, double value)
{
    return value > 0.0 ? dbPerDecade * std::log10(value / zeroDbOf(data))
                       : std::numeric_limits<double>::quiet_NaN();
}

double valueOfDecibels(const Data& data, double decibels)
{
    return zeroDbOf(data) * std::pow(10.0, decibels / dbPerDecade);
}

LevelOrShare levelOrShare(const Data& data, double value, const std::optional<double>& carrier)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    if (!adaptedParameter(data.mainParameter)->isOfCarrier) {
        return {decibelsOf(data, value), nan};
    }
    return {nan, carrier ? inPercent(value / *carrier) : nan};
}
