// SPDX-License-Identifier: GPL-3.0-or-later
// The demonstration: a whole run in the windows, heard, answered and pictured.
#include "demo/Demonstration.h"

#include "app/MainWindow.h"
#include "demo/BoxAnswers.h"
#include "demo/Mouse.h"
#include "demo/Waiting.h"
#include "demo/WavFile.h"
#include "session/AdaptedParameter.h"
#include "subject/SubjectWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QWindow>

#include <algorithm>

using namespace quorin;

namespace {

// A busy machine may start a sound late; much silence keeps it from running into the next one.
constexpr int soundMs = 60;
constexpr int silentIntervalMs = 240;
constexpr int trialTimeoutMs = 20000;
constexpr int mayAnswer = -1;

constexpr auto resultsName = "results.txt";
constexpr auto soundName = "sound.wav";

bool adaptsDepth(const DemoOptions& options)
{
    return options.mainParameter == modulationDepthParameter;
}

} // namespace

Demonstration::Demonstration(const DemoOptions& options)
    : m_options(options)
    , m_folder(options.folder)
    , m_out(stdout)
    , m_recorder(m_server)
{
}

Demonstration::~Demonstration() = default;

bool Demonstration::run()
{
    if (!makeFolder() || !startSound()) {
        return false;
    }
    const bool isDone = openWindows() && playTrials() && closeWindows();
    const bool isKept = keepSound();
    m_window.reset();
    return isDone && isKept && checkResultsFile();
}

bool Demonstration::makeFolder()
{
    return m_folder.mkpath(".") || fail("the folder cannot be made: " + m_folder.path());
}

// Before the first window is made: Qt's audio keeps the server that it finds first.
bool Demonstration::startSound()
{
    if (!m_server.start()) {
        return fail("no sound server: " + m_server.errorText());
    }
    if (!m_recorder.start()) {
        return fail("no recording: " + m_recorder.errorText());
    }
    const double threshold = adaptsDepth(m_options) ? demoDepthThreshold : demoFrequencyThreshold;
    m_listener = std::make_unique<Listener>(
        m_recorder, logisticListener(threshold, demoSlopeDb), m_options.seed);
    return true;
}

bool Demonstration::openWindows()
{
    m_boxes = std::make_unique<BoxAnswers>(m_folder.filePath(resultsName));
    m_window = std::make_unique<MainWindow>();
    QObject::connect(m_window.get(), &MainWindow::soundPlaying, m_window.get(),
        [this](int interval) { m_playing = interval; });
    QObject::connect(m_window.get(), &MainWindow::doneDataCollection, m_window.get(),
        [this] { m_isFinished = true; });
    setPanel();
    m_window->show();
    const auto isShown = [this] { return m_window->windowHandle()->isExposed(); };
    if (!waitUntil(isShown, trialTimeoutMs)) {
        return fail("the main window does not appear");
    }
    return pressButton("pushButtonView") && pressButton("pushButtonGo") && takePictures("1-start");
}

void Demonstration::setPanel()
{
    if (!adaptsDepth(m_options)) {
        widget<QComboBox>("comboBoxSoundType").setCurrentIndex(sinusoidCarrier);
        widget<QComboBox>("comboBoxMainParameter").setCurrentIndex(carrierFrequencyParameter);
    }
    widget<QLineEdit>("lineEditStdDuration").setText(QString::number(soundMs));
    widget<QLineEdit>("lineEditDevDuration").setText(QString::number(soundMs));
    widget<QLineEdit>("lineEditSilentInterval").setText(QString::number(silentIntervalMs));
    widget<QLineEdit>("lineEditNReversals").setText(QString::number(m_options.reversals));
    widget<QLineEdit>("lineEditFilePath").setText(m_folder.path());
    widget<QCheckBox>("checkBoxSaveData").setChecked(true);
}

bool Demonstration::playTrials()
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (!pressButton("pushButtonIAmReady")) {
        return false;
    }
    while (!m_isFinished) {
        if (!playTrial()) {
            return false;
        }
    }
    if (reversals(m_trials) != m_options.reversals) {
        return fail(QString("the run ended after %1 reversals").arg(reversals(m_trials)));
    }
    constexpr double msPerSecond = 1000.0;
    m_out << m_trials.size() << " trials in "
          << QString::number(static_cast<double>(elapsed.elapsed()) / msPerSecond, 'f', 1) << " s"
          << Qt::endl;
    return true;
}

