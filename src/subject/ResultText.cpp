// SPDX-License-Identifier: GPL-3.0-or-later
// The text of the result label.
#include "subject/ResultText.h"

#include "session/AdaptedParameter.h"

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
    const AdaptedParameter* const adapted = adaptedParameter(mainParameter);
    if (adapted == nullptr) {
        return {};
    }
    return adapted->resultName + (" = " + shortNumber(adapted->shown(threshold, carrierFrequency)))
        + ' ' + adapted->unit + ",   Reaction Time = " + shortNumber(reactionTime) + " ms";
}
