// SPDX-License-Identifier: GPL-3.0-or-later
// Watches the main window and writes what happens in a run.
#include "session/FlightRecorder.h"

#include "app/MainWindow.h"
#include "app/TrialSequence.h"
#include "procedure/ResultsFormat.h"
#include "record/RecordWriter.h"
#include "session/AdaptedParameter.h"
#include "session/RandomDraws.h"
#include "session/RunSettings.h"
#include "subject/SubjectWindow.h"

#include <QAudioOutput>
#include <QBuffer>
#include <QEvent>
#include <QPushButton>
#include <QTimer>

#include <cmath>
#include <utility>

using namespace quorin;

namespace {

const char* const endOfProgram = "the program was ended";

// Microseconds are enough, and keep the lines short.
double inWholeUs(double ms)
{
    constexpr double usPerMs = 1000.0;
    return std::round(ms * usPerMs) / usPerMs;
}

} // namespace

// The window's own slots are connected before these: at a click, it has done all when they run.
FlightRecorder::FlightRecorder(
    MainWindow& window, QString folder, qint64 seed, QStringList otherFolders)
    : m_window(window)
    , m_queue(std::move(folder), std::move(otherFolders), [this] { tellFaults(); })
    , m_seed(seed)
    , m_draws(drawsOfView(window.sessionRecord()))
    , m_lastSound(window)
{
    connect(window.findChild<QPushButton*>("pushButtonView"), &QPushButton::clicked, this,
        &FlightRecorder::noteView);
    connect(window.findChild<QPushButton*>("pushButtonGo"), &QPushButton::clicked, this,
        &FlightRecorder::begin);
    const QList<QTimer*> timers = window.findChildren<QTimer*>();
    for (QTimer* timer : timers) {
        timer->installEventFilter(this);
    }
    connect(&window, &MainWindow::soundPlaying, this, &FlightRecorder::noteState);
    connect(&window, &MainWindow::doneDataCollection, this, &FlightRecorder::finish);
    connect(&m_lastSound, &LastSound::lost, this, [this] {
        m_hasSoundFailed = true;
        emit trialLost(m_trials);
    });
}

FlightRecorder::~FlightRecorder()
{
    abandon(endOfProgram);
}

// The window's timers start the sounds: what waits is on the disk before.
bool FlightRecorder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Timer && m_isRunning) {
        m_queue.hurry();
    }
    return QObject::eventFilter(watched, event);
}

void FlightRecorder::endLostTrial()
{
    m_lastSound.giveUp();
}

QString FlightRecorder::recordName() const
{
    return m_queue.hasFile() ? m_queue.file().recordName() : QString();
}

void FlightRecorder::noteView()
{
    m_view = m_window.sessionRecord();
    m_drawsBeforeView = m_draws;
    m_draws += drawsOfView(m_view);
}

void FlightRecorder::begin()
{
    abandon("another run was begun");
    m_clock.start();
    m_isRunning = true;
    ++m_runs;
    m_trials = 0;
    m_answers = 0;
    m_reversals = 0;
    m_hasSoundFailed = false;
    m_lastSound.forget();
    RunBegun line = runSettings(m_window);
    line.seed = m_seed;
    line.drawsBefore = m_drawsBeforeView;
    line.protocol = m_place ? m_place() : std::nullopt;
    if (m_calibration) {
        line.calibration = m_calibration();
    }
    line.view = m_view;
    line.go = m_window.sessionRecord();
    m_queue.begin(line.go.subCode, line.time);
    add(line);
    flush();
    tellFaults();
    watchListener();
    if (line.calibration && !line.calibration->differences.isEmpty()) {
        emit calibrationDiffers(line.calibration->differences);
    }
}

void FlightRecorder::watchListener()
{
    SubjectWindow* const listener = m_window.findChildren<SubjectWindow*>().constLast();
    connect(listener, &SubjectWindow::subjectResponded, this, &FlightRecorder::catchUp);
    connect(listener, &SubjectWindow::subjectWindowClosed, this,
        [this] { abandon("the listener's window was closed"); });
}

void FlightRecorder::noteState(int state)
{
    if (!m_isRunning) {
        return;
    }
    catchUp();
    m_isInTrial = true;
    if (state == answerState) {
        add(AnswerAllowed {m_trials, nowMs()});
        m_queue.hold();
    } else {
        noteSound(state);
    }
}

// The bytes are shared with those that are played, and digested when the line is written.
void FlightRecorder::noteSound(int interval)
{
    const Data& data = m_window.sessionRecord();
    const double startMs = nowMs();
    const double dueMs = m_lastStartMs + trialPeriodMs(data.silentInterval, data.dur);
    const double latenessMs = inWholeUs(startMs - dueMs);
    const int trial = m_trials;
    const QBuffer* const sound = m_window.soundNowPlaying();
    m_lastStartMs = startMs;
    add(SoundStarted {trial, interval, latenessMs, {}, startMs},
        sound == nullptr ? QByteArray() : sound->data());
    if (sound != nullptr) {
        watchSound(*sound, trial, interval);
    }
}

// A sound of an abandoned run may end in the next. The window's own slots come first.
void FlightRecorder::watchSound(const QIODevice& sound, int trial, int interval)
{
    auto* const output = m_window.findChildren<QAudioOutput*>().constLast();
    m_lastSound.noteStart(interval, output);
    connect(output, &QAudioOutput::stateChanged, this, [this, run = m_runs, trial, interval] {
        if (run == m_runs) {
            noteInterruption(trial, interval);
        }
    });
    connect(&sound, &QIODevice::aboutToClose, this, [this, run = m_runs, trial, interval] {
        if (run == m_runs) {
            noteEnd(trial, interval);
        }
    });
}

