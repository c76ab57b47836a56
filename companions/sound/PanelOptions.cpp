// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's fields as options of a command line.
#include "sound/PanelOptions.h"

#include "procedure/StaircaseRule.h"
#include "protocol/ProtocolCells.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/ProtocolRow.h"
#include "session/AdaptedParameter.h"
#include "session/Counts.h"
#include "session/PanelNumbers.h"

#include <QCommandLineParser>
#include <QRegularExpression>

using namespace quorin;

namespace {

constexpr auto valueOption = "value";

bool isOfPanel(int column)
{
    return protocolColumn(column).widget != nullptr;
}

// "standard duration (ms)" is --standard-duration.
QString optionName(const QString& heading)
{
    static const QRegularExpression unit(" \\(.*\\)$");
    static const QRegularExpression gap("[ /]");
    return QString(heading).remove(unit).replace(gap, "-");
}

QString optionHelp(int column)
{
    switch (column) {
    case deviantCarrierColumn:
    case deviantDepthColumn:
    case deviantDifferenceColumn:
        return QString("Needs --%1 no. Default: where a run starts.")
            .arg(optionName(protocolColumn(resetColumn).name));
    default:
        break;
    }
    const QString choices = choicesOf(column).join(" or ");
    return (choices.isEmpty() ? QString() : choices + ". ")
        + "Default: " + emptyRowTexts().at(column) + '.';
}

QString valueName(int column)
{
    const ProtocolColumn& kind = protocolColumn(column);
    if (kind.kind == CellKind::number || kind.kind == CellKind::wholeNumber) {
        return *kind.unit == '\0' ? "number" : kind.unit;
    }
    return "choice";
}

Data recordOf(const QVector<QString>& texts)
{
    Data data;
    data.soundType = choicesOf(soundTypeColumn).indexOf(texts[soundTypeColumn]);
    data.mainParameter = choicesOf(mainParameterColumn).indexOf(texts[mainParameterColumn]);
    data.dur
        = {readDuration(texts[standardDurationColumn]), readDuration(texts[deviantDurationColumn])};
    data.cf
        = {readFrequency(texts[standardCarrierColumn]), readFrequency(texts[deviantCarrierColumn])};
    data.mf = {readFrequency(texts[standardModulationColumn]),
        readFrequency(texts[deviantModulationColumn])};
    data.md = {readDepth(texts[standardDepthColumn]), readDepth(texts[deviantDepthColumn])};
    data.fd = {readDifference(texts[standardDifferenceColumn], data.cf[standard]),
        readDifference(texts[deviantDifferenceColumn], data.cf[standard])};
    data.resetMdFd = texts[resetColumn] == "yes";
    if (data.resetMdFd) {
        resetDeviant(data);
    }
    data.silentInterval = readDuration(texts[silentIntervalColumn]);
    data.fs = readFrequency(texts[samplingRateColumn]);
    for (const int i : {standard, deviant}) {
        data.nSamples[i] = soundLength(data.fs, data.dur[i]);
    }
    return data;
}

/// The value is held to what the deviant's field of what is adapted may hold.
QString readValue(const QString& value, QVector<QString> texts, Data& data)
{
    const bool isOfCarrier = data.mainParameter == carrierFrequencyParameter;
    const int column = isOfCarrier ? deviantDifferenceColumn : deviantDepthColumn;
    texts[column] = value;
    QString complaint = cellComplaint(column, value);
    if (complaint.isEmpty()) {
        complaint = rangeComplaint(column, texts);
    }
    if (!complaint.isEmpty()) {
        return QString("--%1: %2").arg(valueOption, complaint);
    }
    setAdaptedValue(
        data, isOfCarrier ? readDifference(value, data.cf[standard]) : readDepth(value));
    return {};
}

QString firstComplaint(const QVector<ProtocolComplaint>& complaints)
{
    return complaints.isEmpty()
        ? QString()
        : QString("--%1: %2").arg(optionName(complaints[0].column), complaints[0].text);
}

} // namespace

void addPanelOptions(QCommandLineParser& parser)
{
    for (int column = 0; column < nProtocolColumns; ++column) {
        if (isOfPanel(column)) {
            parser.addOption(
                {optionName(protocolColumn(column).name), optionHelp(column), valueName(column)});
        }
    }
    parser.addOption({valueOption,
        "Value of the deviant in the trial, modulation depth in % or frequency difference in Hz. "
        "Default: that of the first trial.",
        "number"});
}

QString readPanelOptions(const QCommandLineParser& parser, Data& data)
{
    QVector<CsvCell> cells(nProtocolColumns);
    for (int column = 0; column < nProtocolColumns; ++column) {
        const QString option = optionName(protocolColumn(column).name);
        if (isOfPanel(column) && parser.isSet(option)) {
            cells[column].text = parser.value(option).trimmed();
            if (cells[column].text.isEmpty()) {
                return "--" + option + " needs a value";
            }
        }
    }
    QVector<ProtocolComplaint> complaints;
    const QVector<QString> texts = protocolRow(cells, 1, complaints).texts;
    if (!complaints.isEmpty()) {
        return firstComplaint(complaints);
    }
    data = recordOf(texts);
    return parser.isSet(valueOption) ? readValue(parser.value(valueOption), texts, data)
                                     : QString();
}

Data openingRecord()
{
    return recordOf(emptyRowTexts());
}
