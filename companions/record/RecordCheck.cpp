// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the lines of a record fit each other, and the run that they make.
#include "record/RecordCheck.h"

#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "record/FigureTexts.h"
#include "record/RecordReader.h"
#include "session/AdaptedParameter.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace quorin;

namespace {

bool isSame(double a, double b)
{
    constexpr double share = 4 * std::numeric_limits<double>::epsilon();
    return a == b || (std::isnan(a) && std::isnan(b)) || std::abs(a - b) <= share * std::abs(b);
}

bool isSame(int a, int b)
{
    return a == b;
}

bool isSame(const std::optional<double>& a, const std::optional<double>& b)
{
    return a.has_value() == b.has_value() && (!a || isSame(*a, *b));
}

bool isAnInterval(int position)
{
    return position == 2 || position == 3;
}

bool hasScreen(const QJsonArray& screens, const QString& name)
{
    return std::any_of(screens.begin(), screens.end(),
        [&name](const QJsonValue& screen) { return screen.toObject().value("name") == name; });
}

QVector<int> interruptedLines(const RunRecord& run)
{
    QVector<int> lines;
    for (const RecordedTrial& trial : run.trials) {
        lines += trial.interruptionLines;
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

QVector<int> endLines(const RunRecord& run, bool SoundEnded::*isFlagged)
{
    QVector<int> lines;
    for (const RecordedTrial& trial : run.trials) {
        for (int i = 0; i < trial.ends.size(); ++i) {
            if (trial.ends[i].*isFlagged) {
                lines.append(trial.endLines[i]);
            }
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

// Of lines in the order of the file. One of an earlier trial's sound counts where it stands.
int countBeforeAnswer(const QVector<int>& lines, const RecordedTrial& trial)
{
    const auto first = std::lower_bound(lines.cbegin(), lines.cend(), trial.begunLine);
    const auto last = std::lower_bound(first, lines.cend(), trial.answerLine);
    return static_cast<int>(last - first);
}

void addAnswer(Data& data, const RecordedTrial& trial)
{
    const AnswerGiven& answer = *trial.answer;
    Record record
        = answeredTrial(answer.value, trial.begun.position, answer.response, answer.reactionMs);
    record.correctness = answer.isCorrect;
    data.records.append(record);
    data.nTrials = data.records.size();
    judgeTrial(data, data.nTrials - 1);
}

/// Follows a run line by line until two of its lines contradict each other.
class Walk {
public:
    explicit Walk(const RunRecord& run)
        : m_run(run)
        , m_data(run.begun.go)
        , m_value(adaptedValue(m_data))
        , m_interrupted(interruptedLines(run))
        , m_endsAfterGap(endLines(run, &SoundEnded::isInterrupted))
        , m_endsAfterDelay(endLines(run, &SoundEnded::isLate))
    {
        clearRun(m_data);
    }

    Contradiction firstContradiction()
    {
        checkChoices();
        for (const RecordedTrial& trial : m_run.trials) {
            if (hasFound() && m_found.line < trial.begunLine) {
                return m_found;
            }
            checkBegin(trial);
            checkSounds(trial);
            checkRestOfSounds(trial);
            if (trial.answer) {
                checkAnswer(trial, *trial.answer);
            }
        }
        if (hasFound()) {
            return m_found;
        }
        m_line = m_run.nLines;
        std::visit([this](const auto& end) { checkEnd(end); }, m_run.end);
        return m_found;
    }

private:
    void checkChoices()
    {
        const Data known;
        const RunBegun& begun = m_run.begun;
        m_line = 1;
        demand(begun.sessionType == known.sesTypes.value(begun.go.sesType),
            "the type of session has another name than number");
        demand(begun.soundType == known.soundTypes.value(begun.go.soundType),
            "the type of sound has another name than number");
        demand(begun.mainParameter == known.mainParameters.value(begun.go.mainParameter),
            "the main parameter has another name than number");
        demand(!begun.listenerScreen || hasScreen(begun.screens, *begun.listenerScreen),
            "the listener's screen is not one of the screens");
        demand(!begun.protocol || begun.protocol->subject == begun.go.subCode,
            "the protocol's subject is not that of the run");
        const QString fault = begun.calibration ? faultOf(begun.calibration->note) : QString();
        demand(fault.isEmpty(), "the calibration: " + fault);
    }

    void checkBegin(const RecordedTrial& trial)
    {
        m_line = trial.begunLine;
        demand(!m_hasEnded, "a trial begins after the run had all its reversals");
        demand(isAnInterval(trial.begun.position),
            QString("the position is %1, not 2 or 3").arg(trial.begun.position));
        compare("the value", trial.begun.value, m_value);
        checkTime(trial.begun.atMs);
    }

    // The interval that holds the deviant is the only one that may sound otherwise.
    void checkSounds(const RecordedTrial& trial)
    {
        for (int i = 0; i < trial.sounds.size(); ++i) {
            const SoundStarted& sound = trial.sounds[i];
            m_line = trial.soundLines[i];
            compare("the interval", sound.interval, i + 1);
            checkTime(sound.atMs);
            const bool isStandard = i < soundsPerTrial && sound.interval != trial.begun.position;
            demand(!isStandard || sound.sha256 == trial.sounds[0].sha256,
                QString("the samples are not those of the first interval, and the deviant is in %1")
                    .arg(trial.begun.position));
        }
        if (trial.allowed) {
            m_line = trial.allowedLine;
            demand(
                trial.sounds.size() >= soundsPerTrial, "the answer is allowed before four sounds");
            checkTime(trial.allowed->atMs);
        }
    }

    // The lines of a sound after its start may stand anywhere behind that.
    void checkRestOfSounds(const RecordedTrial& trial)
    {
        for (int i = 0; i < trial.interruptions.size(); ++i) {
            m_line = trial.interruptionLines[i];
            checkIsOfSound(trial, trial.interruptions[i]);
        }
        QSet<int> ended;
        for (int i = 0; i < trial.ends.size(); ++i) {
            m_line = trial.endLines[i];
            const int interval = trial.ends[i].interval;
            checkIsOfSound(trial, trial.ends[i]);
            demand(!ended.contains(interval),
                QString("the sound of interval %1 has ended before").arg(interval));
            ended.insert(interval);
        }
    }

    template <typename Line> void checkIsOfSound(const RecordedTrial& trial, const Line& line)
    {
        const bool hasSound
            = line.interval > 0 && trial.soundLines.value(line.interval - 1, m_line) < m_line;
        demand(hasSound,
            QString("there is no sound of interval %1 before in trial %2")
                .arg(line.interval)
                .arg(line.trial));
        demand(!hasSound || line.atMs >= trial.sounds[line.interval - 1].atMs,
            "the time is before that of the sound's start");
    }

    void checkAnswer(const RecordedTrial& trial, const AnswerGiven& answer)
    {
        m_line = trial.answerLine;
        demand(trial.allowed.has_value(), "the answer comes before it is allowed");
        checkTime(answer.atMs);
        demand(isAnInterval(answer.response),
            QString("the response is %1, not 2 or 3").arg(answer.response));
        demand(answer.isCorrect == (answer.response == trial.begun.position),
            QString("the answer %1 is judged as %2, and the deviant is in %3")
                .arg(answer.response)
                .arg(answer.isCorrect ? "correct" : "wrong")
                .arg(trial.begun.position));
        compare("the value", answer.value, trial.begun.value);
        checkDisturbances(trial, answer);
        const int reversalsBefore = m_data.reversalCount;
        addAnswer(m_data, trial);
        m_hasEnded = enoughReversals(m_data);
        demand(answer.isReversal == (m_data.reversalCount > reversalsBefore),
            answer.isReversal ? "is called a reversal and is none"
                              : "is a reversal and is not called so");
        compare("the count of reversals", answer.reversals, m_data.reversalCount);
        compare("the value after the answer", answer.valueAfter, valueAfter(answer.value));
        m_value = answer.valueAfter.value_or(m_value);
    }

    // What is counted need not have its line: the sound may have no end.
    void checkDisturbances(const RecordedTrial& trial, const AnswerGiven& answer)
    {
        demandAtMost(answer.interruptedSounds, countBeforeAnswer(m_interrupted, trial),
            "%1 interrupted sounds are counted, and %2 have their line");
        demandAtMost(answer.interruptedSounds, countBeforeAnswer(m_endsAfterGap, trial),
            "%1 interrupted sounds are counted, and %2 lines of an end tell one");
        demandAtMost(answer.lateSounds, countBeforeAnswer(m_endsAfterDelay, trial),
            "%1 late sounds are counted, and %2 lines of an end tell one");
        demand((answer.lateSounds > 0) == (answer.worstLatenessMs > 0),
            QString("%1 sounds are late, the latest by %2 ms")
                .arg(answer.lateSounds)
                .arg(answer.worstLatenessMs));
    }

    std::optional<double> valueAfter(double value) const
    {
        const double ceiling = adaptedParameter(m_data.mainParameter)->ceiling;
        return m_hasEnded ? std::optional<double>()
                          : steppedValue(value, nextStepDb(m_data), ceiling);
    }

    void checkEnd(const std::monostate& /*none*/) { }

    void checkEnd(const RunFigures& figures)
    {
        computeRunResults(m_data);
        demand(m_hasEnded, "the run is finished without all its reversals");
        compare("the number of trials", figures.trials, m_data.nTrials);
        compare("the threshold", figures.threshold, m_data.threshold);
        compare("the mean reaction time", figures.reactionMs, m_data.meanReactionTime);
        compare("the mean reaction time of correct answers", figures.reactionCorrectMs,
            m_data.meanReactionTimeCorrect);
        compare("the mean reaction time of wrong answers", figures.reactionWrongMs,
            m_data.meanReactionTimeIncorrect);
        checkTime(figures.atMs);
    }

    void checkEnd(const RunAbandoned& end)
    {
        demand(!m_hasEnded, "the run is abandoned with all its reversals");
        compare("the number of trials", end.trials, m_data.nTrials);
        checkTime(end.atMs);
    }

    void checkTime(double atMs)
    {
        demand(atMs >= m_lastMs, "the time is before that of an earlier line");
        m_lastMs = atMs;
    }

    template <typename Figure>
    void compare(const char* name, const Figure& recorded, const Figure& expected)
    {
        demand(isSame(recorded, expected),
            QString("%1 is %2, and %3 follows from the lines before")
                .arg(name, textOf(recorded), textOf(expected)));
    }

    void demandAtMost(int most, int count, const char* otherwise)
    {
        demand(count <= most, QString(otherwise).arg(most).arg(count));
    }

    // The lines of a trial are not looked at in their order.
    void demand(bool isMet, const QString& otherwise)
    {
        if (!isMet && (!hasFound() || m_line < m_found.line)) {
            m_found = {m_line, otherwise};
        }
    }

    bool hasFound() const { return !m_found.text.isEmpty(); }

    const RunRecord& m_run;
    Data m_data;
    double m_value; ///< that the next trial has
    QVector<int> m_interrupted; ///< lines of interruptions, in the order of the file
    QVector<int> m_endsAfterGap; ///< of ends that tell an interruption, likewise
    QVector<int> m_endsAfterDelay; ///< of ends that tell a late sound, likewise
    double m_lastMs = 0.0;
    bool m_hasEnded = false;
    int m_line = 0; ///< that is looked at
    Contradiction m_found;
};

} // namespace

Contradiction contradictionOf(const RunRecord& run)
{
    return Walk(run).firstContradiction();
}

Data answeredRun(const RunRecord& run)
{
    Data data = run.begun.go;
    clearRun(data);
    for (const RecordedTrial& trial : run.trials) {
        if (trial.answer) {
            addAnswer(data, trial);
        }
    }
    return data;
}

bool hasAllTrials(const Data& answered)
{
    return !answered.records.isEmpty() && enoughReversals(answered);
}
