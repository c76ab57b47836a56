// SPDX-License-Identifier: GPL-3.0-or-later
// Where records are kept whose folder cannot be written to, and how they come back.
#include "session/SecondFolders.h"

#include "output/OutputFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QSysInfo>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isOwn(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink() && info.ownerId() == ::geteuid();
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
    if (content.isEmpty() || content.size() != QFileInfo(from).size()) {
        return from + ": cannot be read";
    }
    const QString error = contentOf(to).startsWith(content) ? QString() : createFile(to, content);
    return error.isEmpty() && !QFile::remove(from) ? from + ": cannot be removed" : error;
}

// The last lines of a finished run's copies differ: each names its own results file.
bool hasAllLinesOf(const QByteArray& kept, const QString& path)
{
    const QByteArray before = kept.left(kept.lastIndexOf('\n', -2) + 1);
    QFile file(path);
    return !before.isEmpty() && file.open(QIODevice::ReadOnly) && file.read(before.size()) == before
        && file.readLine().endsWith('\n');
}

QString wholeRecord(const QString& folder, const QString& kept)
{
    const QByteArray content = contentOf(kept);
    const QStringList names = QDir(folder).entryList({"*.jsonl"}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (name != QFileInfo(kept).fileName()
            && hasAllLinesOf(content, QDir(folder).filePath(name))) {
            return name;
        }
    }
    return {};
}

QString resultsOf(const QString& recordName)
{
    return QFileInfo(recordName).completeBaseName() + ".txt";
}

// Removes a copy of a record that is whole in the folder, which gets the results file unless it has
// one. The record goes last: as long as it is there, it is known whose results they are.
QString leaveTo(const QString& whole, const QString& folder, const QString& name, const QDir& from)
{
    const QString results = from.filePath(resultsOf(name));
    const QString there = QDir(folder).filePath(resultsOf(whole));
    if (QFile::exists(there)) {
        QFile::remove(results);
    } else if (QFile::exists(results)) {
        QString error = move(results, there);
        if (!error.isEmpty()) {
            return error;
        }
    }
    QFile::remove(
        from.filePath(name)); // else it is told again at the next session: nothing is lost
    return {};
}

void bringBack(const QString& name, const QDir& from, const QString& folder, BroughtBack& result)
{
    const QString path = from.filePath(name);
    if (!QFile::exists(path)) {
        return; // went with its record
    }
    const QString whole = name.endsWith(".jsonl") ? wholeRecord(folder, path) : QString();
    const QString error = whole.isEmpty() ? move(path, QDir(folder).filePath(name))
                                          : leaveTo(whole, folder, name, from);
    if (!error.isEmpty()) {
        result.errors.append(error + "; it is kept in " + from.path());
    } else if (whole.isEmpty()) {
        result.notes.append(QString("%1: was kept in %2 and is here now").arg(name, from.path()));
    } else {
        result.notes.append(
            QString("%1: was kept in %2 and is whole here as %3").arg(name, from.path(), whole));
    }
}

// By their names; of two copies of one record the longer one first: it is the one to bring back.
QFileInfoList keptIn(const QStringList& folders)
{
    QFileInfoList files;
    for (const QString& folder : folders) {
        if (isOwn(folder)) {
            files += QDir(folder).entryInfoList({"*_kept.jsonl", "*_kept.txt"}, QDir::Files);
        }
    }
    std::sort(files.begin(), files.end(), [](const QFileInfo& one, const QFileInfo& other) {
        const int order = one.fileName().compare(other.fileName());
        return order < 0 || (order == 0 && one.size() > other.size());
    });
    return files;
}

} // namespace

// Folders of one name are told apart by the path, and by the machine: a home may be that of
// several.
QStringList secondFolders(const QString& folder)
{
    constexpr int digits = 8;
    const QString path = QFileInfo(folder).canonicalFilePath();
    const QByteArray place = QFile::encodeName(path) + '\0' + QSysInfo::machineUniqueId();
    const QByteArray digest = QCryptographicHash::hash(place, QCryptographicHash::Sha256).toHex();
    const QString name = QFileInfo(path).fileName() + '-' + digest.left(digits);
    const QString ofUser = QString("quorin-session-%1-").arg(::geteuid());
    return {QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(name),
        QDir::temp().filePath(ofUser + name)};
}

bool makeOwnFolder(const QString& path)
{
    constexpr mode_t forUserAlone = 0700;
    return QDir().mkpath(QFileInfo(path).path())
        && (::mkdir(QFile::encodeName(path).constData(), forUserAlone) == 0 || errno == EEXIST)
        && isOwn(path);
}

BroughtBack broughtBack(const QString& folder, const QStringList& otherFolders)
{
    BroughtBack result;
    const QFileInfoList kept = keptIn(otherFolders);
    for (const QFileInfo& file : kept) {
        bringBack(file.fileName(), file.dir(), folder, result);
    }
    for (const QString& other : otherFolders) {
        if (isOwn(other)) {
            QDir().rmdir(other); // if nothing is left there
        }
    }
    return result;
}
