// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <functional>

class QPainter;

/// Draws one picture. The painter's units are pixels of 1/96 inch with the origin at the top left,
/// whatever the kind of file; fonts want setPixelSize().
using Drawing = std::function<void(QPainter& painter, const QSize& size)>;

/// Lets a program draw text without a display: to be called before its QGuiApplication is made.
/// Silences Qt's own warnings, which would tell the user of a command line what is missing of a
/// desktop.
void drawWithoutDisplay();

/// What is wrong with a picture file's name: empty if it ends in .png, .svg or .pdf, in any case.
QString pictureNameError(const QString& path);

/// Draws a picture as SVG, for a page that holds it. Needs a QGuiApplication.
/// @return the element svg without anything before or after it; empty if it could not be drawn
QByteArray svgPicture(const QSize& size, const Drawing& draw);

/// Draws into a picture file of the kind that its suffix tells. The file appears whole or, after a
/// failure, not at all. It carries the program's name and version. Needs a QGuiApplication.
/// @param size     of the picture, pixels; a PNG has twice as many in each direction
/// @param isForced whether a picture of a companion may be replaced; no other file ever is
/// @return what went wrong; empty if the file was written
QString writePicture(
    const QString& path, const QSize& size, const Drawing& draw, bool isForced = false);
