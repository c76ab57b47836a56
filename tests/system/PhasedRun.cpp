// SPDX-License-Identifier: GPL-3.0-or-later
// A run of known answers that can be left at every phase, and what it leaves.
#include "system/PhasedRun.h"

#include "support/Files.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/WindowWidgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCryptographicHash>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QtCharts/QLineSeries>

using namespace quorin;

namespace {

// Three reversals, and steps of both sizes.
const QString answers("cwcw");
constexpr int soundsPerTrial = 4;

QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

QString exact(const QVector<double>& values)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(reinterpret_cast<const char*>(values.constData()),
        values.size() * static_cast<int>(sizeof(double)));
    return QString::number(values.size()) + " samples " + hash.result().toHex();
}

QStringList linesOf(const Data& data)
{
    QStringList lines;
    for (const Record& record : data.records) {
        lines += QString("record %1 %2 %3 %4 %5")
                     .arg(exact(record.value))
                     .arg(record.stimulusPosition)
                     .arg(record.responsePosition)
                     .arg(record.correctness)
                     .arg(exact(record.reactionTime));
    }
    for (const double reversal : data.reversals) {
        lines += "reversal " + exact(reversal);
    }
    lines += QString("counts %1 %2").arg(data.nTrials).arg(data.reversalCount);
    lines += "threshold " + exact(data.threshold);
    for (const double mean :
        {data.meanReactionTime, data.meanReactionTimeCorrect, data.meanReactionTimeIncorrect}) {
        lines += "mean " + exact(mean);
    }
    return lines;
}

void choose(MainWindow& window, PhasedRun::Kind kind)
{
    QComboBox* const soundType = comboBoxOf(window, "comboBoxSoundType");
    QComboBox* const parameter = comboBoxOf(window, "comboBoxMainParameter");
    if (kind == PhasedRun::noiseAndDepth) {
        parameter->setCurrentIndex(modulationDepthParameter);
        soundType->setCurrentIndex(noiseCarrier);
    } else {
        soundType->setCurrentIndex(sinusoidCarrier);
        parameter->setCurrentIndex(carrierFrequencyParameter);
    }
}

} // namespace

const QVector<Phase>& phasesOfARun()
{
    static const QVector<Phase> phases = {
        {"before ready", false, 0, 0, false},
        {"before sound 1", true, 0, 0, false},
        {"sound 1", true, 0, 1, true},
        {"after sound 1", true, 0, 1, false},
        {"sound 2", true, 0, 2, true},
        {"after sound 2", true, 0, 2, false},
        {"sound 3", true, 0, 3, true},
        {"after sound 3", true, 0, 3, false},
        {"sound 4", true, 0, 4, true},
        {"waiting for the answer", true, 0, 4, false},
        {"after an answer", true, 1, 0, false},
        {"result", true, answers.size(), 0, false},
    };
    return phases;
}

// Each window that closes asks the application to quit once more. What is left of that would end
// the loops of later boxes; a program has none.
void runToTheQuit(MainWindow& window)
{
    window.show();
    QTimer::singleShot(0, &window, SLOT(close()));
    QApplication::exec();
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
}

PhasedRun::PhasedRun(MainWindow& window, ModalBoxes& boxes, Kind kind)
    : m_window(window)
    , m_boxes(boxes)
    , m_driver(window)
    , m_states(&window, SIGNAL(soundPlaying(int)))
    , m_path(m_folder.filePath("run.txt"))
{
    choose(window, kind);
    typeDurations(window, "10");
    type(window, "lineEditNReversals", "3");
    type(window, "lineEditNReversalsToCalc", "2");
    type(window, "lineEditSamplingRate", "40000");
    checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
}

void PhasedRun::open()
{
    qsrand(1);
    m_driver.open();
    m_states.clear();
}

void PhasedRun::playTo(const Phase& phase)
{
    open();
    if (phase.isReady) {
        m_driver.beReady();
    }
    for (int trial = 0; trial < phase.nAnswers; ++trial) {
        playTrial();
    }
    for (int sound = 1; sound <= phase.nSounds; ++sound) {
        m_driver.startSound();
        if (sound < phase.nSounds || !phase.isSounding) {
            endSound();
        }
    }
}

void PhasedRun::playOn()
{
    const Data& data = Probe::data(m_window);
    if (data.nTrials == 0) {
        m_driver.beReady();
    } else if (Probe::audioOutput(m_window) != nullptr) {
        endSound();
    }
    while (data.records.size() < answers.size()) {
        playTrial();
    }
}

void PhasedRun::playTrial()
{
    while (Probe::soundIndex(m_window) < soundsPerTrial) {
        m_driver.startSound();
        endSound();
    }
    answer();
}

void PhasedRun::endSound()
{
    m_sinceEnd.start();
    m_driver.endSound();
}

// The reaction time of this run is counted from an end of this run. Then the clock is stopped,
// since the time that a test takes is no outcome.
void PhasedRun::answer()
{
    const int trial = Probe::data(m_window).records.size();
    QElapsedTimer& clock = *Probe::timerReaction(m_window);
    if (!clock.isValid() || clock.elapsed() > m_sinceEnd.elapsed()) {
        ++m_foreignClocks;
    }
    clock.invalidate();
    if (trial == answers.size() - 1) {
        m_boxes.chooseFile(m_path);
    }
    m_driver.answerRightly(answers[trial] == 'c');
}

QStringList PhasedRun::outcome()
{
    QStringList lines;
    QString states("states");
    for (const QVariantList& state : qAsConst(m_states)) {
        states += ' ' + state.constFirst().toString();
    }
    lines += states;
    lines += QString("foreign clocks %1").arg(m_foreignClocks);
    lines += linesOf(Probe::data(m_window));
    for (const QPointF& point : Probe::trendSeries(m_window)->pointsVector()) {
        lines += "trend " + exact(point.x()) + ' ' + exact(point.y());
    }
    lines += "trend from " + exact(Probe::trendYMin(m_window)) + " to "
        + exact(Probe::trendYMax(m_window));
    lines += exact(Probe::stimuli(m_window)[standard].samples);
    lines += exact(Probe::stimuli(m_window)[deviant].samples);
    lines += labelOf(*Probe::subjectWindow(m_window), "labelThreshold")->text();
    lines += QString::fromLatin1(contentOf(m_path)).split('\n');
    return lines;
}
