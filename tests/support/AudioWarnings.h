// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpression>
#include <QString>

// What the windows say of sounds that cannot be played.
inline const QString notSupported("Raw audio format not supported by backend, cannot play audio.");
inline const QString stopped("Audio stopped unexpectedly");
inline const QRegularExpression anyStopped("^Audio stopped unexpectedly$");
