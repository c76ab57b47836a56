// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of results files, given any bytes: what it takes must be, byte for byte, what the
// application writes for the records that were read, and what it refuses it must place in the file.
#include "fuzz/Demand.h"
#include "procedure/ResultsFormat.h"
#include "report/ResultsReader.h"
#include "report/Run.h"

#include <cstddef>
#include <cstdint>

using namespace quorin;

namespace {

// The lines after the header, all ended by CR LF, and zeros without their sign, which is not read.
QByteArray comparable(const QByteArray& file)
{
    QByteArray lines = '\n' + file.mid(file.indexOf('\n') + 1);
    lines.replace("\r\n", "\n").replace("\n-0.000000\t", "\n0.000000\t");
    return lines;
}

// With a carrier of 1 Hz the writer writes the values as they were read, whatever their unit.
QByteArray rewritten(const ResultsReading& reading)
{
    Data data;
    data.mainParameter = carrierFrequencyParameter;
    data.cf[standard] = 1.0;
    data.records = reading.records;
    return resultsBytes(data);
}

void judge(const ResultsReading& reading)
{
    Run run;
    run.data.mainParameter = reading.mainParameter;
    run.data.records = reading.records;
    judgeRun(run);
    demand(run.data.reversalCount < run.data.nTrials, "a run has fewer reversals than trials");
    demand(run.percentCorrect >= 0 && run.percentCorrect <= 100, "a percentage is 0 to 100");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
    const ResultsReading reading = readResults(file);
    if (reading.complaint.text.isEmpty()) {
        demand(reading.complaint.line == 0, "what is good has no line");
        demand(!reading.records.isEmpty(), "what is good has trials");
        demand(!reading.secondHeader.text.isEmpty()
                || comparable(rewritten(reading)) == comparable(file),
            "what is read is what is written, but for further headers");
        judge(reading);
    } else {
        demand(reading.complaint.line >= 1, "damage has a line");
        demand(reading.complaint.line <= file.count('\n') + 1, "the line is in the file");
    }
    return 0;
}
