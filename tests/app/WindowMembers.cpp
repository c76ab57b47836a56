// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowMembers.h"

#include "support/MainWindowProbe.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtCharts/QChartView>

using Probe = MainWindowProbe;

QVector<NamedObject> panelMembers(MainWindow& window)
{
    return {
        {"labelSesType", Probe::labelSesType(window)},
        {"labelSoundType", Probe::labelSoundType(window)},
        {"labelMainParameter", Probe::labelMainParameter(window)},
        {"labelStandard", Probe::labelStandard(window)},
        {"labelDeviant", Probe::labelDeviant(window)},
        {"labelCarrierFreq", Probe::labelCarrierFreq(window)},
        {"labelModFreq", Probe::labelModFreq(window)},
        {"labelModDepth", Probe::labelModDepth(window)},
        {"labelFreqDiff", Probe::labelFreqDiff(window)},
        {"labelDuration", Probe::labelDuration(window)},
        {"labelNReversals", Probe::labelNReversals(window)},
        {"labelNReversalsToCalc", Probe::labelNReversalsToCalc(window)},
        {"labelSilentInterval", Probe::labelSilentInterval(window)},
        {"labelSamplingRate", Probe::labelSamplingRate(window)},
        {"labelSubCode", Probe::labelSubCode(window)},
        {"labelSesNum", Probe::labelSesNum(window)},
        {"labelFilePath", Probe::labelFilePath(window)},
        {"labelFileName", Probe::labelFileName(window)},
        {"comboBoxSesType", Probe::comboBoxSesType(window)},
        {"comboBoxSoundType", Probe::comboBoxSoundType(window)},
        {"comboBoxMainParameter", Probe::comboBoxMainParameter(window)},
        {"lineEditStdCarrierFreq", Probe::lineEditStdCarrierFreq(window)},
        {"lineEditStdModFreq", Probe::lineEditStdModFreq(window)},
        {"lineEditStdModDepth", Probe::lineEditStdModDepth(window)},
        {"lineEditStdFreqDiff", Probe::lineEditStdFreqDiff(window)},
        {"lineEditStdDuration", Probe::lineEditStdDuration(window)},
        {"lineEditDevCarrierFreq", Probe::lineEditDevCarrierFreq(window)},
        {"lineEditDevModFreq", Probe::lineEditDevModFreq(window)},
        {"lineEditDevModDepth", Probe::lineEditDevModDepth(window)},
        {"lineEditDevFreqDiff", Probe::lineEditDevFreqDiff(window)},
        {"lineEditDevDuration", Probe::lineEditDevDuration(window)},
        {"lineEditNReversals", Probe::lineEditNReversals(window)},
        {"lineEditNReversalsToCalc", Probe::lineEditNReversalsToCalc(window)},
        {"lineEditSilentInterval", Probe::lineEditSilentInterval(window)},
        {"lineEditSamplingRate", Probe::lineEditSamplingRate(window)},
        {"lineEditSubCode", Probe::lineEditSubCode(window)},
        {"lineEditSesNum", Probe::lineEditSesNum(window)},
        {"lineEditFilePath", Probe::lineEditFilePath(window)},
        {"lineEditFileName", Probe::lineEditFileName(window)},
        {"pushButtonView", Probe::pushButtonView(window)},
        {"pushButtonGo", Probe::pushButtonGo(window)},
        {"pushButtonQuit", Probe::pushButtonQuit(window)},
        {"checkBoxSaveData", Probe::checkBoxSaveData(window)},
        {"checkBoxResetMdFd", Probe::checkBoxResetMdFd(window)},
        {"hBoxLayoutButtons", Probe::hBoxLayoutButtons(window)},
        {"hBoxLayoutFilePath", Probe::hBoxLayoutFilePath(window)},
        {"hBoxLayoutFileName", Probe::hBoxLayoutFileName(window)},
        {"gridLayoutParameters", Probe::gridLayoutParameters(window)},
        {"gridLayoutCharts", Probe::gridLayoutCharts(window)},
        {"gridLayoutMain", Probe::gridLayoutMain(window)},
        {"centralWidget", Probe::centralWidget(window)},
    };
}

QVector<NamedObject> chartViewMembers(MainWindow& window)
{
    return {
        {"standardWaveView", Probe::standardWaveView(window)},
        {"deviantWaveView", Probe::deviantWaveView(window)},
        {"standardSpectrumView", Probe::standardSpectrumView(window)},
        {"deviantSpectrumView", Probe::deviantSpectrumView(window)},
        {"trendView", Probe::trendView(window)},
    };
}

QVector<NamedObject> subjectWindowMembers(SubjectWindow& window)
{
    return {
        {"pushButtonChoice1", Probe::pushButtonChoice1(window)},
        {"pushButtonChoice2", Probe::pushButtonChoice2(window)},
        {"pushButtonChoice3", Probe::pushButtonChoice3(window)},
        {"pushButtonChoice4", Probe::pushButtonChoice4(window)},
        {"pushButtonIAmReady", Probe::pushButtonIAmReady(window)},
        {"pushButtonDone", Probe::pushButtonDone(window)},
        {"labelThreshold", Probe::labelThreshold(window)},
        {"gridLayout", Probe::gridLayout(window)},
        {"centralWidget", Probe::centralWidget(window)},
    };
}
