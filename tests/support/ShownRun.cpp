// SPDX-License-Identifier: GPL-3.0-or-later
// A run whose subject window is on the screen and has the keyboard.
#include "support/ShownRun.h"

#include <QApplication>
#include <QTest>

ShownRun::ShownRun()
{
    driver.open();
    QApplication::setActiveWindow(&subject());
    isShown = QTest::qWaitForWindowActive(&subject());
}

bool ShownRun::awaitsAnswer()
{
    driver.beReady();
    driver.playTrial();
    return isShown;
}
