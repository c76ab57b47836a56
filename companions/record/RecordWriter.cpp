// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a record's lines.
#include "record/RecordWriter.h"

#include "session/Data.h"

#include <QJsonDocument>

QByteArray lineBytes(const QJsonObject& line)
{
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

RunFigures figuresOf(const Data& data, double atMs)
{
    return {data.records.size(), data.threshold, data.meanReactionTime,
        data.meanReactionTimeCorrect, data.meanReactionTimeIncorrect, atMs};
}
