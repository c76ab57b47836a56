// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/GuardedRecord.h"

#include <QJsonObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// The lines of a session's records on their way to the disk. They are written when the event loop
/// comes to them. What cannot be written to the folder is written to another one, and tried again
/// with every later line.
class RecordQueue {
public:
    /// @param folder, otherFolders see GuardedRecord
    /// @param written called when the event loop has come to the lines, whether they could be
    ///                written or not
    RecordQueue(QString folder, QStringList otherFolders, std::function<void()> written);
    Q_DISABLE_COPY(RecordQueue)
    ~RecordQueue() = default;

    /// A record for the lines that follow; see GuardedRecord.
    void begin(const QString& subject, const QString& time);
    /// @param sound of a line with an empty digest: the bytes that it is made of
    void append(const QJsonObject& line, const QByteArray& sound);
    /// From now on lines wait until release().
    void hold();
    /// Lines that are added from now on are written soon, with those that wait.
    void release();
    /// Brings what waits to the disk now, unless it is held.
    void hurry();
    /// Brings all to the disk now.
    /// @return whether all is there
    bool flush();
    /// Brings all to the disk for the last time.
    /// @return a line for each record that is in another folder, or nowhere, and for each results
    ///         file that could not be made in another folder
    QStringList close();
    /// Results files that could not be made, a text each, once.
    QStringList takeResultsFaults() { return std::exchange(m_resultsFaults, {}); }

    /// Why a record is not all in the folder, of the last one that is not; empty when all are.
    QString error() const;

    /// Whether a record was begun.
    bool hasFile() const { return !m_files.empty(); }
    /// The record begun last.
    GuardedRecord& file() const { return *m_files.back(); }

private:
    /// A line that waits, and the sound whose digest it is still to get.
    struct Waiting {
        QJsonObject line;
        QByteArray sound;
    };

    bool sync(GuardedRecord& file);

    QString m_folder;
    QStringList m_otherFolders;
    std::vector<std::unique_ptr<GuardedRecord>>
        m_files; ///< the last one's, and what is not written
    QVector<Waiting> m_waiting;
    QTimer m_timer;
    QStringList m_resultsFaults;
    bool m_isHeld = false;
};
