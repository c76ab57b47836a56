// SPDX-License-Identifier: GPL-3.0-or-later
// Results files of runs that were not finished.
#include "report/Rescue.h"

#include "output/OutputFile.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "report/InputFile.h"
#include "report/RecordedRuns.h"
#include "report/Texts.h"
#include "session/Data.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

// A name that a record tells may have a folder's before it, which is left out.
QString pathBeside(const QString& record, const QString& name)
{
    return QDir(QFileInfo(record).path()).filePath(QFileInfo(name).fileName());
}

Complaint readRecordAt(const QString& path, bool isUnchecked, RunRecord& run)
{
    QByteArray bytes;
    const QString error = readWhole(path, bytes);
    if (!error.isEmpty()) {
        return {0, error};
    }
    const ReadRecord read = readRecord(bytes);
    run = read.run;
    if (!read.error.isEmpty()) {
        return {read.line, read.error};
    }
    const Contradiction found = contradictionOf(run);
    return isUnchecked ? Complaint() : Complaint {found.line, found.text};
}

QString rescuedName(const QString& path)
{
    return QFileInfo(path).completeBaseName() + "_rescued.txt";
}

/// The results file that the recorder wrote itself, or one that was rescued before, if it is whole.
QString resultsThatAreThere(const QString& path, const RunRecord& run, const QByteArray& results)
{
    const auto* const saved = std::get_if<RunSaved>(&run.end);
    for (const QString& name :
        {saved == nullptr ? QString() : saved->resultsFile, rescuedName(path)}) {
        QByteArray there;
        if (!name.isEmpty() && readWhole(pathBeside(path, name), there).isEmpty()
            && there == results) {
            return name;
        }
    }
    return {};
}

Complaint rescue(const QString& path, bool isUnchecked, QString& told)
{
    RunRecord run;
    Complaint complaint = readRecordAt(path, isUnchecked, run);
    if (!complaint.text.isEmpty()) {
        return complaint;
    }
    const Data answered = answeredRun(run);
    const QByteArray results = resultsBytes(answered);
    const QString lack = lackOfRecord(run);
    if (answered.records.isEmpty()) {
        return {0, lack + ": there is no trial to rescue"};
    }
    const QString there = resultsThatAreThere(path, run, results);
    if (!there.isEmpty()) {
        told = QString("%1: all its trials are in %2").arg(path, there);
        return {};
    }
    const QString target = pathBeside(path, rescuedName(path));
    const QString error = writeOutput({target, OutputFile::Kind::unmarked, {}, false}, results);
    told = QString("%1: trials: %2, of %3, %4")
               .arg(target, QString::number(answered.records.size()), path,
                   lack.isEmpty() ? "which is whole" : lack);
    return {0, error};
}

} // namespace

bool rescueRecords(
    const QStringList& records, bool isUnchecked, QTextStream& output, Messages& messages)
{
    for (const QString& path : records) {
        QString told;
        const Complaint complaint = rescue(path, isUnchecked, told);
        if (complaint.text.isEmpty()) {
            output << onOneLine(told) << '\n';
        } else {
            messages.complain(placed(path, complaint));
        }
    }
    output.flush();
    if (output.status() != QTextStream::Ok) {
        messages.complain("standard output: cannot be written");
    }
    return messages.isGood();
}
