// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/RecordFile.h"

#include <QStringList>

#include <memory>

/// A run's record on its way to its folder. As long as it cannot be written there, all of it is
/// written to another one, so that a program that is killed then loses nothing either.
class GuardedRecord {
public:
    /// @param folder        where the record is to be
    /// @param otherFolders  tried in their order, and made where they are not there
    /// @param subject, time see RecordFile
    GuardedRecord(QString folder, QStringList otherFolders, QString subject, QString time);

    /// Keeps a line in memory.
    void append(const QByteArray& line);
    /// No line follows, as with RecordFile.
    void finish();
    void finish(const QByteArray& results, const RecordFile::LastLine& lastLine);
    /// Brings all lines to the folder, else to another one, and waits for it. A record that is
    /// whole in its folder is removed from the other one, unless only that has a results file;
    /// where the folder takes no results file, they are written to another one.
    /// @return whether all is in the folder
    bool sync();
    /// Why not, and where it is instead; empty when all is there.
    QString error() const { return m_error; }
    /// Its name in the folder; empty before it is made there.
    QString recordName() const { return m_file.recordName(); }
    /// Its path in another folder; empty where all is in the folder, or nowhere.
    QString otherPath() const;
    /// Why the results file could not be made in the folder, and where it is instead, once.
    QString takeResultsFault();
    /// The same of the one beside otherPath().
    QString takeOtherResultsFault();

private:
    bool syncElsewhere();
    void keepResults();
    void discardOther();

    QStringList m_otherFolders;
    RecordFile m_file;
    std::unique_ptr<RecordFile> m_other; ///< null unless the folder cannot be written to
    bool m_isElsewhere = false; ///< all of it
    QString m_keptResults; ///< path in another folder of what the folder did not take
    QString m_error;
};
