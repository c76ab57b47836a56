// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of protocols, their fields in the panel, and what empty cells stand for.
#include "protocol/ProtocolColumns.h"

#include "procedure/StaircaseRule.h"
#include "session/Data.h"
#include "session/PanelNumbers.h"

#include <array>

using namespace quorin;

namespace {

constexpr std::array<ProtocolColumn, nProtocolColumns> allColumns {{
    {"session type", "comboBoxSesType", CellKind::choice, ""},
    {"sound type", "comboBoxSoundType", CellKind::choice, ""},
    {"main parameter", "comboBoxMainParameter", CellKind::choice, ""},
    {"standard carrier frequency (Hz)", "lineEditStdCarrierFreq", CellKind::number, "Hz"},
    {"deviant carrier frequency (Hz)", "lineEditDevCarrierFreq", CellKind::number, "Hz"},
    {"standard modulation frequency (Hz)", "lineEditStdModFreq", CellKind::number, "Hz"},
    {"deviant modulation frequency (Hz)", "lineEditDevModFreq", CellKind::number, "Hz"},
    {"standard modulation depth (%)", "lineEditStdModDepth", CellKind::number, "%"},
    {"deviant modulation depth (%)", "lineEditDevModDepth", CellKind::number, "%"},
    {"standard frequency difference (Hz)", "lineEditStdFreqDiff", CellKind::number, "Hz"},
    {"deviant frequency difference (Hz)", "lineEditDevFreqDiff", CellKind::number, "Hz"},
    {"standard duration (ms)", "lineEditStdDuration", CellKind::number, "ms"},
    {"deviant duration (ms)", "lineEditDevDuration", CellKind::number, "ms"},
    {"number of reversals", "lineEditNReversals", CellKind::wholeNumber, ""},
    {"reversals to calculate", "lineEditNReversalsToCalc", CellKind::wholeNumber, ""},
    {"silent interval (ms)", "lineEditSilentInterval", CellKind::number, "ms"},
    {"sampling rate (Hz)", "lineEditSamplingRate", CellKind::wholeNumber, "Hz"},
    {"session", "lineEditSesNum", CellKind::wholeNumber, ""},
    {"reset md/fd", "checkBoxResetMdFd", CellKind::yesOrNo, ""},
    {"save data to file", "checkBoxSaveData", CellKind::yesOrNo, ""},
    {"repeat", nullptr, CellKind::wholeNumber, ""},
    {"practice", nullptr, CellKind::yesOrNo, ""},
    {"break", nullptr, CellKind::text, ""},
    {"instruction", nullptr, CellKind::text, ""},
}};

// The record as the panel shows it when its window opens.
Data openingData()
{
    Data data;
    data.sesType = 1;
    data.soundType = noiseCarrier;
    data.mainParameter = modulationDepthParameter;
    resetDeviant(data);
    return data;
}

QString yesOrNo(bool isYes)
{
    return isYes ? "yes" : "no";
}

} // namespace

const ProtocolColumn& protocolColumn(int column)
{
    return allColumns.at(static_cast<size_t>(column));
}

int protocolColumnIndex(const QString& heading)
{
    for (int column = 0; column < nProtocolColumns; ++column) {
        if (heading.compare(QLatin1String(protocolColumn(column).name), Qt::CaseInsensitive) == 0) {
            return column;
        }
    }
    return -1;
}

QVector<QString> emptyRowTexts()
{
    const Data data = openingData();
    return {data.sesTypes[data.sesType], data.soundTypes[data.soundType],
        data.mainParameters[data.mainParameter], shownFrequency(data.cf[standard]),
        shownFrequency(data.cf[deviant]), shownFrequency(data.mf[standard]),
        shownFrequency(data.mf[deviant]), shownDepth(data.md[standard]),
        shownDepth(data.md[deviant]), shownDifference(data.fd[standard], data.cf[standard]),
        shownDifference(data.fd[deviant], data.cf[standard]), shownDuration(data.dur[standard]),
        shownDuration(data.dur[deviant]), shownInteger(data.nReversals),
        shownInteger(data.nReversalsToCalculate), shownDuration(data.silentInterval),
        shownRate(data.fs), shownInteger(data.sesNum), yesOrNo(data.resetMdFd),
        yesOrNo(data.saveData), "1", "no", "", ""};
}

QStringList choicesOf(int column)
{
    const Data data;
    switch (column) {
    case sessionTypeColumn:
        return data.sesTypes;
    case soundTypeColumn:
        return data.soundTypes;
    case mainParameterColumn:
        return data.mainParameters;
    default:
        return protocolColumn(column).kind == CellKind::yesOrNo ? QStringList({"yes", "no"})
                                                                : QStringList();
    }
}
