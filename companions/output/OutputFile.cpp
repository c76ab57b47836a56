// SPDX-License-Identifier: GPL-3.0-or-later
// Output files of the companion programs: what may be replaced, and how a file appears whole.
#include "output/OutputFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr auto maker = "Made by quorin-"; // what the texts of all companions begin with
constexpr qint64 headSize = 8192;

enum class Place { free, file, stream, linkToNowhere, folder, other };

Place placeAt(const QByteArray& path)
{
    struct stat status { };
    if (::stat(path.constData(), &status) != 0) {
        return ::lstat(path.constData(), &status) == 0 ? Place::linkToNowhere : Place::free;
    }
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return Place::file;
    case S_IFCHR:
    case S_IFIFO:
        return Place::stream;
    case S_IFDIR:
        return Place::folder;
    default:
        return Place::other;
    }
}

QByteArray asUtf16(const QByteArray& latin1)
{
    QByteArray wide;
    for (const char character : latin1) {
        wide.append('\0').append(character);
    }
    return wide;
}

bool isOfACompanion(const OutputFile& file)
{
    QFile there(file.path);
    if (file.kind == OutputFile::Kind::unmarked || !there.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray head = there.read(headSize);
    if (file.kind == OutputFile::Kind::table) {
        return head.startsWith(file.headings + '\n');
    }
    return head.contains(maker) || head.contains(asUtf16(maker));
}

QString obstacleOfFile(const OutputFile& file)
{
    if (!isOfACompanion(file)) {
        return file.path
            + ": is there already and not recognised as a companion's file: give another name, or "
              "move it away";
    }
    return file.isForced
        ? QString()
        : file.path + ": is there already: give another name, or --force to replace it";
}

QString failure(const QString& path, int error)
{
    return path + ": cannot be written: " + QString::fromLocal8Bit(std::strerror(error));
}

// Some file systems have no renaming without replacing, others no links. A first name that stays
// is hidden and harms nobody.
bool renameWithoutReplacing(const QByteArray& from, const QByteArray& to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno == EEXIST || ::link(from.constData(), to.constData()) != 0) {
        return false;
    }
    ::unlink(from.constData());
    return true;
}

// A new file's name is on the disk only when its folder is. Some file systems cannot do this.
void syncFolder(const QString& folder)
{
    const int descriptor
        = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

// A program of the same process number may have left one.
QString freePartIn(const QString& folder)
{
    static int number = 0;
    QString part;
    do {
        part = folder
            + QString("/.quorin-%1-%2.part").arg(QCoreApplication::applicationPid()).arg(++number);
    } while (placeAt(QFile::encodeName(part)) != Place::free);
    return part;
}

QString replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    const bool isWritten
        = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    return isWritten ? QString() : path + ": cannot be written: " + file.errorString();
}

QString writeStream(const QString& path, const QByteArray& content)
{
    const int descriptor
        = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return failure(path, errno);
    }
    QFile file;
    const bool isWritten = file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                               QFileDevice::AutoCloseHandle)
        && file.write(content) == content.size();
    return isWritten ? QString() : path + ": cannot be written: " + file.errorString();
}

} // namespace

QString makerText()
{
    return "Made by " + QCoreApplication::applicationName() + ' '
        + QCoreApplication::applicationVersion();
}

QString outputObstacle(const OutputFile& file)
{
    if (file.path == "-") {
        return "-: standard output does not take this: give a file's name, or ./- for a file of "
               "this name";
    }
    switch (placeAt(QFile::encodeName(file.path))) {
    case Place::file:
        return obstacleOfFile(file);
    case Place::linkToNowhere:
        return file.path + ": is a link to nowhere: give another name, or remove it";
    case Place::folder:
        return file.path + ": is a folder: give a file's name";
    case Place::other:
        return file.path + ": is no file, character device or pipe: give another name";
    case Place::stream:
        return {};
    case Place::free:
        break;
    }
    const QString folder = QFileInfo(file.path).path();
    return QFileInfo(folder).isDir() ? QString()
                                     : file.path + ": there is no folder " + folder + ": make it";
}

CreatedFile createOpenFile(const QString& path, const QByteArray& content)
{
    const QString folder = QFileInfo(path).path();
    const QString part = freePartIn(folder);
    auto file = std::make_unique<QFile>(part);
    if (!file->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        return {nullptr, path + ": cannot be written: " + file->errorString()};
    }
    QString error;
    if (file->write(content) != content.size() || ::fsync(file->handle()) != 0) {
        error = failure(path, errno);
    } else if (!renameWithoutReplacing(QFile::encodeName(part), QFile::encodeName(path))) {
        error = errno == EEXIST ? path + ": was made by another program meanwhile: left as it is"
                                : failure(path, errno);
    }
    if (!error.isEmpty()) {
        QFile::remove(part);
        file.reset();
    } else {
        syncFolder(folder);
    }
    return {std::move(file), error};
}

QString createFile(const QString& path, const QByteArray& content)
{
    return createOpenFile(path, content).error;
}

QString writeOutput(const OutputFile& file, const QByteArray& content)
{
    QString obstacle = outputObstacle(file);
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    switch (placeAt(QFile::encodeName(file.path))) {
    case Place::stream:
        return writeStream(file.path, content);
    case Place::file:
        return replaceFile(file.path, content);
    default:
        return createFile(file.path, content);
    }
}
