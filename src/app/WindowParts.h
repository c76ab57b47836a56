// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <initializer_list>

class QGridLayout;
class QLabel;
class QWidget;

/// Gives an object its member's name, for tests and accessibility tools; returns it.
template <typename Object> Object* named(Object* object, const char* name)
{
    object->setObjectName(name);
    return object;
}

/// Deletes what a member points to and leaves the member null; null is fine.
template <typename Object> void deleteAndNull(Object*& pointer)
{
    delete pointer;
    pointer = nullptr;
}

/// A widget's cell in a grid.
struct GridPlace {
    QWidget* widget;
    int row;
    int column;
    int rowSpan;
    int columnSpan;
};

/// Adds every widget of a table to its cell of the grid.
void placeAllInGrid(QGridLayout* grid, std::initializer_list<GridPlace> places);

/// What helps to use a control without knowing it or without seeing it.
struct ControlHelp {
    QWidget* control;
    QLabel* label; ///< null: the control shows its name itself
    const QLabel* heading; ///< of the column, where a label stands for two controls; else null
    const char* toolTip; ///< what it means, with its unit
};

/// Gives every control of a table its tool tip and ties it to its label, or names it after label
/// and heading, for accessibility tools. The table's order becomes that of the Tab key. All
/// controls are in one window.
void describeInTabOrder(std::initializer_list<ControlHelp> controls);

/// Size of the primary screen's available area, pixels.
QSize availableScreenSize();

/// The rectangle of a window that takes a part of the screen's available area, truncated to pixels.
/// @param available      size of the screen's available area, pixels
/// @param topLeft        present top-left corner, kept when not centred but at least (5, 40)
/// @param center         whether the window is centred in the available area
/// @param widthFraction  part of the available width, limited to 0 to 1
/// @param heightFraction part of the available height, limited to 0 to 1
QRect windowRectangle(const QSize& available, const QPoint& topLeft, bool center,
    double widthFraction, double heightFraction);

/// The largest spacing between the rows of a grid, pixels, that a height has room for.
/// @param room  height that the rows themselves leave, pixels; below 0: they are too high already
/// @param nRows rows of the grid, at least 2
/// @return at least 0
int fittingSpacing(int room, int nRows);
