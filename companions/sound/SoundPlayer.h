// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAudioFormat>
#include <QByteArray>
#include <QString>

/// 32-bit floats, as the main window plays them.
/// @param rate Hz
QAudioFormat formatOf(int nChannels, int rate);

/// Plays frames of 32-bit floats on the default output, as the main window plays its sounds, and
/// waits until they have been played. Needs a QCoreApplication.
/// @param rate Hz
/// @return what went wrong; empty if nothing did
QString playFrames(QByteArray frames, int nChannels, int rate);
