// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

/// The record's depth, difference (both fractions) and carrier frequency (Hz) of the deviant.
inline QVector<double> deviantValues(MainWindow& window)
{
    const Data& data = MainWindowProbe::data(window);
    return {data.md[quorin::deviant], data.fd[quorin::deviant], data.cf[quorin::deviant]};
}

/// What the panel shows of them.
inline QStringList deviantFields(const MainWindow& window)
{
    return {textOf(window, "lineEditDevModDepth"), textOf(window, "lineEditDevFreqDiff"),
        textOf(window, "lineEditDevCarrierFreq")};
}
