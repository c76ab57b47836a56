// SPDX-License-Identifier: GPL-3.0-or-later
// From a protocol and the records that are there to the runs of a session.
#include "session/Study.h"

#include "protocol/ProtocolReader.h"
#include "protocol/RunSheet.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace quorin;

namespace {

QString recordObstacle(const StudyRequest& request, const EarlierRuns& earlier)
{
    const std::optional<RunOrder> recorded = orderOfName(earlier.order);
    if (!earlier.error.isEmpty() || !earlier.areThere) {
        return earlier.error;
    }
    if (!request.resumes) {
        return QString("%1 has runs of this protocol in the folder: --resume takes them up")
            .arg(request.subject);
    }
    if (!recorded) {
        return "the records have an unknown order: \"" + earlier.order + '"';
    }
    if (request.order && request.order != recorded) {
        return QString("the runs of %1 have the order %2, not %3")
            .arg(request.subject, earlier.order, orderName(*request.order));
    }
    return {};
}

QString obstacle(const StudyRequest& request, const Study& study)
{
    if (study.order != RunOrder::asWritten && !subjectNumber(study.subject)) {
        return QString("the order %1 needs a number at the end of the subject's code, not \"%2\"")
            .arg(orderName(study.order), study.subject);
    }
    const QString inProtocol = orderObstacle(study.file.protocol, study.order);
    return inProtocol.isEmpty() ? inProtocol : request.protocol + ": " + inProtocol;
}

} // namespace

StudyProtocol studyProtocol(const QString& path)
{
    StudyProtocol read;
    read.name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        read.errors.append(path + ": cannot be read: " + file.errorString());
        return read;
    }
    const QByteArray bytes = file.read(mostProtocolBytes + 1);
    read.sha256 = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    read.protocol = readProtocol(bytes);
    for (const ProtocolComplaint& complaint : qAsConst(read.protocol.complaints)) {
        read.errors.append(path + ": " + complaintText(complaint));
    }
    return read;
}

Study plannedStudy(
    const StudyRequest& request, const StudyProtocol& file, const EarlierRuns& earlier, qint64 seed)
{
    Study study;
    study.file = file;
    study.subject = request.subject;
    study.error = recordObstacle(request, earlier);
    if (!study.error.isEmpty()) {
        return study;
    }
    study.order = orderOfName(earlier.order).value_or(request.order.value_or(RunOrder::asWritten));
    study.orderSeed = earlier.areThere ? earlier.orderSeed : seed;
    study.completed = earlier.completed;
    study.error = obstacle(request, study);
    if (study.error.isEmpty()) {
        study.runs = orderedRuns(file.protocol, study.order,
            subjectNumber(study.subject).value_or(0), static_cast<std::uint32_t>(study.orderSeed));
    }
    return study;
}

ProtocolPlace placeIn(const Study& study, const ProtocolRun& run)
{
    const auto isIt = [&run](const ProtocolRun& other) { return other.id == run.id; };
    const auto found = std::find_if(study.runs.cbegin(), study.runs.cend(), isIt);
    const int index = static_cast<int>(std::distance(study.runs.cbegin(), found));
    return {study.file.name, study.file.sha256, study.subject, orderName(study.order),
        study.orderSeed, run.row + 1, run.repeat, index + 1, study.runs.size()};
}

QString progressOf(const Study& study)
{
    const int nLeft = runsLeft(study.runs, study.completed).size();
    return QString("%1, %2, order %3: %4 of %5 runs completed\n")
               .arg(study.subject, study.file.name, orderName(study.order))
               .arg(study.runs.size() - nLeft)
               .arg(study.runs.size())
        + runSheet(study.file.protocol, study.runs, study.completed);
}
