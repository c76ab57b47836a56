// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting while the event loop runs.
#include "demo/Waiting.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

bool waitUntil(const std::function<bool()>& condition, int timeoutMs)
{
    constexpr int lookEveryMs = 5;
    if (condition()) {
        return true;
    }
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition() || elapsed.hasExpired(timeoutMs)) {
            loop.quit();
        }
    });
    look.start(lookEveryMs);
    loop.exec();
    return condition();
}

void waitFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, SLOT(quit()));
    loop.exec();
}
