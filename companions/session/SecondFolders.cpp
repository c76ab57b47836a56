// SPDX-License-Identifier: GPL-3.0-or-later
// Where records are kept whose folder cannot be written to, and how they come back.
#include "session/SecondFolders.h"

#include "output/OutputFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

namespace {

bool isOwn(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && info.ownerId() == ::geteuid();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A program may have been killed between the copy and the removal.
QString move(const QString& from, const QString& to)
{
    const QByteArray content = contentOf(from);
    if (content.isEmpty()) {
        return from + ": cannot be read";
    }
    const QString error = contentOf(to) == content ? QString() : createFile(to, content);
    return error.isEmpty() && !QFile::remove(from) ? from + ": cannot be removed" : error;
}

} // namespace

// Folders of one name are told apart by the path.
QStringList secondFolders(const QString& folder)
{
    constexpr int digits = 8;
    const QString path = QFileInfo(folder).canonicalFilePath();
    const QByteArray digest
        = QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha256).toHex();
    const QString name = QFileInfo(path).fileName() + '-' + digest.left(digits);
    const QString ofUser = QString("quorin-session-%1").arg(::geteuid());
    return {QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(name),
        QDir::temp().filePath(ofUser + '/' + name)};
}

bool makeOwnFolder(const QString& path)
{
    return QDir().mkpath(path) && isOwn(path);
}

BroughtBack broughtBack(const QString& folder, const QStringList& otherFolders)
{
    BroughtBack result;
    for (const QString& other : otherFolders) {
        if (!isOwn(other)) {
            continue;
        }
        const QDir directory(other);
        const QStringList names
            = directory.entryList({"*.jsonl", "*.txt"}, QDir::Files, QDir::Name);
        for (const QString& name : names) {
            const QString from = directory.filePath(name);
            const QString error = move(from, QDir(folder).filePath(name));
            if (error.isEmpty()) {
                result.notes.append(QString("%1: was kept in %2 and is here now").arg(name, other));
            } else {
                result.errors.append(error + "; it is kept in " + other);
            }
        }
        QDir().rmdir(other); // if nothing is left there
    }
    return result;
}
