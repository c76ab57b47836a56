// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

class QGridLayout;
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

/// Adds one widget to its cell of the grid.
void placeInGrid(QGridLayout* grid, const GridPlace& place);

/// Adds every widget of a table to its cell of the grid.
template <typename Places> void placeAllInGrid(QGridLayout* grid, const Places& places)
{
    for (const GridPlace& place : places) {
        placeInGrid(grid, place);
    }
}

/// Size of the primary screen's available area, pixels.
QSize availableScreenSize();
