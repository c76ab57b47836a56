// SPDX-License-Identifier: GPL-3.0-or-later
#include "subject/ResultText.h"

#include "session/Data.h"

namespace {

QString shortNumber(double value)
{
    constexpr int significantDigits = 6;
    return QString::number(value, 'g', significantDigits);
}

} // namespace

QString resultText(
    double threshold, double reactionTime, int mainParameter, double carrierFrequency)
{
    const QString rest = ",   Reaction Time = " + shortNumber(reactionTime) + " ms";
    switch (mainParameter) {
    case modulationDepthParameter:
        return "Modulation Threshold = " + shortNumber(threshold * 100) + " %" + rest;
    case carrierFrequencyParameter:
        return "Frequency Difference = " + shortNumber(threshold * carrierFrequency) + " Hz" + rest;
    default:
        return {};
    }
}
