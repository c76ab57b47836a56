// SPDX-License-Identifier: GPL-3.0-or-later
// What both windows are built with: cells and rows of a grid, tool tips, the place on the screen.
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

QRect windowRectangle(const QSize& available, const QPoint& topLeft, bool center,
    double widthFraction, double heightFraction)
{
    constexpr int leastX = 5;
    constexpr int leastY = 40;
    const int width = static_cast<int>(available.width() * qBound(0.0, widthFraction, 1.0));
    const int height = static_cast<int>(available.height() * qBound(0.0, heightFraction, 1.0));
    const QSize size(width, height);
    if (center) {
        return {QPoint((available.width() - width) / 2, (available.height() - height) / 2), size};
    }
    return {QPoint(qMax(topLeft.x(), leastX), qMax(topLeft.y(), leastY)), size};
}

int fittingSpacing(int room, int nRows)
{
    return qMax(room, 0) / (nRows - 1);
}
