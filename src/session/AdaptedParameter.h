// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class Data;

/// What the staircase adapts in the deviant: how it is named and shown, where it starts and ends.
struct AdaptedParameter {
    const char* name; ///< in the main-parameter box and in the results file's name
    const char* columnHeading; ///< of the first column of a results file, with its unit
    const char* axisTitle; ///< of the trend, with its unit
    const char* resultName; ///< what the listener is told
    const char* unit; ///< that it is shown in
    bool isOfCarrier; ///< whether it is a fraction of the standard's carrier, not of 1
    double start; ///< fraction that a run starts from
    double ceiling; ///< largest fraction

    /// A fraction in the unit it is shown in.
    /// @param standardCarrier Hz
    double shown(double fraction, double standardCarrier) const;
};

/// One of the two parameters, carrierFrequencyParameter or modulationDepthParameter; null for any
/// other number.
const AdaptedParameter* adaptedParameter(int mainParameter);

/// The names of all parameters, in the order of their numbers.
QStringList adaptedParameterNames();

/// The deviant's value of what the record adapts, a fraction; 0 for a main parameter other than the
/// two.
double adaptedValue(const Data& data);

/// Sets that value; a frequency difference sets the deviant's carrier too, that far below the
/// standard's. A main parameter other than the two changes nothing.
void setAdaptedValue(Data& data, double fraction);
