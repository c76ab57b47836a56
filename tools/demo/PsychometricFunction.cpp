// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/PsychometricFunction.h"

#include <cmath>

namespace {

double decibels(double value)
{
    return 20.0 * std::log10(value);
}

} // namespace

double PsychometricFunction::probabilityRight(double value) const
{
    // Steps up twice as large as those down settle where 2 of 3 answers are right, which is
    // s * ln 2 below the logistic function's middle.
    const double middle = decibels(threshold) + slopeDb * std::log(2.0);
    return 0.5 + 0.5 / (1.0 + std::exp(-(decibels(value) - middle) / slopeDb));
}

double nextFraction(std::mt19937_64& generator)
{
    constexpr int unusedBits = 64 - 53;
    return static_cast<double>(generator() >> unusedBits) * 0x1p-53;
}
