// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

class MainWindow;

/// What a window holds and shows after View: the record, the sounds, their spectra, the charts, the
/// fields and what can be pressed.
struct WindowState {
    QVector<QPair<QString, QVector<double>>> numbers; ///< by name
    QStringList texts;
};

/// Left out is what View is not to reset: how long the list of reversals has become, the number of
/// trials that the trend's horizontal axis shows, and the rate that the last Go set for playback.
WindowState stateOf(MainWindow& window);

/// The name of the first numbers that differ, the first text that does, or nothing. NaN equals NaN.
QString difference(const WindowState& a, const WindowState& b);