bool Demonstration::playTrial()
{
    DemoTrial trial = {};
    if (!playAndHear(trial)) {
        return false;
    }
    m_trials.append(trial);
    m_out << progressLine(m_trials, adaptedParameter(m_options.mainParameter)->unit) << Qt::endl;
    m_playing = 0;
    return pressButton(trial.answer == 2 ? "pushButtonChoice2" : "pushButtonChoice3");
}

bool Demonstration::playAndHear(DemoTrial& trial)
{
    // Every run has one trial more than reversals; late ones show more of the trend.
    constexpr int latestPictures = 9;
    const bool isPictured = m_trials.size() == std::min(m_options.reversals, latestPictures);
    if (isPictured && !takePicturesWhilePlaying()) {
        return false;
    }
    if (!waitUntil([this] { return m_playing == mayAnswer; }, trialTimeoutMs)) {
        return fail("the trial does not end");
    }
    if (isPictured && !takePictures("3-answering")) {
        return false;
    }
    trial.heard = m_listener->hear();
    if (trial.heard == 0) {
        return fail(m_listener->errorText());
    }
    trial.value
        = widget<QLineEdit>(adaptsDepth(m_options) ? "lineEditDevModDepth" : "lineEditDevFreqDiff")
              .text();
    trial.answer = m_listener->answer(trial.heard, trial.value.toDouble() / wholeValue());
    return true;
}

bool Demonstration::takePicturesWhilePlaying()
{
    // Taking them stops everything else for longer than the silence between two sounds lasts: only
    // the last sound can be pictured without disturbing the next one.
    constexpr int lastSound = 4;
    if (!waitUntil([this] { return m_playing == lastSound; }, trialTimeoutMs)) {
        return fail("the fourth sound does not start");
    }
    waitFor(soundMs / 2);
    return takePictures("2-playing");
}

double Demonstration::wholeValue() const
{
    const double carrier = widget<QLineEdit>("lineEditStdCarrierFreq").text().toDouble();
    return adaptedParameter(m_options.mainParameter)->shown(1.0, carrier);
}

bool Demonstration::closeWindows()
{
    if (!m_boxes->message().isEmpty()) {
        return fail("a box came up: " + m_boxes->message());
    }
    if (!takePictures("4-end")) {
        return false;
    }
    m_out << widget<QLabel>("labelThreshold").text() << Qt::endl;
    return pressButton("pushButtonDone")
        && (m_window->isEnabled() || fail("the main window is not enabled again"));
}

bool Demonstration::keepSound()
{
    const QString path = m_folder.filePath(soundName);
    return writeWavFile(path, m_recorder.stop(), m_server.settings().rate)
        || fail("cannot be written: " + path);
}

bool Demonstration::checkResultsFile()
{
    QFile file(m_folder.filePath(resultsName));
    if (!file.open(QIODevice::ReadOnly)) {
        return fail("there is no results file: " + file.fileName());
    }
    const QString different = disagreement(file.readAll(), m_trials);
    if (!different.isEmpty()) {
        return fail("the results file is not what was heard and answered: " + different);
    }
    m_out << "The results file agrees with what was heard and answered in every trial." << Qt::endl;
    reportFolder();
    return true;
}

void Demonstration::reportFolder()
{
    m_out << "Left in " << m_folder.path() << ":\n";
    const QStringList names = m_folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        m_out << "  " << name << "\n";
    }
    m_out.flush();
}

template <typename Widget> Widget& Demonstration::widget(const char* name) const
{
    auto* const found = m_window->findChild<Widget*>(name);
    Q_ASSERT(found != nullptr);
    return *found;
}

bool Demonstration::pressButton(const char* name)
{
    return press(widget<QPushButton>(name))
        || fail(QString("the button cannot be pressed: %1").arg(name));
}

bool Demonstration::takePictures(const QString& moment)
{
    // The listener's window first: its lights change while the larger one is drawn.
    auto* const subject = m_window->findChild<SubjectWindow*>();
    const bool isSaved = subject->grab().save(m_folder.filePath(moment + "-subject-window.png"))
        && m_window->grab().save(m_folder.filePath(moment + "-main-window.png"));
    return isSaved || fail("pictures cannot be written to " + m_folder.path());
}

bool Demonstration::fail(const QString& what)
{
    if (m_errorText.isEmpty()) {
        m_errorText = what;
    }
    return false;
}
