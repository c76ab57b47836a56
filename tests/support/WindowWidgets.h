// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVector>
#include <QWindow>

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

/// Types a duration of both sounds, ms.
inline void typeDurations(const QWidget& window, const QString& ms)
{
    type(window, "lineEditStdDuration", ms);
    type(window, "lineEditDevDuration", ms);
}

/// Chooses the type of the sounds and what is adapted.
inline void choose(const QWidget& window, int soundType, int mainParameter)
{
    comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(soundType);
    comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(mainParameter);
}

/// The buttons "1" to "4" of the listener's window.
inline QVector<QPushButton*> choiceButtons(const QWidget& window)
{
    return {buttonOf(window, "pushButtonChoice1"), buttonOf(window, "pushButtonChoice2"),
        buttonOf(window, "pushButtonChoice3"), buttonOf(window, "pushButtonChoice4")};
}

/// Sends a window what the title bar's button does.
inline void closeByTitleBar(const QWidget& window)
{
    QCloseEvent event;
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}
