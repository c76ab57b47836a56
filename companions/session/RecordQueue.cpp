// SPDX-License-Identifier: GPL-3.0-or-later
// Lines from memory to the files of their records.
#include "session/RecordQueue.h"

#include "record/RecordWriter.h"

#include <QCryptographicHash>
#include <QDir>

#include <algorithm>
#include <utility>

RecordQueue::RecordQueue(QString folder, std::function<void()> written)
    : m_folder(std::move(folder))
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, written = std::move(written)] {
        flush();
        written();
    });
}

void RecordQueue::begin(const QString& subject, const QString& time)
{
    m_isHeld = false;
    m_files.erase(std::remove_if(m_files.begin(), m_files.end(),
                      [](auto& earlier) { return earlier->sync(); }),
        m_files.end());
    m_files.push_back(std::make_unique<RecordFile>(m_folder, subject, time));
}

void RecordQueue::append(const QJsonObject& line, const QByteArray& sound)
{
    m_waiting.append({line, sound});
    if (!m_isHeld) {
        m_timer.start(0);
    }
}

void RecordQueue::hold()
{
    m_isHeld = true;
    m_timer.stop();
}

void RecordQueue::release()
{
    m_isHeld = false;
}

void RecordQueue::hurry()
{
    if (!m_isHeld && !m_waiting.isEmpty()) {
        flush();
    }
}

// Digests are made only here: a sound must not wait for that of the one before.
bool RecordQueue::flush()
{
    m_timer.stop();
    for (Waiting& waiting : m_waiting) {
        if (waiting.line.contains("sha256")) {
            const QByteArray digest
                = QCryptographicHash::hash(waiting.sound, QCryptographicHash::Sha256);
            waiting.line.insert("sha256", QString::fromLatin1(digest.toHex()));
        }
        file().append(lineBytes(waiting.line));
    }
    m_waiting.clear();
    bool isWritten = true;
    for (const auto& each : m_files) {
        isWritten = each->sync() && isWritten;
    }
    return isWritten;
}

QStringList RecordQueue::rescue(const QString& otherFolder)
{
    QStringList told;
    flush();
    for (const auto& each : m_files) {
        if (each->sync()) {
            continue;
        }
        each->moveTo(otherFolder);
        told.append(each->sync()
                ? QString("%1: kept here").arg(QDir(otherFolder).filePath(each->recordName()))
                : each->error());
    }
    return told;
}
