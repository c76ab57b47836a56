// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"

/// Base of test classes that make a MainWindow on a machine that may have no sound device: what the
/// program and Qt say of its absence is allowed, every other warning still fails the test.
class WindowTest : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override;

protected:
    /// Allows, until the end of the running test, what Qt Charts says of axis ranges and points
    /// that are not finite.
    void tolerateUndefinedChartValues();
};
