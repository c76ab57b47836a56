// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>

/// A file that a companion program is asked to write. One that is there already is replaced only
/// if isForced and it carries the mark of a companion, which depends on its kind.
struct OutputFile {
    enum class Kind {
        marked, ///< pictures and pages: their beginning holds makerText()
        table, ///< comma-separated values: their first line is the headings
        unmarked, ///< results files, which have no place for a mark: never replaced
    };

    QString path;
    Kind kind = Kind::unmarked;
    QByteArray headings; ///< of a table: its first line without the line end
    bool isForced = false; ///< whether the user allowed to replace files of the companions
};

/// "Made by " and the program's name and version: to be put among the first 8192 bytes of a marked
/// file, as Latin-1 or big-endian UTF-16. Needs a QCoreApplication with both set.
QString makerText();

/// What keeps a file from being written, as far as can be told before: it is there and may not be
/// replaced, or is no file, character device or pipe, or its folder does not exist. Nor is "-" a
/// file's name. Empty if nothing does.
QString outputObstacle(const OutputFile& file);

/// A file that createOpenFile() has made, or why it could not.
struct CreatedFile {
    std::unique_ptr<QFile> file; ///< open for writing, at its end; null if it was not made
    QString error; ///< what went wrong, with the path in front; empty if nothing did
};

/// Makes a new file, whole or not at all, and waits until its content is on the disk. A file that
/// is there already is left as it is. The name that the open file tells is not the path.
CreatedFile createOpenFile(const QString& path, const QByteArray& content);

/// The same, and closes it.
/// @return what went wrong, with the path in front; empty if the file was made
QString createFile(const QString& path, const QByteArray& content);

/// Writes a whole file. It appears complete or not at all, and no file that somebody else makes in
/// the meantime is replaced; one that is replaced stays as it was until then. Bytes for a character
/// device or a pipe are written to it.
/// @return what went wrong, with the path in front; empty if the file was written
QString writeOutput(const OutputFile& file, const QByteArray& content);
