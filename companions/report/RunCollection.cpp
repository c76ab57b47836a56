// SPDX-License-Identifier: GPL-3.0-or-later
// All runs of a report, each file read once and each run counted once.
#include "report/RunCollection.h"

#include "record/RecordReader.h"
#include "report/InputFile.h"
#include "report/Messages.h"
#include "report/RecordPairs.h"
#include "report/RecordedRuns.h"
#include "report/ResultsSearch.h"

#include <QCryptographicHash>
#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>

namespace {

/// A file among the inputs, read.
struct Input {
    int place; ///< in their order
    QString path;
    QByteArray bytes;
};

/// Something to tell about an input.
struct Remark {
    int place;
    QString text;
    bool isComplaint;
};

/// Reads files, the records among them first: they tell which results files are of the same runs.
class Collector {
public:
    explicit Collector(const RunDemand& demand)
        : m_demand(demand)
    {
    }

    void read(const QString& path, int place)
    {
        Input input {place, path, {}};
        const QString error = readWhole(path, input.bytes);
        if (!error.isEmpty()) {
            complain(input, {0, error});
        } else if (isRecord(path, input.bytes)) {
            addRecord(input);
        } else {
            m_results.append(input);
        }
    }

    /// Takes what was read.
    /// @param done told how many of all are
    template <typename Done> QVector<Run> runs(const Done& done)
    {
        int nDone = 0;
        const int nAll = m_records.size() + m_results.size();
        for (const Input& input : qAsConst(m_records)) {
            done(nDone++, nAll);
            takeRecordOf(input);
        }
        for (const Input& input : qAsConst(m_results)) {
            done(nDone++, nAll);
            takeResultsOf(input);
        }
        return {m_runs.cbegin(), m_runs.cend()};
    }

    /// What there is to tell, in the order of the inputs.
    void tell(Messages& messages)
    {
        std::stable_sort(m_remarks.begin(), m_remarks.end(),
            [](const Remark& a, const Remark& b) { return a.place < b.place; });
        for (const Remark& remark : qAsConst(m_remarks)) {
            if (remark.isComplaint) {
                messages.complain(remark.text);
            } else {
                messages.note(remark.text);
            }
        }
    }

private:
    // Runs that begin alike are the same: the first line has the time of Go to the millisecond.
    void addRecord(const Input& input)
    {
        const QByteArray firstLine = input.bytes.left(input.bytes.indexOf('\n') + 1);
        const int same = firstLine.isEmpty() ? -1 : m_firstLines.value(firstLine, -1);
        if (same < 0) {
            m_firstLines.insert(firstLine, m_records.size());
            m_records.append(input);
            return;
        }
        Input& known = m_records[same];
        if (known.bytes.startsWith(input.bytes)) {
            noteUnfinished(input, known);
        } else if (input.bytes.startsWith(known.bytes)) {
            noteUnfinished(known, input);
            known = input;
        } else {
            complain(input,
                {0,
                    "begins as " + known.path
                        + " does and goes on otherwise: one of them was changed"});
        }
    }

    void noteUnfinished(const Input& part, const Input& whole)
    {
        note(part,
            part.bytes == whole.bytes ? "the same content as " + whole.path + ", counted once"
                                      : "an unfinished copy of " + whole.path + ", left out");
    }

    void takeRecordOf(const Input& input)
    {
        const ReadRecord read = readRecord(input.bytes);
        if (!read.error.isEmpty()) {
            complain(input, {read.line, read.error});
            return;
        }
        m_pairs.add(input.path, read.run);
        Run run = m_blank;
        run.path = input.path;
        const RecordTaken taken = takeRecord(run, read.run, m_demand.rule, m_demand.isUnchecked);
        if (taken.leftOut.isEmpty()) {
            finish(input, run, taken.complaint);
            if (taken.complaint.text.isEmpty()) {
                m_takenRecords.insert(input.path);
            }
        } else {
            note(input, taken.leftOut + ", left out");
        }
    }

