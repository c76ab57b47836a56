// SPDX-License-Identifier: GPL-3.0-or-later
// What single cells of a protocol may hold, and how large their numbers may be.
#include "protocol/ProtocolCells.h"

#include "input/SamplingRates.h"
#include "protocol/ProtocolColumns.h"
#include "session/AdaptedParameter.h"
#include "session/Counts.h"
#include "session/Data.h"
#include "session/Units.h"

#include <cmath>

using namespace quorin;

namespace {

constexpr double lowestCarrier = 1.0; // Hz
constexpr double leastAdapted = 0.0001; // %, Hz: less is shown as 0, from which no step leads away
constexpr double fullDepth = 100.0;
constexpr double longestSilence = 60000.0;
constexpr double mostReversals = 1000.0; // the trend stops answering with many more trials
constexpr double lastSession = 999999.0;
constexpr double mostRepeats = 1000.0;

struct Range {
    double min;
    double max;
};

double numberIn(const QVector<QString>& texts, int column)
{
    return texts[column].toDouble();
}

double samplingRate(const QVector<QString>& texts)
{
    const double rate = numberIn(texts, samplingRateColumn);
    return rate >= slowestRate && rate <= fastestRate ? rate : Data().fs;
}

double leastOf(int mainParameter, const QVector<QString>& texts)
{
    const QString name = adaptedParameter(mainParameter)->name;
    return texts[mainParameterColumn] == name ? leastAdapted : 0.0;
}

Range differenceRange(const QVector<QString>& texts)
{
    const double ceiling = adaptedParameter(carrierFrequencyParameter)->ceiling;
    return {leastOf(carrierFrequencyParameter, texts),
        ceiling * std::max(numberIn(texts, standardCarrierColumn), lowestCarrier)};
}

Range rangeOf(int column, const QVector<QString>& texts)
{
    const double highest = samplingRate(texts) / 2.0;
    switch (column) {
    case standardCarrierColumn:
        return {lowestCarrier, highest};
    case deviantCarrierColumn:
    case standardModulationColumn:
    case deviantModulationColumn:
    case standardDifferenceColumn:
        return {0.0, highest};
    case standardDepthColumn:
        return {0.0, fullDepth};
    case deviantDepthColumn:
        return {leastOf(modulationDepthParameter, texts), fullDepth};
    case deviantDifferenceColumn:
        return differenceRange(texts);
    case standardDurationColumn:
    case deviantDurationColumn:
        return {1.0, std::floor(inMs(longestSound / samplingRate(texts)))};
    case reversalsColumn:
        return {1.0, mostReversals};
    case reversalsToCalculateColumn:
        return {1.0, std::max(1.0, numberIn(texts, reversalsColumn))};
    case silentIntervalColumn:
        return {0.0, longestSilence};
    case samplingRateColumn:
        return {slowestRate, fastestRate};
    case sessionColumn:
        return {1.0, lastSession};
    default:
        return {1.0, mostRepeats};
    }
}

QString limit(double number)
{
    constexpr int digits = 10;
    return QString::number(number, 'g', digits);
}

bool isNumber(const QString& text, bool isWhole)
{
    bool isRead = false;
    const double number = isWhole ? text.toInt(&isRead, 10) : text.toDouble(&isRead);
    return isRead && std::isfinite(number);
}

QString numberComplaint(const QString& text, bool isWhole)
{
    if (isNumber(text, isWhole)) {
        return {};
    }
    if (text.contains(',') && isNumber(QString(text).replace(',', '.'), false)) {
        return quotedStart(text) + " has a decimal comma: numbers have a point";
    }
    return quotedStart(text) + (isWhole ? " is not a whole number" : " is not a number");
}

QString choiceComplaint(int column, const QString& text)
{
    const QStringList choices = choicesOf(column);
    return choices.contains(text)
        ? QString()
        : quotedStart(text) + " is not \"" + choices.join("\" or \"") + '"';
}

} // namespace

QString cellComplaint(int column, const QString& text)
{
    switch (protocolColumn(column).kind) {
    case CellKind::number:
        return numberComplaint(text, false);
    case CellKind::wholeNumber:
        return numberComplaint(text, true);
    case CellKind::choice:
    case CellKind::yesOrNo:
        return choiceComplaint(column, text);
    case CellKind::text:
        break;
    }
    return text.size() <= longestText
        ? QString()
        : QString("the text is longer than %1 characters").arg(longestText);
}

QString rangeComplaint(int column, const QVector<QString>& texts)
{
    const ProtocolColumn& kind = protocolColumn(column);
    if (kind.kind != CellKind::number && kind.kind != CellKind::wholeNumber) {
        return {};
    }
    const Range range = rangeOf(column, texts);
    const double number = numberIn(texts, column);
    if (number >= range.min && number <= range.max) {
        return {};
    }
    return QString("%1 is not from %2 to %3 %4")
        .arg(quotedStart(texts[column]), limit(range.min), limit(range.max), kind.unit)
        .trimmed();
}

QString quotedStart(const QString& text)
{
    constexpr int mostCharacters = 40;
    return '"' + text.left(mostCharacters) + (text.size() > mostCharacters ? "...\"" : "\"");
}
