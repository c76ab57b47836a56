// SPDX-License-Identifier: GPL-3.0-or-later
// When a program has painted its window for the first time.
#include "FirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <ctime>
#include <iostream>

FirstPaint::FirstPaint(QWidget& window)
{
    window.installEventFilter(this);
}

// The children are painted and the window is brought to the screen before the event loop goes on.
bool FirstPaint::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QTimer::singleShot(0, this, &FirstPaint::report);
    }
    return QObject::eventFilter(watched, event);
}

void FirstPaint::report()
{
    constexpr double nsPerSecond = 1e9;
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double start = QCoreApplication::arguments().value(1).toDouble() / nsPerSecond;
    std::cout << double(now.tv_sec) + double(now.tv_nsec) / nsPerSecond - start << std::endl;
    QCoreApplication::quit();
}
