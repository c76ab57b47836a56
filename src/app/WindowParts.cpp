// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowParts.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QScreen>

void placeInGrid(QGridLayout* grid, const GridPlace& place)
{
    grid->addWidget(place.widget, place.row, place.column, place.rowSpan, place.columnSpan);
}

QSize availableScreenSize()
{
    return QGuiApplication::primaryScreen()->availableSize();
}
