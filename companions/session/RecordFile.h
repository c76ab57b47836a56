// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>
#include <memory>

/// The names, without their endings, of a run's files: subject, date, time and a number. Characters
/// of the subject's code that do not suit a file's name become underscores.
/// @param time of Go, as it stands in the record
QString runFileName(const QString& subject, const QString& time, int number);

/// A run's record on its way to the disk. All of it is kept in memory too: where the disk is full
/// or the folder is gone, it can be written again or elsewhere, see GuardedRecord.
class RecordFile {
public:
    /// @param folder  where the file is to be
    /// @param subject, time see runFileName; the number is the first that is free
    RecordFile(QString folder, QString subject, QString time);

    /// Keeps a line in memory.
    void append(const QByteArray& line);
    /// Brings all lines to the disk and waits for it. The first call makes the file, which was
    /// never there before; so does one that finds the file gone. What fails is tried again by the
    /// next.
    /// @return whether all is on the disk
    bool sync();
    /// No line follows. Once all is on the disk, a file that is gone is not made again: somebody
    /// has removed it.
    void finish() { m_isFinished = true; }
    /// The record's last line, made when the results file is there or cannot be. May be asked for
    /// again, with another name.
    /// @param resultsName of the file
    /// @param error       what went wrong; empty if the file is on the disk
    using LastLine = std::function<QByteArray(const QString& resultsName, const QString& error)>;
    /// The same for a finished run: sync() makes the file of its results beside the record, never
    /// one that is there already, as soon as all lines are on the disk, and adds the last line.
    void finish(QByteArray results, LastLine lastLine);
    /// Why not, with the file's or the folder's name; empty when all is there.
    QString error() const { return m_error; }
    /// Its name in the folder; empty before the record's file is made.
    QString recordName() const;
    /// The same with the folder.
    QString path() const { return pathOf(recordEnding); }
    /// Why the results file could not be made, once; empty if it could, or was not tried yet.
    QString takeResultsFault();
    /// Whether the results file was made.
    bool hasResultsFile() const { return m_hasResultsFile; }
    /// Whether the record is whole without it, and nothing else has its name.
    bool lacksResultsFile() const;
    /// The results file's path, whether it was made or not.
    QString resultsPath() const;
    /// The same record for another folder, where the first sync() makes it whole. The name is
    /// another one too, so that it can be moved to this folder.
    std::unique_ptr<RecordFile> copyIn(const QString& folder) const;
    /// Removes the record and its results file, and their folder if nothing else is in it.
    void discard();

private:
    static constexpr auto recordEnding = ".jsonl";

    bool isThere() const;
    bool make();
    bool writeRest();
    bool addLastLine();
    bool fail(const QString& what);
    QString pathOf(const QString& ending) const;

    QString m_folder;
    QString m_subject;
    QString m_time;
    QString m_mark; ///< at the name's end
    QString m_name;
    std::unique_ptr<QFile> m_file;
    QByteArray m_content;
    qint64 m_onDisk = 0; ///< so many bytes of the content
    bool m_isFinished = false;
    QByteArray m_results;
    LastLine m_lastLine; ///< of a finished run
    int m_lastLineSize = 0; ///< 0 until it is made
    bool m_hasResultsFile = false;
    QString m_resultsFault;
    QString m_error;
};
