// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's sixteen fields with their good texts, and the hostile ones.
#include "hostile/PanelFields.h"

#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"
#include "support/WindowWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSet>

using namespace quorin;

const QVector<PanelField>& panelFields()
{
    static const QVector<PanelField> fields({
        {"lineEditStdCarrierFreq", "1000.00"},
        {"lineEditStdModFreq", "400.00"},
        {"lineEditStdModDepth", "0.0000"},
        {"lineEditStdFreqDiff", "0.0000"},
        {"lineEditStdDuration", "5.00"},
        {"lineEditDevCarrierFreq", "1000.00"},
        {"lineEditDevModFreq", "400.00"},
        {"lineEditDevModDepth", "50.0000"},
        {"lineEditDevFreqDiff", "0.0000"},
        {"lineEditDevDuration", "6.00"},
        {"lineEditNReversals", "14"},
        {"lineEditNReversalsToCalc", "8"},
        {"lineEditSilentInterval", "3600000.00"},
        {"lineEditSamplingRate", "40000"},
        {"lineEditSubCode", "SUB001"},
        {"lineEditSesNum", "1"},
    });
    return fields;
}

void typeGoodTexts(MainWindow& window)
{
    comboBoxOf(window, "comboBoxSesType")->setCurrentIndex(1);
    comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(modulationDepthParameter);
    comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(noiseCarrier);
    checkBoxOf(window, "checkBoxResetMdFd")->setChecked(true);
    checkBoxOf(window, "checkBoxSaveData")->setChecked(false);
    for (const PanelField& field : panelFields())
        type(window, field.name, field.goodText);
}

const QVector<HostileText>& hostileTexts()
{
    constexpr int longLength = 100000;
    static const QVector<HostileText> texts({
        {"nothing", ""},
        {"blanks", "   "},
        {"abc", "abc"},
        {"1e", "1e"},
        {"0", "0"},
        {"-1", "-1"},
        {"-0", "-0"},
        {"0.0001", "0.0001"},
        {"1e9", "1e9"},
        {"1e308", "1e308"},
        {"-1e308", "-1e308"},
        {"nan", "nan"},
        {"inf", "inf"},
        {"-inf", "-inf"},
        {"1,5", "1,5"},
        {"most that an int holds", "2147483647"},
        {"Arabic digits", QString::fromUtf8("\u0661\u0662\u0663")},
        {"Devanagari digits", QString::fromUtf8("\u0967\u0968\u0969")},
        {"wide digits", QString::fromUtf8("\uff11\uff12\uff13")},
        {"100,000 nines", QString(longLength, '9')},
        {"100,000 letters", QString(longLength, 'x')},
        {"control characters", QString::fromLatin1("1\0\x01\x07\b\t\n\r\x1b[31m\x7f", 13)},
        {"emoji", QString::fromUtf8("\U0001f600")},
        {"half an emoji", QString(QChar(0xd83d))},
        {"right to left", QString(QChar(0x202e)) + "1000"},
        {"percent signs", "%s%n%1"},
        {"folders up", "../../x"},
    });
    return texts;
}

bool makesLongSounds(const PanelField& field, const HostileText& text)
{
    static const QSet<QString> fields(
        {"lineEditStdDuration", "lineEditDevDuration", "lineEditSamplingRate"});
    static const QSet<QString> large(
        {"1e9", "1e308", "inf", "100,000 nines", "most that an int holds"});
    return fields.contains(field.name) && large.contains(text.name);
}
