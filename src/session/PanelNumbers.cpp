// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the panel's fields.
#include "session/PanelNumbers.h"

#include "session/Units.h"

namespace {

constexpr int coarseDecimals = 2;
constexpr int fineDecimals = 4;
constexpr int rateDigits = 6;
constexpr int decimalBase = 10;

} // namespace

QString shownFrequency(double hertz)
{
    return QString::number(hertz, 'f', coarseDecimals);
}

double readFrequency(const QString& text)
{
    return text.toDouble();
}

QString shownDepth(double depth)
{
    return QString::number(inPercent(depth), 'f', fineDecimals);
}

double readDepth(const QString& text)
{
    return fromPercent(text.toDouble());
}

QString shownDifference(double difference, double standardCarrier)
{
    return QString::number(difference * standardCarrier, 'f', fineDecimals);
}

double readDifference(const QString& text, double standardCarrier)
{
    return text.toDouble() / standardCarrier;
}

QString shownDuration(double seconds)
{
    return QString::number(inMs(seconds), 'f', coarseDecimals);
}

double readDuration(const QString& text)
{
    return fromMs(text.toDouble());
}

QString shownRate(double hertz)
{
    return QString::number(hertz, 'g', rateDigits);
}

QString shownInteger(int number)
{
    return QString::number(number, decimalBase);
}

int readInteger(const QString& text)
{
    return text.toInt(nullptr, decimalBase);
}
