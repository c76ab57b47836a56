// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ResultsSearch.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

namespace {

bool isClosed(const QFileInfo& folder)
{
    return !folder.isReadable() || !folder.isExecutable();
}

QStringList filesBelow(const QString& folder, QStringList& closedFolders)
{
    if (isClosed(QFileInfo(folder))) {
        closedFolders.append(folder);
    }
    QStringList files;
    QDirIterator entries(folder, {"*.txt"}, QDir::Files | QDir::AllDirs | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (!entry.isDir()) {
            files.append(path);
        } else if (!entry.isSymLink() && isClosed(entry)) {
            closedFolders.append(path);
        }
    }
    files.sort();
    return files;
}

} // namespace

ResultsFiles resultsFiles(const QStringList& arguments)
{
    ResultsFiles files;
    QSet<QString> known;
    for (const QString& argument : arguments) {
        const bool isFolder = QFileInfo(argument).isDir();
        const QStringList found
            = isFolder ? filesBelow(argument, files.closedFolders) : QStringList(argument);
        if (found.isEmpty()) {
            files.emptyFolders.append(argument);
        }
        for (const QString& path : found) {
            const QString canonical = QFileInfo(path).canonicalFilePath();
            if (canonical.isEmpty() || !known.contains(canonical)) {
                known.insert(canonical);
                files.paths.append(path);
            }
        }
    }
    return files;
}
