// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// A widget or layout of a window by its object name. A name that nothing of this class has ends
/// the test program.
template <typename Object> Object* widgetOf(const QWidget& window, const QString& name)
{
    auto* const found = window.findChild<Object*>(name);
    if (found == nullptr)
        qFatal("the window has none of this name: %s", qUtf8Printable(name));
    return found;
}

/// The same for the widgets that windows have most of.
inline QPushButton* buttonOf(const QWidget& window, const QString& name)
{
    return widgetOf<QPushButton>(window, name);
}
inline QCheckBox* checkBoxOf(const QWidget& window, const QString& name)
{
    return widgetOf<QCheckBox>(window, name);
}
inline QComboBox* comboBoxOf(const QWidget& window, const QString& name)
{
    return widgetOf<QComboBox>(window, name);
}
inline QLabel* labelOf(const QWidget& window, const QString& name)
{
    return widgetOf<QLabel>(window, name);
}
inline QLineEdit* lineEditOf(const QWidget& window, const QString& name)
{
    return widgetOf<QLineEdit>(window, name);
}

/// The text of a line edit.
inline QString textOf(const QWidget& window, const QString& name)
{
    return lineEditOf(window, name)->text();
}

/// Types a text into a line edit, whatever it held before.
inline void type(const QWidget& window, const QString& name, const QString& text)
{
    lineEditOf(window, name)->setText(text);
}
