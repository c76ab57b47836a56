// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

/// Ends the event loop when a window has been painted for the first time, and writes to the
/// standard output how many seconds that took since the time in the program's first argument, which
/// is CLOCK_MONOTONIC in ns.
class FirstPaint : public QObject {
    Q_OBJECT

public:
    explicit FirstPaint(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    static void report();
};
