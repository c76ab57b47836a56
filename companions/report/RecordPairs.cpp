// SPDX-License-Identifier: GPL-3.0-or-later
// Records and results files of the same runs.
#include "report/RecordPairs.h"

#include "procedure/ResultsFormat.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "report/RecordedRuns.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Where the record does not tell it, the name is the record's own, as the recorder makes it.
QString resultsPathOf(const QString& path, const RunRecord& record)
{
    const QFileInfo file(path);
    const auto* const saved = std::get_if<RunSaved>(&record.end);
    const QString name = saved == nullptr ? file.completeBaseName() + ".txt" : saved->resultsFile;
    return QDir(file.canonicalPath()).filePath(QFileInfo(name).fileName());
}

} // namespace

QByteArray withPlainLineEnds(QByteArray content)
{
    return content.replace("\r\n", "\n");
}

void RecordPairs::add(const QString& path, const RunRecord& record)
{
    m_known.append({path, resultsPathOf(path, record),
        withPlainLineEnds(resultsBytes(answeredRun(record))), lackOfRecord(record).isEmpty()});
}

RecordPairs::Relation RecordPairs::relationOf(const QString& path, const QByteArray& content) const
{
    const QFileInfo file(path);
    const QString realPath = QDir(file.canonicalPath()).filePath(file.fileName());
    const QByteArray results = withPlainLineEnds(content);
    Relation relation;
    for (const Known& known : m_known) {
        const Kinship kinship = kinshipOf(known, realPath, results);
        if (kinship != Kinship::none
            && (relation.kinship == Kinship::none || relation.kinship == Kinship::stranger)) {
            relation = {kinship, known.path};
        }
    }
    return relation;
}

// Two runs whose first two answers have the same positions and reaction times are hardly met.
RecordPairs::Kinship RecordPairs::kinshipOf(
    const Known& known, const QString& path, const QByteArray& results)
{
    constexpr int linesThatTell = 3; // the header's among them
    const bool isNamed = path == known.resultsPath;
    if (results == known.results && !results.isEmpty()) {
        return Kinship::same;
    }
    if (known.results.startsWith(results) && (isNamed || results.count('\n') >= linesThatTell)) {
        return Kinship::beginning;
    }
    if (!known.isWhole && results.startsWith(known.results)
        && (isNamed || known.results.count('\n') >= linesThatTell)) {
        return Kinship::longer;
    }
    return isNamed ? Kinship::stranger : Kinship::none;
}
