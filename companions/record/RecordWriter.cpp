// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of a record as JSON.
#include "record/RecordWriter.h"

#include "record/JsonFields.h"

#include <QJsonDocument>

namespace {

template <typename Line> QJsonObject objectOf(const Line& line)
{
    FieldWriter writer;
    Line::eachField(line, writer);
    QJsonObject object = writer.object();
    object.insert("event", QLatin1String(Line::event));
    return object;
}

} // namespace

QJsonObject lineObject(const RunBegun& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const TrialBegun& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const SoundStarted& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const SoundEnded& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const AnswerAllowed& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const AnswerGiven& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const RunSaved& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const RunUnsaved& line)
{
    return objectOf(line);
}

QJsonObject lineObject(const RunAbandoned& line)
{
    return objectOf(line);
}

QByteArray lineBytes(const QJsonObject& line)
{
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}
