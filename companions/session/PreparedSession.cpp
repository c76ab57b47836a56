// SPDX-License-Identifier: GPL-3.0-or-later
// All that can keep a session from beginning, before anything is shown or played.
#include "session/PreparedSession.h"

#include "session/CalibrationNow.h"
#include "session/SecondFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSysInfo>

namespace {

constexpr auto lockName = ".quorin-session.lock";

QString lockError(const QLockFile& lock, const QString& folder)
{
    qint64 pid = 0;
    QString host;
    QString program;
    if (lock.error() != QLockFile::LockFailedError) {
        return folder + ": cannot be written to";
    }
    const QString path = QDir(folder).filePath(lockName);
    if (!lock.getLockInfo(&pid, &host, &program)) {
        return path + ": does not tell which session made it: remove it if none records here";
    }
    const QString session = QString("%1: another session records here: process %2 on %3")
                                .arg(folder)
                                .arg(pid)
                                .arg(host);
    // Whether a process of another machine is gone cannot be found out from here.
    return host == QSysInfo::machineHostName() ? session
                                               : session + ": if it has ended, remove " + path;
}

QStringList notesOn(const SessionOptions& options, const EarlierRuns& earlier)
{
    QStringList notes = earlier.notes;
    if (earlier.ofOtherProtocols > 0) {
        notes.append(QString("%1 runs of %2 are of another protocol, or of this one as it was "
                             "before it was changed")
                         .arg(earlier.ofOtherProtocols)
                         .arg(options.study.subject));
    }
    if (options.study.resumes && !earlier.areThere) {
        notes.append(QString("there is no run of %1 with this protocol: it begins with the first")
                         .arg(options.study.subject));
    }
    if (options.seed && earlier.seeds.contains(*options.seed)) {
        notes.append(
            QString("seed %1 is that of earlier runs of %2: positions and noises come again "
                    "as they did then")
                .arg(*options.seed)
                .arg(options.study.subject));
    }
    return notes;
}

void planStudy(const SessionOptions& options, PreparedSession& session)
{
    const StudyProtocol protocol = studyProtocol(options.study.protocol);
    session.errors = protocol.errors;
    if (!session.errors.isEmpty()) {
        return;
    }
    const EarlierRuns earlier = earlierRuns(options.folder, protocol.sha256, options.study.subject);
    session.notes += notesOn(options, earlier);
    session.study = plannedStudy(options.study, protocol, earlier, session.seed);
    if (!session.study->error.isEmpty()) {
        session.errors.append(session.study->error);
    }
}

void readCalibration(const QString& path, PreparedSession& session)
{
    const ReadNote read = readCalibrationNote(path);
    if (!read.error.isEmpty()) {
        session.errors.append(path + ": " + read.error);
        return;
    }
    session.calibration = {QFileInfo(path).fileName(), read.note, {}};
    const RunCalibration now = calibrationNow(*session.calibration);
    for (const QString& difference : now.differences) {
        session.notes.append(path + ": " + difference);
    }
}

} // namespace

PreparedSession preparedSession(const SessionOptions& options)
{
    PreparedSession session;
    session.seed = options.seed.value_or(
        QRandomGenerator::system()->bounded(1, static_cast<int>(largestSeed) + 1));
    session.lock = std::make_unique<QLockFile>(QDir(options.folder).filePath(lockName));
    session.lock->setStaleLockTime(0); // only a process that is gone gives its lock up, however old
    if (!session.lock->tryLock()) {
        session.errors.append(lockError(*session.lock, options.folder));
        return session;
    }
    const BroughtBack kept = broughtBack(options.folder, secondFolders(options.folder));
    session.notes = kept.notes;
    session.errors = kept.errors;
    if (session.errors.isEmpty() && !options.study.protocol.isEmpty()) {
        planStudy(options, session);
    }
    if (session.errors.isEmpty() && !options.calibration.isEmpty()) {
        readCalibration(options.calibration, session);
    }
    return session;
}
