// SPDX-License-Identifier: GPL-3.0-or-later
// Lines from memory to the files of their records.
#include "session/RecordQueue.h"

#include "record/RecordWriter.h"

#include <QCryptographicHash>

#include <algorithm>
#include <utility>

RecordQueue::RecordQueue(QString folder, QStringList otherFolders, std::function<void()> written)
    : m_folder(std::move(folder))
    , m_otherFolders(std::move(otherFolders))
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
                      [this](auto& earlier) { return sync(*earlier); }),
        m_files.end());
    m_files.push_back(std::make_unique<GuardedRecord>(m_folder, m_otherFolders, subject, time));
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
        isWritten = sync(*each) && isWritten;
    }
    return isWritten;
}

QStringList RecordQueue::close()
{
    QStringList told;
    flush();
    for (const auto& each : m_files) {
        const QString path = each->otherPath();
        if (!path.isEmpty()) {
            told.append(QString("%1: kept here; the next session in %2 takes it there")
                            .arg(path, m_folder));
            const QString resultsFault = each->takeOtherResultsFault();
            if (!resultsFault.isEmpty()) {
                told.append(resultsFault);
            }
        } else if (!each->error().isEmpty()) {
            told.append(each->error());
        }
    }
    return told;
}

QString RecordQueue::error() const
{
    const auto last = std::find_if(m_files.crbegin(), m_files.crend(),
        [](const auto& each) { return !each->error().isEmpty(); });
    return last == m_files.crend() ? QString() : (*last)->error();
}

bool RecordQueue::sync(GuardedRecord& file)
{
    const bool isWritten = file.sync();
    const QString fault = file.takeResultsFault();
    if (!fault.isEmpty()) {
        m_resultsFaults.append(fault);
    }
    return isWritten;
}
