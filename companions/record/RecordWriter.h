// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/JsonFields.h"
#include "record/RecordLines.h"

#include <QByteArray>

class Data;

/// A line of a record, of one of the kinds in RecordLines.h, as an object: its event and its
/// fields.
template <typename Line> QJsonObject lineObject(const Line& line)
{
    FieldWriter writer;
    Line::eachField(line, writer);
    QJsonObject object = writer.object();
    object.insert("event", QLatin1String(Line::event));
    return object;
}

/// The bytes of such an object in the file, UTF-8, with the line's end.
QByteArray lineBytes(const QJsonObject& line);

/// The same of a line of one of the kinds.
template <typename Line> QByteArray lineBytes(const Line& line)
{
    return lineBytes(lineObject(line));
}

/// What a finished run came to.
/// @param atMs since Go
RunFigures figuresOf(const Data& data, double atMs);
