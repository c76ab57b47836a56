// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPair>
#include <QVector>

class MainWindow;
class QObject;
class SubjectWindow;

using NamedObject = QPair<const char*, QObject*>;

/// The widgets and layouts of the main window's panel by their members' names, in the order of
/// their declaration.
QVector<NamedObject> panelMembers(MainWindow& window);

/// The views of the five charts by their members' names.
QVector<NamedObject> chartViewMembers(MainWindow& window);

/// The widgets and the layout of the subject window by their members' names, in the order of their
/// declaration.
QVector<NamedObject> subjectWindowMembers(SubjectWindow& window);
