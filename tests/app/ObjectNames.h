// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The names of the widgets and layouts of the main window's panel, in the order of the members
/// that they are called by.
inline QStringList panelNames()
{
    return {"labelSesType", "labelSoundType", "labelMainParameter", "labelStandard", "labelDeviant",
        "labelCarrierFreq", "labelModFreq", "labelModDepth", "labelFreqDiff", "labelDuration",
        "labelNReversals", "labelNReversalsToCalc", "labelSilentInterval", "labelSamplingRate",
        "labelSubCode", "labelSesNum", "labelFilePath", "labelFileName", "comboBoxSesType",
        "comboBoxSoundType", "comboBoxMainParameter", "lineEditStdCarrierFreq",
        "lineEditStdModFreq", "lineEditStdModDepth", "lineEditStdFreqDiff", "lineEditStdDuration",
        "lineEditDevCarrierFreq", "lineEditDevModFreq", "lineEditDevModDepth",
        "lineEditDevFreqDiff", "lineEditDevDuration", "lineEditNReversals",
        "lineEditNReversalsToCalc", "lineEditSilentInterval", "lineEditSamplingRate",
        "lineEditSubCode", "lineEditSesNum", "lineEditFilePath", "lineEditFileName",
        "pushButtonView", "pushButtonGo", "pushButtonQuit", "checkBoxSaveData", "checkBoxResetMdFd",
        "hBoxLayoutButtons", "hBoxLayoutFilePath", "hBoxLayoutFileName", "gridLayoutParameters",
        "gridLayoutCharts", "gridLayoutMain", "centralWidget"};
}
