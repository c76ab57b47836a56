// SPDX-License-Identifier: GPL-3.0-or-later
// A record in its folder, or in another one meanwhile.
#include "session/GuardedRecord.h"

#include "session/SecondFolders.h"

#include <utility>

GuardedRecord::GuardedRecord(
    QString folder, QStringList otherFolders, QString subject, QString time)
    : m_otherFolders(std::move(otherFolders))
    , m_file(std::move(folder), std::move(subject), std::move(time))
{
}

void GuardedRecord::append(const QByteArray& line)
{
    m_file.append(line);
    if (m_other != nullptr) {
        m_other->append(line);
    }
}

void GuardedRecord::finish()
{
    m_file.finish();
    if (m_other != nullptr) {
        m_other->finish();
    }
}

void GuardedRecord::finish(const QByteArray& results, const RecordFile::LastLine& lastLine)
{
    m_file.finish(results, lastLine);
    if (m_other != nullptr) {
        m_other->finish(results, lastLine);
    }
}

bool GuardedRecord::sync()
{
    if (m_file.sync()) {
        keepResults();
        discardOther();
        m_error.clear();
        return true;
    }
    m_isElsewhere = syncElsewhere();
    m_error = m_file.error();
    if (m_isElsewhere) {
        m_error += "; it is written to " + m_other->path();
    } else if (!m_otherFolders.isEmpty()) {
        m_error += "; nor can it be written anywhere else";
    }
    return false;
}

// What is in another folder is given up only for what is whole.
bool GuardedRecord::syncElsewhere()
{
    if (m_other != nullptr && m_other->sync()) {
        return true;
    }
    for (const QString& folder : qAsConst(m_otherFolders)) {
        std::unique_ptr<RecordFile> copy = m_file.copyIn(folder);
        if (makeOwnFolder(folder) && copy->sync()) {
            discardOther();
            m_other = std::move(copy);
            return true;
        }
        copy->discard();
    }
    return false;
}

// The record may have got a place in the folder where its results file got none: a file that is
// open can be written to where no other can be made.
void GuardedRecord::keepResults()
{
    if (m_file.lacksResultsFile() && m_keptResults.isEmpty()) {
        syncElsewhere();
    }
    if (m_other != nullptr && m_other->hasResultsFile() && !m_file.hasResultsFile()) {
        m_keptResults = m_other->resultsPath();
        m_other.reset();
    }
}

QString GuardedRecord::takeResultsFault()
{
    const QString fault = m_file.takeResultsFault();
    const bool isKept = !fault.isEmpty() && !m_keptResults.isEmpty();
    return isKept
        ? fault + "; it is written to " + m_keptResults + ", and the next session brings it"
        : fault;
}

void GuardedRecord::discardOther()
{
    if (m_other != nullptr) {
        m_other->discard();
        m_other.reset();
    }
    m_isElsewhere = false;
}

QString GuardedRecord::takeOtherResultsFault()
{
    return m_isElsewhere ? m_other->takeResultsFault() : QString();
}

QString GuardedRecord::otherPath() const
{
    return m_isElsewhere ? m_other->path() : QString();
}
