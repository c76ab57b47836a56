// SPDX-License-Identifier: GPL-3.0-or-later
// A run from its record: everything as from its results file, and what only the record tells.
#include "report/RecordedRuns.h"

#include "procedure/ResultsFormat.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "session/Counts.h"

#include <QFileInfo>

#include <algorithm>

namespace {

// A device that was pulled out and put back in a trial leaves nothing but a sound without an end.
bool mayHaveLostSounds(const RecordedTrial& trial)
{
    return trial.answer->hasOutputFailed || trial.ends.size() < quorin::soundsPerTrial;
}

void takeTrials(Run& run, const RunRecord& record)
{
    for (const RecordedTrial& trial : record.trials) {
        if (trial.answer) {
            const AnswerGiven& answer = *trial.answer;
            run.trialLines.append(trial.answerLine);
            run.disturbances.append({answer.interruptedSounds, answer.lateSounds,
                answer.worstLatenessMs, mayHaveLostSounds(trial)});
        }
    }
}

// A record may hold any number, and its sounds are computed.
bool haveSounds(const Data& data)
{
    return std::all_of(data.nSamples.cbegin(), data.nSamples.cend(),
        [](int n) { return n > 0 && n <= quorin::longestSound; });
}

// The answers' values are fractions here.
void takeLevels(Run& run, const RunRecord& record, const Data& answered)
{
    if (!record.begun.calibration || !faultOf(record.begun.calibration->note).isEmpty()
        || !haveSounds(record.begun.go)) {
        return;
    }
    const QVector<Record>& records = answered.records;
    const auto values = std::minmax_element(records.cbegin(), records.cend(),
        [](const Record& a, const Record& b) { return a.value < b.value; });
    const RunCalibration& calibration = *record.begun.calibration;
    const LevelRange range = levelRange(record.begun.go, values.first->value, values.second->value);
    run.levels = {calibration, pressureLevelDb(calibration.note, range.startDb[quorin::standard]),
        pressureLevelDb(calibration.note, range.lowestDb),
        pressureLevelDb(calibration.note, range.highestDb)};
}

// The choices' names are the program's own: those of the file may be anything.
void takeSettings(Run& run, const RunRecord& record, const Data& answered)
{
    const Data known;
    const QFileInfo file(run.path);
    const QString real = file.canonicalFilePath();
    run.fileName = QFileInfo(real.isEmpty() ? run.path : real).fileName();
    run.written = QDateTime::fromString(record.begun.time, Qt::ISODateWithMs);
    run.data = answered;
    run.data.sesTypes = known.sesTypes;
    run.data.soundTypes = known.soundTypes;
    run.data.mainParameters = known.mainParameters;
    run.isNamed = true;
    run.isRecorded = true;
}

// The values are those that a results file has: the figures are the same, whichever is read.
Complaint takeValues(Run& run, const Data& answered)
{
    const ResultsReading reading = readResults(resultsBytes(answered));
    const Complaint& complaint = reading.complaint;
    if (!complaint.text.isEmpty()) {
        constexpr int linesBefore = 2; // of the first trial in a results file
        return {run.trialLines.value(complaint.line - linesBefore), complaint.text};
    }
    run.data.records = reading.records;
    return {};
}

RunRule ruleOfRecord(const RunRule& demand, const Data& answered)
{
    if (hasAllTrials(answered) && !demand.nReversals) {
        return {answered.nReversals, demand.nLast.value_or(answered.nReversalsToCalculate)};
    }
    const int nReversals = demand.nReversals.value_or(answered.reversalCount);
    return {
        nReversals, demand.nLast.value_or(std::min(answered.nReversalsToCalculate, nReversals))};
}

QString faultOfSettings(const Data& answered)
{
    const Data known;
    if (answered.sesType < 0 || answered.sesType >= known.sesTypes.size() || answered.soundType < 0
        || answered.soundType >= known.soundTypes.size()) {
        return "the type of session or of sound is none of the program's";
    }
    return answered.nReversals < 1 || answered.nReversalsToCalculate < 1
        ? QString("the threshold is that of the last %1 of %2 reversals: there is none")
              .arg(answered.nReversalsToCalculate)
              .arg(answered.nReversals)
        : QString();
}

} // namespace

QString lackOfRecord(const RunRecord& record)
{
    const Data answered = answeredRun(record);
    if (hasAllTrials(answered)) {
        return {};
    }
    const QString where = answered.records.isEmpty()
        ? QString("before the first answer")
        : QString("after trial %1").arg(answered.records.size());
    const auto* const abandoned = std::get_if<RunAbandoned>(&record.end);
    return abandoned == nullptr ? "cut short " + where
                                : "abandoned " + where + ": " + abandoned->reason;
}

RecordTaken takeRecord(Run& run, const RunRecord& record, const RunRule& rule, bool isUnchecked)
{
    const Data answered = answeredRun(record);
    const Contradiction found = contradictionOf(record);
    Complaint departure {found.line, found.text};
    if (!found.text.isEmpty() && !isUnchecked) {
        return {departure, {}};
    }
    const QString fault = faultOfSettings(answered);
    if (!fault.isEmpty()) {
        return {{1, fault}, {}};
    }
    const QString lack = lackOfRecord(record);
    if (!lack.isEmpty() && (!isUnchecked || answered.records.isEmpty())) {
        return {{}, lack};
    }
    if (departure.text.isEmpty() && !lack.isEmpty()) {
        departure = {record.nLines, lack};
    }
    takeTrials(run, record);
    takeSettings(run, record, answered);
    takeLevels(run, record, answered);
    const Complaint damage = takeValues(run, answered);
    return {damage.text.isEmpty()
            ? judgeReadRun(run, ruleOfRecord(rule, answered), isUnchecked, departure)
            : damage,
        {}};
}
