// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

class MainWindow;

/// A line edit of the panel that is read into the record.
struct PanelField {
    const char* name; ///< of the object
    const char* goodText;
};

/// The sixteen of them in the panel's order. Their good texts ask for sounds of 5 and 6 ms.
const QVector<PanelField>& panelFields();

/// Types the good text into every field, whatever else was typed, and sets the choices and boxes
/// as they are when a window opens.
void typeGoodTexts(MainWindow& window);

/// A text that no field is meant for.
struct HostileText {
    const char* name;
    QString text;
};

const QVector<HostileText>& hostileTexts();

/// Whether a field with this text makes a sound or a rate so large that the limits are met.
bool makesLongSounds(const PanelField& field, const HostileText& text);
