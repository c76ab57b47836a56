// SPDX-License-Identifier: GPL-3.0-or-later
// The files that are read: their bytes, and what is said about them.
#include "report/InputFile.h"

#include <QFile>

namespace {

constexpr int largestFile
    = 64 * 1024 * 1024; // 100,000 trials have some 3 MB, recorded 100 times that

} // namespace

// Pipes do not tell their size, and some devices have no end.
QString readWhole(const QString& path, QByteArray& bytes)
{
    constexpr int part = 64 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return "cannot be read: " + file.errorString();
    }
    QByteArray more;
    do {
        more = file.read(part);
        bytes += more;
    } while (!more.isEmpty() && bytes.size() <= largestFile);
    if (file.error() != QFileDevice::NoError) {
        return "cannot be read: " + file.errorString();
    }
    return bytes.size() > largestFile ? "too large for a results file" : QString();
}

QString placed(const QString& path, const Complaint& complaint)
{
    return (complaint.line > 0 ? path + ':' + QString::number(complaint.line) : path) + ": "
        + complaint.text;
}

bool isRecord(const QString& path, const QByteArray& bytes)
{
    return bytes.startsWith('{') || path.endsWith(".jsonl", Qt::CaseInsensitive);
}
