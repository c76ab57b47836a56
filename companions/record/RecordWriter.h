// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordLines.h"

#include <QByteArray>

/// A line of a record as an object: its event and its fields.
QJsonObject lineObject(const RunBegun& line);
QJsonObject lineObject(const TrialBegun& line);
QJsonObject lineObject(const SoundStarted& line);
QJsonObject lineObject(const SoundEnded& line);
QJsonObject lineObject(const AnswerAllowed& line);
QJsonObject lineObject(const AnswerGiven& line);
QJsonObject lineObject(const RunSaved& line);
QJsonObject lineObject(const RunUnsaved& line);
QJsonObject lineObject(const RunAbandoned& line);

/// The bytes of such an object in the file, UTF-8, with the line's end.
QByteArray lineBytes(const QJsonObject& line);
