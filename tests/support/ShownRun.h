// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DrivenRun.h"

#include <QTest>
#include <QWindow>

/// A run whose subject window is open, on the screen and has the keyboard, so that the window
/// system decides who gets mouse and keys.
struct ShownRun : DrivenRun {
    ShownRun();

    /// Presses "I am ready" and plays the first trial.
    /// @return isShown
    bool awaitsAnswer();
    /// The trials answered so far.
    const QVector<Record>& records() { return data.records; }

    bool isShown;
};

/// Clicks on the middle of a widget as the mouse does: the window system decides who gets it.
inline void clickOn(const QWidget& widget)
{
    const QWidget& window = *widget.window();
    QTest::mouseClick(
        window.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window, widget.rect().center()));
}
