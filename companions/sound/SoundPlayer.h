// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Plays frames of 32-bit floats on the default output, as the main window plays its sounds, and
/// waits until they have been played. Needs a QCoreApplication.
/// @param rate Hz
/// @return what went wrong; empty if nothing did
QString playFrames(QByteArray frames, int nChannels, int rate);