    void takeResultsOf(const Input& input)
    {
        Run run = m_blank;
        run.path = input.path;
        Complaint complaint = readRun(run, input.bytes, m_demand.rule, m_demand.isUnchecked);
        const RecordPairs::Relation relation = m_pairs.relationOf(input.path, input.bytes);
        switch (relation.kinship) {
        case RecordPairs::Kinship::same:
            note(input,
                "the same trials as " + relation.record
                    + (m_takenRecords.contains(relation.record) ? ", counted once"
                                                                : ", left out too"));
            return;
        case RecordPairs::Kinship::beginning:
            note(input, "not all of the trials of " + relation.record + ", left out");
            return;
        case RecordPairs::Kinship::longer:
            readInstead(relation.record, input);
            break;
        case RecordPairs::Kinship::stranger:
            if (complaint.text.isEmpty()) {
                complaint.text = "the trials are not those of its record " + relation.record;
            }
            break;
        case RecordPairs::Kinship::none:
            break;
        }
        if (!complaint.text.isEmpty() || !isCopy(input)) {
            finish(input, run, complaint);
        }
    }

    void readInstead(const QString& record, const Input& longer)
    {
        for (const Input& input : qAsConst(m_records)) {
            if (input.path == record) {
                m_runs.remove(input.place);
                note(input, "goes on in " + longer.path + ", which is read instead");
            }
        }
    }

    void finish(const Input& input, const Run& run, const Complaint& complaint)
    {
        if (!complaint.text.isEmpty()) {
            complain(input, complaint);
            return;
        }
        if (!run.departure.text.isEmpty()) {
            note(input, "unchecked: " + run.departure.text, run.departure.line);
        }
        const Data& data = run.data;
        if (data.reversalCount > data.nReversals) {
            note(input,
                QString("the run goes on after reversal %1, to %2")
                    .arg(data.nReversals)
                    .arg(data.reversalCount),
                run.trialLines[run.reversalTrials[data.nReversals - 1]]);
        }
        m_runs.insert(input.place, run);
    }

    bool isCopy(const Input& input)
    {
        const QByteArray digest
            = QCryptographicHash::hash(withPlainLineEnds(input.bytes), QCryptographicHash::Sha1);
        const QString original = m_known.value(digest);
        if (original.isEmpty()) {
            m_known.insert(digest, input.path);
            return false;
        }
        note(input, "the same content as " + original + ", counted once");
        return true;
    }

    void complain(const Input& input, const Complaint& complaint)
    {
        m_remarks.append({input.place, placed(input.path, complaint), true});
    }

    void note(const Input& input, const QString& what, int line = 0)
    {
        m_remarks.append({input.place, placed(input.path, {line, "note: " + what}), false});
    }

    const RunDemand& m_demand;
    const Run m_blank; // copies of it share what every run begins with
    QVector<Input> m_records;
    QHash<QByteArray, int> m_firstLines; // of the records
    QVector<Input> m_results;
    RecordPairs m_pairs;
    QSet<QString> m_takenRecords; // by path
    QMap<int, Run> m_runs; // by place
    QHash<QByteArray, QString> m_known;
    QVector<Remark> m_remarks;
};

} // namespace

QVector<Run> readRuns(const RunDemand& demand, Messages& messages)
{
    const ResultsFiles files = resultsFiles(demand.inputs);
    for (const QString& note : files.notes) {
        messages.note(note);
    }
    for (const QString& complaint : files.complaints) {
        messages.complain(complaint);
    }
    Collector collector(demand);
    messages.begin();
    for (int i = 0; i < files.paths.size(); ++i) {
        messages.progress(i, 2 * files.paths.size());
        collector.read(files.paths[i], i);
    }
    const QVector<Run> runs = collector.runs(
        [&messages](int done, int total) { messages.progress(total + done, 2 * total); });
    messages.end();
    collector.tell(messages);
    return runs;
}
