// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// The events of a record's lines, those of sounds with their interval.
inline QStringList eventsOf(const QVector<QJsonObject>& lines)
{
    QStringList events;
    for (const QJsonObject& line : lines) {
        QString event = line["event"].toString();
        if (line.contains("interval"))
            event += ' ' + QString::number(line["interval"].toInt());
        events.append(event);
    }
    return events;
}

/// The lines of one event.
inline QVector<QJsonObject> linesOf(const QVector<QJsonObject>& lines, const QString& event)
{
    QVector<QJsonObject> found;
    for (const QJsonObject& line : lines) {
        if (line["event"] == event)
            found.append(line);
    }
    return found;
}

/// What a trial that is played and answered adds.
inline const QStringList trialEvents {"trial", "sound 1", "ended 1", "sound 2", "ended 2",
    "sound 3", "ended 3", "sound 4", "ended 4", "answer allowed", "answer"};
