// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

struct RunRecord;

/// Knows the results files of recorded runs, whatever they are called.
class RecordPairs {
public:
    /// How a results file stands to a record.
    enum class Kinship {
        none, ///< of other runs
        same, ///< the record's trials
        beginning, ///< not all of them
        longer, ///< they are its beginning, and the record was cut short
        stranger ///< the record names it, and it has other trials
    };
    struct Relation {
        Kinship kinship = Kinship::none;
        QString record; ///< its path
    };

    /// @param path of the record's file
    void add(const QString& path, const RunRecord& record);
    /// @param path of a results file, and its content
    Relation relationOf(const QString& path, const QByteArray& content) const;

private:
    struct Known {
        QString path;
        QString resultsPath; ///< of the file that the record names, or would
        QByteArray results; ///< what stands in it
        bool isWhole; ///< whether the run was finished
    };
    static Kinship kinshipOf(const Known& known, const QString& path, const QByteArray& results);

    QVector<Known> m_known;
};

/// A results file's content with the line ends LF, as transfers leave it.
QByteArray withPlainLineEnds(QByteArray content);
