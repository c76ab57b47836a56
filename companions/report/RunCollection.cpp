// SPDX-License-Identifier: GPL-3.0-or-later
// All runs of a report, each file read once and each run counted once.
#include "report/RunCollection.h"

#include "report/Messages.h"
#include "report/ResultsSearch.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>

namespace {

constexpr int largestFile = 64 * 1024 * 1024; // 100,000 trials have some 3 MB

QString placed(const QString& path, const Complaint& complaint)
{
    return (complaint.line > 0 ? path + ':' + QString::number(complaint.line) : path) + ": "
        + complaint.text;
}

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

/// Reads files one by one.
class Collector {
public:
    Collector(const RunDemand& demand, Messages& messages)
        : m_demand(demand)
        , m_messages(messages)
    {
    }

    void take(const QString& path)
    {
        QByteArray bytes;
        const QString error = readWhole(path, bytes);
        if (!error.isEmpty()) {
            m_messages.complain(path + ": " + error);
            return;
        }
        Run run = m_blank;
        run.path = path;
        const Complaint complaint = readRun(run, bytes, m_demand.rule, m_demand.isUnchecked);
        if (!complaint.text.isEmpty()) {
            m_messages.complain(placed(path, complaint));
        } else if (!isCopy(path, bytes)) {
            note(run);
            m_runs.append(run);
        }
    }

    QVector<Run> runs() const { return m_runs; }

private:
    bool isCopy(const QString& path, const QByteArray& bytes)
    {
        const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
        const QString original = m_known.value(digest);
        if (original.isEmpty()) {
            m_known.insert(digest, path);
            return false;
        }
        m_messages.note(path + ": note: the same content as " + original + ", counted once");
        return true;
    }

    void note(const Run& run)
    {
        if (!run.departure.text.isEmpty()) {
            m_messages.note(
                placed(run.path, {run.departure.line, "note: unchecked: " + run.departure.text}));
        }
        const Data& data = run.data;
        if (data.reversalCount > data.nReversals) {
            constexpr int linesBefore = 2; // the header, and lines count from 1
            const int line = run.reversalTrials[data.nReversals - 1] + linesBefore;
            m_messages.note(placed(run.path,
                {line,
                    QString("note: the run goes on after reversal %1, to %2")
                        .arg(data.nReversals)
                        .arg(data.reversalCount)}));
        }
    }

    const RunDemand& m_demand;
    Messages& m_messages;
    const Run m_blank; // copies of it share what every run begins with
    QVector<Run> m_runs;
    QHash<QByteArray, QString> m_known;
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
    Collector collector(demand, messages);
    messages.begin();
    for (int i = 0; i < files.paths.size(); ++i) {
        messages.progress(i, files.paths.size());
        collector.take(files.paths[i]);
    }
    messages.end();
    return collector.runs();
}
