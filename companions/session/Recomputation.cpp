// SPDX-License-Identifier: GPL-3.0-or-later
// A recorded run computed again.
#include "session/Recomputation.h"

#include "app/PlayedSound.h"
#include "app/TrialSequence.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "record/FigureTexts.h"
#include "session/AdaptedParameter.h"
#include "session/RandomDraws.h"
#include "signal/SignalToolkit.h"
#include "signal/Stimulus.h"

#include <QCryptographicHash>

using namespace quorin;

namespace {

/// The windows' computation of a run, answer by answer.
class Recomputation {
public:
    explicit Recomputation(const RunRecord& run)
        : m_run(run)
        , m_data(run.begun.view)
    {
    }

    QStringList differences()
    {
        seedAndView();
        m_data = m_run.begun.go;
        for (const RecordedTrial& trial : m_run.trials) {
            beginTrial(trial);
            compareSounds(trial);
            if (trial.answer) {
                answer(*trial.answer);
            }
        }
        compareEnd();
        return m_differences;
    }

private:
    void seedAndView()
    {
        seedGenerator(static_cast<uint>(m_run.begun.seed), m_run.begun.drawsBefore);
        synthesise(m_sounds[standard], m_data, standard);
        makeDeviant();
    }

    void makeDeviant()
    {
        synthesise(m_sounds[deviant], m_data, deviant);
        if (m_data.equalizeRms) {
            equaliseLevels(m_sounds[standard], m_sounds[deviant]);
        }
        m_digests[standard].clear();
        m_digests[deviant].clear();
    }

    void beginTrial(const RecordedTrial& trial)
    {
        m_data.deviantPosition = randomInteger(2, 3);
        ++m_data.nTrials;
        m_place = QString("trial %1").arg(m_data.nTrials);
        compare("position", trial.begun.position, m_data.deviantPosition);
        compare("value", trial.begun.value, adaptedValue(m_data));
    }

    void compareSounds(const RecordedTrial& trial)
    {
        const QVector<bool> sequence = trialSequence(soundsPerTrial, m_data.deviantPosition);
        for (const SoundStarted& sound : trial.sounds) {
            const bool isSound = sound.interval >= 1 && sound.interval <= soundsPerTrial;
            const QString digest = isSound
                ? digestOf(sequence[sound.interval - 1] ? deviant : standard)
                : digestOf(QByteArray());
            compare(QString("samples of interval %1").arg(sound.interval), sound.sha256, digest);
        }
    }

    static QString digestOf(const QByteArray& bytes)
    {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    }

    QString digestOf(int index)
    {
        if (m_digests[index].isEmpty()) {
            m_digests[index] = digestOf(encodedPcm(m_sounds[index], m_data.nSamples[index]));
        }
        return m_digests[index];
    }

    void answer(const AnswerGiven& given)
    {
        const int reversalsBefore = m_data.reversalCount;
        m_data.records.append(answeredTrial(
            adaptedValue(m_data), m_data.deviantPosition, given.response, given.reactionMs));
        m_hasEnded = judgeTrial(m_data, m_data.nTrials - 1) == AfterTrial::end;
        std::optional<double> valueAfter;
        if (m_hasEnded) {
            computeRunResults(m_data);
        } else {
            stepDeviant(m_data);
            makeDeviant();
            valueAfter = adaptedValue(m_data);
        }
        const Record& record = qAsConst(m_data.records).last();
        compare("correctness", given.isCorrect, record.correctness);
        compare("value answered", given.value, record.value);
        compare("value after", given.valueAfter, valueAfter);
        compare("reversal", given.isReversal, m_data.reversalCount > reversalsBefore);
        compare("count of reversals", given.reversals, m_data.reversalCount);
    }

    void compareEnd()
    {
        m_place = "end";
        const RunFigures* figures = std::get_if<RunSaved>(&m_run.end);
        if (figures == nullptr) {
            figures = std::get_if<RunUnsaved>(&m_run.end);
        }
        if (figures == nullptr) {
            return;
        }
        compare("whether the run had all its reversals", true, m_hasEnded);
        compare("trials", figures->trials, m_data.records.size());
        compare("threshold", figures->threshold, m_data.threshold);
        compare("mean reaction time", figures->reactionMs, m_data.meanReactionTime);
        compare("mean reaction time, correct", figures->reactionCorrectMs,
            m_data.meanReactionTimeCorrect);
        compare("mean reaction time, wrong", figures->reactionWrongMs,
            m_data.meanReactionTimeIncorrect);
    }

    // By their texts, which are exact: results may be NaN.
    template <typename Figure>
    void compare(const QString& name, const Figure& recorded, const Figure& computed)
    {
        if (textOf(recorded) != textOf(computed)) {
            m_differences.append(QString("%1: %2: recorded %3, computed %4")
                                     .arg(m_place, name, textOf(recorded), textOf(computed)));
        }
    }

    const RunRecord& m_run;
    Data m_data;
    QVector<double> m_sounds[2];
    QString m_digests[2]; ///< of what is played of the two; empty until asked for
    bool m_hasEnded = false;
    QString m_place;
    QStringList m_differences;
};

} // namespace

QStringList differencesOf(const RunRecord& run)
{
    return Recomputation(run).differences();
}
