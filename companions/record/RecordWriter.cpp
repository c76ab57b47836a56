// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a record's lines.
#include "record/RecordWriter.h"

#include <QJsonDocument>

QByteArray lineBytes(const QJsonObject& line)
{
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}
