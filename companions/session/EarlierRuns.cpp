// SPDX-License-Identifier: GPL-3.0-or-later
// Which runs of a protocol a folder has records of.
#include "session/EarlierRuns.h"

#include "protocol/RunOrder.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"

#include <QDir>

namespace {

bool isCompleted(const RunRecord& run)
{
    return std::holds_alternative<RunSaved>(run.end) || std::holds_alternative<RunUnsaved>(run.end)
        || hasAllTrials(answeredRun(run));
}

void add(EarlierRuns& earlier, const RunRecord& run, const QString& name)
{
    const ProtocolPlace& place = *run.begun.protocol;
    if (!earlier.areThere) {
        earlier.areThere = true;
        earlier.order = place.order;
        earlier.orderSeed = place.orderSeed;
    } else if (place.order != earlier.order || place.orderSeed != earlier.orderSeed) {
        earlier.error = name + ": has another order than the records before it";
    }
    earlier.seeds.append(run.begun.seed);
    if (isCompleted(run)) {
        earlier.completed.append(runId(place.row, place.repeat));
    }
}

} // namespace

EarlierRuns earlierRuns(const QString& folder, const QString& sha256, const QString& subject)
{
    EarlierRuns earlier;
    const QDir directory(folder);
    const QStringList names = directory.entryList({"*.jsonl"}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const ReadRecord read = readRecordFile(directory.filePath(name));
        if (!read.error.isEmpty()) {
            const QString line = read.line > 0 ? QString(":%1").arg(read.line) : QString();
            earlier.notes.append(name + line + ": " + read.error + ": left out");
            continue;
        }
        const std::optional<ProtocolPlace>& place = read.run.begun.protocol;
        if (!place || place->subject != subject) {
            continue;
        }
        if (place->sha256 == sha256) {
            add(earlier, read.run, name);
        } else {
            ++earlier.ofOtherProtocols;
        }
    }
    return earlier;
}
