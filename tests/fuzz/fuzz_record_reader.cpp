// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of records, given any bytes: what it refuses or finds to contradict itself it must
// place in the file, and what the report takes of it must have the figures of the results file that
// is made of it.
#include "fuzz/Demand.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "report/RecordedRuns.h"
#include "report/RunFlags.h"

#include <cstddef>
#include <cstdint>

namespace {

void judge(const RunRecord& record, bool isUnchecked)
{
    Run run;
    const RecordTaken taken = takeRecord(run, record, {}, isUnchecked);
    demand(taken.complaint.line <= record.nLines, "the line is in the file");
    if (!taken.complaint.text.isEmpty() || !taken.leftOut.isEmpty()) {
        return;
    }
    demand(isUnchecked || run.departure.text.isEmpty(), "what departs is refused");
    demand(run.disturbances.size() == run.data.records.size(), "each trial has its disturbances");
    Run same;
    const Complaint complaint = readRun(same, resultsBytes(answeredRun(record)), {}, isUnchecked);
    demand(isUnchecked || complaint.text.isEmpty(), "its results file can be read");
    demand(same.data.reversals == run.data.reversals || isUnchecked, "and is the same run");
    QVector<Run> runs {run};
    flagRuns(runs);
    demand(!settingsOf(runs[0]).isEmpty(), "a recorded run has settings");
}

} // namespace

// Qt's reader of JSON loses what it has of an object that ends too early; the stack tells its
// library.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libQt5Core";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
    const ReadRecord read = readRecord(file);
    if (!read.error.isEmpty()) {
        demand(read.line >= 0 && read.line <= file.count('\n'), "damage is in the file");
        return 0;
    }
    demand(read.run.nLines == file.count('\n'), "each line is counted");
    judge(read.run, false);
    judge(read.run, true);
    return 0;
}
