// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

/// A protocol whose runs have sounds of 10 ms and two reversals, and whose trials wait for a minute
/// before their first sound: a test plays them by hand.
/// @param rows cells of the columns repeat, sound type, break and instruction
inline QByteArray quickProtocol(const QByteArray& rows)
{
    QByteArray file = "standard duration (ms),deviant duration (ms),silent interval (ms),"
                      "number of reversals,repeat,sound type,break,instruction\n";
    for (const QByteArray& row : rows.split('\n'))
        file += "10,10,60000,2," + row + '\n';
    return file;
}

/// Writes a file into a folder and returns its path.
inline QString writtenFile(
    const QTemporaryDir& folder, const QString& name, const QByteArray& bytes)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s: cannot be written", qUtf8Printable(name));
    return file.fileName();
}
