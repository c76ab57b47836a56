// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"

/// Base of test classes that make a MainWindow. On a machine without a sound device, what program
/// and Qt say of that is allowed; every other warning fails the test.
class WindowTest : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override;

protected:
    /// Allows, until the end of the running test, what Qt Charts says of axis ranges and points
    /// that are not finite.
    void tolerateUndefinedChartValues();
};