void FlightRecorder::noteInterruption(int trial, int interval)
{
    const int interruptions = m_window.trialDisturbances().interruptedSounds;
    if (m_isRunning && interruptions > m_interruptions) {
        m_interruptions = interruptions;
        add(SoundInterrupted {trial, interval, nowMs()});
    }
}

void FlightRecorder::noteEnd(int trial, int interval)
{
    if (!m_isRunning) {
        return;
    }
    noteInterruption(trial, interval); // the output need not have reported it
    const Disturbances& disturbances = m_window.trialDisturbances();
    add(SoundEnded {trial, interval, disturbances.interruptedSounds > m_interruptedTold,
        disturbances.lateSounds > m_lateTold, nowMs()});
    m_interruptedTold = disturbances.interruptedSounds;
    m_lateTold = disturbances.lateSounds;
}

// An answer is in the window's record, and the next trial has begun, when its slot has returned.
void FlightRecorder::catchUp()
{
    if (!m_isRunning) {
        return;
    }
    const Data& data = m_window.sessionRecord();
    if (data.records.size() > m_answers) {
        noteAnswer();
        tellFaults();
        tellSoundFailure();
    }
    if (data.nTrials > m_trials) {
        noteTrial();
    }
}

void FlightRecorder::noteAnswer()
{
    const Data& data = m_window.sessionRecord();
    const Record& record = data.records.constLast();
    const Disturbances& disturbances = m_window.runDisturbances().constLast();
    AnswerGiven line;
    m_answers = data.records.size();
    m_isInTrial = false;
    m_queue.release();
    line.trial = m_answers;
    line.response = record.responsePosition;
    line.isCorrect = record.correctness;
    line.reactionMs = record.reactionTime;
    line.value = record.value;
    if (data.nTrials > m_answers) {
        line.valueAfter = adaptedValue(data);
        m_draws += drawsOfStep(data);
    }
    line.isReversal = data.reversalCount > m_reversals;
    line.reversals = data.reversalCount;
    line.interruptedSounds = disturbances.interruptedSounds;
    line.lateSounds = disturbances.lateSounds;
    line.worstLatenessMs = disturbances.worstLatenessMs;
    line.hasOutputFailed = hasOutputFailed();
    line.atMs = nowMs();
    m_reversals = data.reversalCount;
    add(line);
}

void FlightRecorder::noteTrial()
{
    const Data& data = m_window.sessionRecord();
    m_trials = data.nTrials;
    m_draws += drawsOfPosition;
    m_interruptions = 0;
    m_interruptedTold = 0;
    m_lateTold = 0;
    m_lastStartMs = nowMs();
    add(TrialBegun {m_trials, data.deviantPosition, adaptedValue(data), m_lastStartMs});
}

// Comes within the window's slot for the last answer, before its dialog.
void FlightRecorder::finish()
{
    if (!m_isRunning) {
        return;
    }
    catchUp();
    m_isRunning = false;
    const Data& data = m_window.sessionRecord();
    m_queue.file().finish(resultsBytes(data),
        [figures = figuresOf(data, nowMs())](const QString& name, const QString& error) {
            return error.isEmpty() ? lineBytes(RunSaved {figures, name})
                                   : lineBytes(RunUnsaved {figures, error});
        });
    flush();
    tellFaults();
}

void FlightRecorder::abandon(const QString& reason)
{
    if (!m_isRunning) {
        return;
    }
    m_isRunning = false;
    m_isInTrial = false;
    add(RunAbandoned {m_answers, reason + m_lastSound.loss(), nowMs()});
    m_lastSound.forget();
    m_queue.file().finish();
    flush();
    tellFaults();
}

template <typename Line> void FlightRecorder::add(const Line& line, const QByteArray& sound)
{
    m_queue.append(lineObject(line), sound);
}

bool FlightRecorder::flush()
{
    return m_queue.flush();
}

QStringList FlightRecorder::close()
{
    abandon(endOfProgram);
    const QStringList told = m_queue.close();
    return told + m_queue.takeResultsFaults();
}

// Boxes must not open while a trial is heard.
void FlightRecorder::tellFaults()
{
    if (m_isInTrial) {
        return;
    }
    const QString fault = m_queue.error();
    const bool isNews = fault != std::exchange(m_fault, fault);
    if (!fault.isEmpty() && isNews) {
        emit failed(fault);
    } else if (isNews) {
        emit recovered();
    }
    const QStringList resultsFaults = fault.isEmpty() ? m_queue.takeResultsFaults() : QStringList();
    for (const QString& resultsFault : resultsFaults) {
        emit resultsFailed(resultsFault);
    }
}

void FlightRecorder::tellSoundFailure()
{
    const bool hadFailed = m_hasSoundFailed;
    m_hasSoundFailed = hasOutputFailed();
    if (m_hasSoundFailed && !hadFailed) {
        emit soundFailed(m_answers);
    }
}

// In the trial that was answered last. The window is not told of a fourth sound's loss.
bool FlightRecorder::hasOutputFailed() const
{
    return m_lastSound.wasGivenUpIn(m_answers)
        || m_window.runDisturbances().constLast().hasOutputFailed;
}

double FlightRecorder::nowMs() const
{
    constexpr double nsPerMs = 1e6;
    return inWholeUs(static_cast<double>(m_clock.nsecsElapsed()) / nsPerMs);
}
