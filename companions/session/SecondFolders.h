// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// Where the records of a folder are kept as long as it cannot be written to: among the user's
/// data, or, where that cannot be written to either, among temporary files. They need not be there.
/// Needs a QCoreApplication with its name set.
/// @param folder must be there: what leads to it counts, not how it was written
QStringList secondFolders(const QString& folder);

/// Makes a folder that only the user can read, unless it is there.
/// @return whether it is there, no link, and belongs to the user
bool makeOwnFolder(const QString& path);

/// What became of the records that an earlier session had to keep elsewhere.
struct BroughtBack {
    QStringList notes; ///< on files that are in the folder now
    QStringList errors; ///< on files that could not be brought there; they are left where they are
};

/// Moves what is kept in other folders to the folder. No file there is replaced. A copy of a record
/// that is whole in the folder is removed, with its results file.
BroughtBack broughtBack(const QString& folder, const QStringList& otherFolders);
