// SPDX-License-Identifier: GPL-3.0-or-later
// All that depends on which parameter of the deviant is adapted, but for the panel's fields.
#include "session/AdaptedParameter.h"

#include "session/Data.h"
#include "session/Units.h"

#include <array>

using namespace quorin;

namespace {

constexpr std::array<AdaptedParameter, 2> parameters {{
    {"carrier frequency", "frequency difference (Hz)", "Frequency difference (Hz)",
        "Frequency Difference", "Hz", true, 0.05, 0.9999}, // the deviant's carrier stays above 0 Hz
    {"modulation depth", "modulation depth (%)", "Modulation Depth (%)", "Modulation Threshold",
        "%", false, 0.5, 1.0},
}};

} // namespace

double AdaptedParameter::shown(double fraction, double standardCarrier) const
{
    return isOfCarrier ? fraction * standardCarrier : inPercent(fraction);
}

const AdaptedParameter* adaptedParameter(int mainParameter)
{
    switch (mainParameter) {
    case carrierFrequencyParameter:
    case modulationDepthParameter:
        return &parameters[static_cast<size_t>(mainParameter)];
    default:
        return nullptr;
    }
}

QStringList adaptedParameterNames()
{
    QStringList names;
    for (const AdaptedParameter& parameter : parameters) {
        names.append(parameter.name);
    }
    return names;
}

double adaptedValue(const Data& data)
{
    switch (data.mainParameter) {
    case carrierFrequencyParameter:
        return data.fd[deviant];
    case modulationDepthParameter:
        return data.md[deviant];
    default:
        return 0.0;
    }
}

void setAdaptedValue(Data& data, double fraction)
{
    switch (data.mainParameter) {
    case carrierFrequencyParameter:
        data.fd[deviant] = fraction;
        data.cf[deviant] = (1 - fraction) * data.cf[standard];
        break;
    case modulationDepthParameter:
        data.md[deviant] = fraction;
        break;
    default:
        break;
    }
}
