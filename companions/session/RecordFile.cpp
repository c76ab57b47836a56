// SPDX-License-Identifier: GPL-3.0-or-later
// A run's two files: what is written is on the disk, and no file is ever replaced.
#include "session/RecordFile.h"

#include "output/OutputFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr auto resultsEnding = ".txt";

bool isFree(const QString& path)
{
    const QFileInfo info(path);
    return !info.exists() && !info.isSymLink();
}

} // namespace

QString runFileName(const QString& subject, const QString& time, int number)
{
    constexpr int longestSubject = 40;
    constexpr int secondsOfTime = 19; // of 2026-01-02T03:04:05.678+01:00
    static const QRegularExpression unsuited("[^A-Za-z0-9-]");
    QString code = subject.left(longestSubject);
    QString second = time.left(secondsOfTime);
    code.replace(unsuited, "_");
    second.remove('-').remove(':').replace('T', '-');
    return (code.isEmpty() ? "subject" : code) + '_' + second + '_'
        + QString::number(number).rightJustified(3, '0');
}

RecordFile::RecordFile(QString folder, QString subject, QString time)
    : m_folder(std::move(folder))
    , m_subject(std::move(subject))
    , m_time(std::move(time))
{
}

void RecordFile::append(const QByteArray& line)
{
    m_content += line;
}

bool RecordFile::sync()
{
    m_error.clear();
    const bool isAllMade = !m_lastLine || m_lastLineSize > 0;
    const bool isAllOnDisk = isAllMade && m_onDisk == m_content.size();
    if (isAllOnDisk && (m_isFinished || isThere())) {
        return true;
    }
    if (!(isThere() || make()) || !writeRest()) {
        return false;
    }
    const bool isLastLineDue = m_lastLine && m_lastLineSize == 0;
    return !isLastLineDue || addLastLine();
}

void RecordFile::finish(QByteArray results, LastLine lastLine)
{
    m_results = std::move(results);
    m_lastLine = std::move(lastLine);
    finish();
}

// A file that was removed, or whose folder was, still takes what is written, for nobody to read.
bool RecordFile::isThere() const
{
    struct stat status { };
    return m_file != nullptr && ::fstat(m_file->handle(), &status) == 0 && status.st_nlink > 0;
}

// The file gets its name when its first lines are on the disk: no record is ever empty. A last line
// that was made tells of a results file beside the file that is gone.
bool RecordFile::make()
{
    constexpr int mostFiles = 999; // of one subject in one second
    m_onDisk = 0;
    m_hasResultsFile = false;
    m_content.chop(m_lastLineSize);
    m_lastLineSize = 0;
    for (int number = 1; number <= mostFiles; ++number) {
        m_name = runFileName(m_subject, m_time, number) + m_mark;
        if (!isFree(resultsPath()) || !isFree(path())) {
            continue;
        }
        CreatedFile created = createOpenFile(path(), m_content);
        m_file = std::move(created.file);
        if (m_file != nullptr) {
            m_onDisk = m_content.size();
            return true;
        }
        if (isFree(path())) { // nobody else was faster
            m_error = created.error;
            return false;
        }
    }
    return fail("there are too many files");
}

// After a failure it is not known what is on the disk: what is not known to be there is written
// again, in its place.
bool RecordFile::writeRest()
{
    if (m_onDisk == m_content.size()) {
        return true;
    }
    const QByteArray rest = m_content.mid(static_cast<int>(m_onDisk));
    if (!m_file->seek(m_onDisk) || m_file->write(rest) != rest.size()
        || ::fsync(m_file->handle()) != 0) {
        return fail(std::strerror(errno));
    }
    m_onDisk = m_content.size();
    return true;
}

// A results file is tried until the last line, which tells what became of it, is on the disk.
bool RecordFile::addLastLine()
{
    m_resultsFault = createFile(resultsPath(), m_results);
    m_hasResultsFile = m_resultsFault.isEmpty();
    const QByteArray line = m_lastLine(m_name + resultsEnding, m_resultsFault);
    m_lastLineSize = line.size();
    append(line);
    if (writeRest()) {
        return true;
    }
    if (!m_hasResultsFile) {
        m_content.chop(std::exchange(m_lastLineSize, 0));
        m_resultsFault.clear();
        m_file->resize(m_onDisk); // the line that is made instead may be shorter
    }
    return false;
}

std::unique_ptr<RecordFile> RecordFile::copyIn(const QString& folder) const
{
    auto copy = std::make_unique<RecordFile>(folder, m_subject, m_time);
    copy->m_mark = "_kept";
    copy->m_content = m_content.chopped(m_lastLineSize);
    copy->m_isFinished = m_isFinished;
    copy->m_results = m_results;
    copy->m_lastLine = m_lastLine;
    return copy;
}

void RecordFile::discard()
{
    if (m_hasResultsFile) { // first, see broughtBack(): its record tells what it is
        QFile::remove(resultsPath());
    }
    if (isThere()) {
        QFile::remove(path());
    }
    QDir().rmdir(m_folder);
}

QString RecordFile::takeResultsFault()
{
    return std::exchange(m_resultsFault, {});
}

bool RecordFile::lacksResultsFile() const
{
    return m_lastLineSize > 0 && !m_hasResultsFile && isFree(resultsPath());
}

QString RecordFile::resultsPath() const
{
    return pathOf(resultsEnding);
}

QString RecordFile::recordName() const
{
    return m_file == nullptr ? QString() : m_name + recordEnding;
}

bool RecordFile::fail(const QString& what)
{
    m_error = path() + ": cannot be written: " + what;
    return false;
}

QString RecordFile::pathOf(const QString& ending) const
{
    return QDir(m_folder).filePath(m_name + ending);
}
