// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QWidget>

/// A widget of a window by its object name. A name that no such widget has ends the test program.
template <typename Widget> Widget* widgetOf(const QWidget& window, const QString& name)
{
    auto* const widget = window.findChild<Widget*>(name);
    if (widget == nullptr)
        qFatal("no such widget: %s", qUtf8Printable(name));
    return widget;
}

/// The text of a line edit by its object name.
inline QString textOf(const QWidget& window, const QString& name)
{
    return widgetOf<QLineEdit>(window, name)->text();
}

/// Types a text into a line edit by its object name, whatever it held before.
inline void type(const QWidget& window, const QString& name, const QString& text)
{
    widgetOf<QLineEdit>(window, name)->setText(text);
}
