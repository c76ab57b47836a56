// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowParts.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

void placeAllInGrid(QGridLayout* grid, std::initializer_list<GridPlace> places)
{
    for (const GridPlace& place : places) {
        grid->addWidget(place.widget, place.row, place.column, place.rowSpan, place.columnSpan);
    }
}

void describeInTabOrder(std::initializer_list<ControlHelp> controls)
{
    QWidget* previous = nullptr;
    for (const ControlHelp& help : controls) {
        help.control->setToolTip(help.toolTip);
        if (help.heading != nullptr) {
            help.control->setAccessibleName(help.heading->text() + ": " + help.label->text());
        } else if (help.label != nullptr) {
            help.label->setBuddy(help.control);
        }
        if (previous != nullptr) {
            QWidget::setTabOrder(previous, help.control);
        }
        previous = help.control;
    }
}

QSize availableScreenSize()
{
    return QGuiApplication::primaryScreen()->availableSize();
}
