// SPDX-License-Identifier: GPL-3.0-or-later
// A mouse that presses buttons.
#include "demo/Mouse.h"

#include "demo/Waiting.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

namespace {

void sendMouse(QWindow& window, QEvent::Type type, const QPoint& place, Qt::MouseButtons held)
{
    QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, held, {});
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

bool press(QAbstractButton& button)
{
    constexpr int heldMs = 80;
    const QPointer<QWindow> window = button.window()->windowHandle();
    if (window.isNull() || !button.isVisible()) {
        return false;
    }
    bool isClicked = false;
    const auto connection
        = QObject::connect(&button, &QAbstractButton::clicked, [&isClicked] { isClicked = true; });
    const QPoint place = button.mapTo(button.window(), button.rect().center());
    sendMouse(*window, QEvent::MouseButtonPress, place, Qt::LeftButton);
    waitFor(heldMs);
    if (!window.isNull()) {
        sendMouse(*window, QEvent::MouseButtonRelease, place, Qt::NoButton);
    }
    QObject::disconnect(connection);
    return isClicked;
}
