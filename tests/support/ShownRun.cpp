// SPDX-License-Identifier: GPL-3.0-or-later
// A run whose subject window is on the screen and has the keyboard.
#include "support/ShownRun.h"

#include "support/MainWindowProbe.h"

#include <QApplication>
#include <QTest>

ShownRun::ShownRun()
    : driver(window)
    , subject(driver.open())
{
    QApplication::setActiveWindow(&subject);
    isShown = QTest::qWaitForWindowActive(&subject);
}

const QVector<Record>& ShownRun::records()
{
    return MainWindowProbe::data(window).records;
}
