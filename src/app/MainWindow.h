// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where the operations of MainWindow are defined:
//   app/MainWindow.cpp                 construction, destruction, the small slots
//   app/MainWindow_Layout.cpp          grids, sizes, texts and geometry of the window
//   app/MainWindow_Help.cpp            tool tips, accessible names and the order of the Tab key
//   app/MainWindow_TrialLoop.cpp       Go, the pacing of sounds, the answer, the end of a run
//   app/MainWindow_Playback.cpp        a sound from its start to its release, interruptions
//   session/MainWindow_Panel.cpp       the panel to and from the record, the results file's name
//   signal/MainWindow_Sounds.cpp       the two sounds and the refresh of their charts
//   signal/MainWindow_Spectra.cpp      their spectra and the refresh of their charts
//   procedure/MainWindow_Staircase.cpp trend, reversals and steps of the deviant
//   procedure/MainWindow_Results.cpp   threshold, mean reaction times, the results file
//   charts/MainWindow_Charts.cpp       waveforms, spectra and trend on first display
// The rules and the arithmetic under them are pure functions in the files beside these.

#include "app/PlayedSound.h"
#include "app/SoundPacing.h"
#include "charts/ChartData.h"
#include "charts/ChartParts.h"
#include "session/Data.h"
#include "session/Disturbances.h"

#include <QAudio>
#include <QAudioFormat>
#include <QElapsedTimer>
#include <QFont>
#include <QList>
#include <QMainWindow>
#include <QVector>

#include <memory>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class ReactionClock;
class SubjectWindow;

/// The experimenter's window: the parameter panel, the charts and the controller of the experiment.
/// It owns the session record and everything that a run needs. All of it runs on the user-interface
/// thread.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Builds the window with the default stimuli, their spectra and an empty trend.
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

signals:
    /// 1 to 4: the sound of that interval starts; answerState: the answer may be given.
    void soundPlaying(int state);
    /// Declared for the table of methods; never emitted.
    void stateChanged(QAudio::State state);
    /// The results of a finished run: threshold as a fraction, mean reaction time in ms, the main
    /// parameter and the standard's carrier frequency in Hz.
    void doneDataCollection(
        qreal threshold, qreal reactionTime, qint32 mainParameter, qreal carrierFrequency);

public slots:
    /// Reads the panel, makes and shows the stimuli, clears the trend and enables Go.
    void on_pushButtonView_clicked();
    /// Reads the panel and opens a new subject window for a run.
    void on_pushButtonGo_clicked();
    /// The listener's message: readyResponse starts the run, 1 to 4 answer the trial; anything else
    /// warns.
    void updateMainwindow(int response);
    /// A tick of the pacing timer: starts the next sound of the trial.
    void playOneSound();
    /// Connected to nothing.
    void doNothing();
    /// The end of a sound, or its failure.
    void handleStateChanged(QAudio::State state);
    // What changes do at once; noise with an adapted carrier frequency is warned of and taken back.
    void on_comboBoxSesType_currentIndexChanged(int index);
    void on_comboBoxSoundType_currentIndexChanged(int index);
    void on_comboBoxMainParameter_currentIndexChanged(int index);
    void on_lineEditSubCode_textChanged(const QString& text);
    void on_lineEditSesNum_textChanged(const QString& text);
    /// After a run, finished or abandoned: View is possible, Go is not.
    void refreshMainWindow();

public:
    // app/MainWindow.cpp
    /// Disables the whole window; nothing in the program calls it.
    void disableAllComponents();

    // app/MainWindow_Layout.cpp
    /// Places the widgets, sets sizes, title and alignments; warns if the screen is too low.
    void setupGUIMainWindow();
    /// The window's geometry on the primary screen; see windowRectangle.
    void centerAndResizeMainWindow(bool center, double widthFraction, double heightFraction);

    // app/MainWindow_TrialLoop.cpp
    /// Starts one trial: draws the deviant's position and starts the pacing timer.
    void playWav();
    /// Draws the deviant's position, 2 or 3, and fills the trial's sequence.
    void genRandomSequence();
    /// Ends the run: results, the listener's result text, the results file.
    void finishIt();
    /// updateTrend, then updateReversal.
    void updateAll();
    /// What disturbed the sounds of the trial under way, or of the last one.
    const Disturbances& trialDisturbances() const { return disturbances; }
    /// The same of each record's trial, in the order of the records; cleared with them.
    const QVector<Disturbances>& runDisturbances() const { return recordedDisturbances; }
    /// The session record as it stands.
    const Data& sessionRecord() const { return data; }
    /// The sound that was started last, null after its end; after a failure, until the next tick.
    const QBuffer* soundNowPlaying() const { return audioBuffer; }

    // session/MainWindow_Panel.cpp
    /// Fills the controls from the record, once, and makes the timers, fonts and audio format.
    void initParameters();
    /// Reads every control into the record. Numbers that do not parse become 0. Rewrites what is
    /// reset of the deviant, else its difference, and the reversals to calculate if too many.
    void getParameters();
    /// Composes the name of the results file and shows it.
    void updateFileName();

    // signal/MainWindow_Sounds.cpp
    /// Synthesises the sounds: the deviant on every call, the standard only before the first trial
    /// of a run; a whole run reuses that one standard, rescaled to the level of each new deviant.
    void genWav();
    /// Refreshes the waveform charts in place after genWav.
    void updateWav();

    // signal/MainWindow_Spectra.cpp
    /// Amplitude and phase spectra of both sounds.
    void genFFT();
    /// Refreshes the spectrum charts in place after genFFT.
    void updateFFT();

    // procedure/MainWindow_Staircase.cpp
    /// Adds the trial just answered to the trend. Does nothing without its record.
    void updateTrend();
    /// Judges the trial just answered, then ends the run or plays the next trial. Does nothing
    /// without its record.
    void updateReversal();
    /// Moves the deviant by one step and shows it in the panel.
    void updateMD();
    /// Puts the deviant to the starting values of the main parameter and shows it in the panel.
    void resetMdFdCf();
    /// Clears trend, reversals and records for a new run.
    void resetTrend();

    // procedure/MainWindow_Results.cpp
    /// Fills the record's threshold and mean reaction times.
    void computeResults();
    /// Asks where to save and writes the run's trials there; warns where that cannot be done.
    void writeDataToTxt();

    // charts/MainWindow_Charts.cpp
    /// How many samples of each sound the charts show.
    void updateNPointsToPlot();
    /// Shows both waveforms; makes their charts on the first call.
    void displayWav();
    /// Shows both spectra; makes their charts on the first call.
    void displayFFT();
    /// Makes the trend chart on the first call; later ones name its vertical axis.
    void displayTrend();

protected:
    /// While a run has this window disabled, activating or pressing it brings the listener's window
    /// to the front.
    bool event(QEvent* event) override;
    /// Ignores the title bar's close while a run has the window disabled.
    void closeEvent(QCloseEvent* event) override;

private:
    friend struct MainWindowProbe;

    // app/MainWindow.cpp
    void makeConnections();
    void bringSubjectWindowForward();
    void deleteCharts();
    void deleteWidgets();
    // app/MainWindow_Layout.cpp, app/MainWindow_Help.cpp
    void fillParameterGrid();
    void describePanel();
    // app/MainWindow_TrialLoop.cpp
    void makeTrialLoop();
    void connectToListener(SubjectWindow* window);
    QByteArray nextPcm() const;
    bool mustWaitForSound(double tickMs);
    bool waitAnew();
    void waitForSound();
    void paceNextSound(double tickMs);
    void restartPeriod();
    void judgeStart(double latenessMs, bool wasBlocked);
    void judgeOnset(double delayMs);
    void noteLateSound(double ms);
    void resumePacing(const SoundProgress& ended);
    double pacingTimeMs() const;
    void endTrial();
    void startReactionTimer();
    // app/MainWindow_Playback.cpp
    void makeAudioFormat();
    void setPlaybackRate();
    void checkPlaybackFormat() const;
    void startSound(const QByteArray& bytes);
    void endCurrentSound();
    void warnOfError(const PlayedSound& sound);
    void noteFailure(const PlayedSound& sound);
    void noteGap(const QBuffer* buffer);
    void noteInterruption(SoundProgress& progress);
    void lookAfterInterruptedSounds();
    PlayedSound currentSound() const;
    PlayedSound takeCurrentSound();
    static bool plays(const PlayedSound& sound);
    static bool isUnfinished(const PlayedSound& sound);
    void putCurrentSoundAside();
    void handleSoundAside(QAudioOutput* output, QAudio::State state);
    void endSoundAside(int index);
    void forgetTrialOfSounds();
    void release(const PlayedSound& sound);
    void deleteAllSounds();
    // session/MainWindow_Panel.cpp
    void fillComboBoxes();
    void fillLineEdits();
    void readDeviant();
    void showDeviantDepth();
    void showDeviantDifference();
    void showDeviantCarrier();
    // signal/MainWindow_Sounds.cpp
    void refreshWavePoints(int index);
    // signal/MainWindow_Spectra.cpp
    void deriveTransformLengths();
    void analyse(int index);
    // procedure/MainWindow_Staircase.cpp
    void widenTrend();
    // charts/MainWindow_Charts.cpp
    void makeChartFonts();
    void showWaveChart(int index);
    void showSpectrumChart(int index);
    void makeOrNameTrendAxisY();

    // --- Widgets of the parameter panel --- NOLINTBEGIN(readability-identifier-naming)
    QLabel* labelSesType;
    QLabel* labelSoundType;
    QLabel* labelMainParameter;
    QLabel* labelStandard;
    QLabel* labelDeviant;
    QLabel* labelCarrierFreq;
    QLabel* labelModFreq;
    QLabel* labelModDepth;
    QLabel* labelFreqDiff;
    QLabel* labelDuration;
    QLabel* labelNReversals;
    QLabel* labelNReversalsToCalc;
    QLabel* labelSilentInterval;
    QLabel* labelSamplingRate;
    QLabel* labelSubCode;
    QLabel* labelSesNum;
    QLabel* labelFilePath;
    QLabel* labelFileName;
    QComboBox* comboBoxSesType;
    QComboBox* comboBoxSoundType;
    QComboBox* comboBoxMainParameter;
    QLineEdit* lineEditStdCarrierFreq;
    QLineEdit* lineEditStdModFreq;
    QLineEdit* lineEditStdModDepth;
    QLineEdit* lineEditStdFreqDiff;
    QLineEdit* lineEditStdDuration;
    QLineEdit* lineEditDevCarrierFreq;
    QLineEdit* lineEditDevModFreq;
    QLineEdit* lineEditDevModDepth;
    QLineEdit* lineEditDevFreqDiff;
    QLineEdit* lineEditDevDuration;
    QLineEdit* lineEditNReversals;
    QLineEdit* lineEditNReversalsToCalc;
    QLineEdit* lineEditSilentInterval;
    QLineEdit* lineEditSamplingRate;
    QLineEdit* lineEditSubCode;
    QLineEdit* lineEditSesNum;
    QString filePath;
    QLineEdit* lineEditFilePath;
    QLineEdit* lineEditFileName;
    QPushButton* pushButtonView;
    QPushButton* pushButtonGo;
    QPushButton* pushButtonQuit;
    QCheckBox* checkBoxSaveData;
    QCheckBox* checkBoxResetMdFd;
    QHBoxLayout* hBoxLayoutButtons;
    QHBoxLayout* hBoxLayoutFilePath;
    QHBoxLayout* hBoxLayoutFileName;
    QGridLayout* gridLayoutParameters;
    QGridLayout* gridLayoutCharts;
    QGridLayout* gridLayoutMain;
    QWidget* centralWidget;

    // --- Session, sounds, trend and spectra ---
    Data data;
    QVector<double> timeAxis; ///< of the plotted samples, ms
    double timeAxisRate = data.fs; ///< sampling rate that the time axis is made for, Hz
    Stimulus stimuli[2]; ///< the standard and the deviant
    QVector<double> trendX; ///< zero-based trial indices
    QVector<double> trendY; ///< the deviant's value, % or Hz
    double trendYMin = quorin::emptyTrendMin; ///< limits of the trend's vertical axis
    double trendYMax = quorin::emptyTrendMax;
    QVector<qint64> fftLength = {1024, 1024}; ///< transform lengths, powers of two
    QVector<double> fftDuration = {0.6, 0.6}; ///< transform lengths, s
    QVector<double> frequencyResolution = {1 / 0.6, 1 / 0.6}; ///< bin spacings, Hz
    QVector<double> frequencyAxis; ///< Hz; the deviant's where the two differ
    int windowSelector = 0; ///< 0: no window before the transform; 1: Hann

    // --- Charts, made on first display ---
    Chart waveCharts[2]; ///< of the standard and the deviant, like the next
    Chart spectrumCharts[2];
    QtCharts::QLineSeries* trendSeries = nullptr;
    QtCharts::QValueAxis* trendAxisX = nullptr;
    QtCharts::QValueAxis* trendAxisY = nullptr;
    QtCharts::QChart* trendChart = nullptr;
    QtCharts::QChartView* trendView = nullptr;

    // --- Trial loop ---
    SubjectWindow* subjectWindow = nullptr; ///< of the latest run; earlier ones live on, hidden
    QTimer* timerPlay = nullptr; ///< paces the sounds
    QElapsedTimer* timerReaction = nullptr; ///< runs from the reported end of the fourth sound
    std::unique_ptr<ReactionClock> reactionClock; ///< reads timerReaction; a test may replace it
    int nReactionTimerStarts = 0;
    int nSoundsPerTrial = 4;
    int soundIndex = 0; ///< sounds started in the current trial
    QVector<bool> stimSequence; ///< which intervals hold the deviant
    QFont fontAxisLabels;
    QFont fontAxisTitle;
    QFont fontChartTitle;
    QByteArray* audioBytes = nullptr; ///< of the sound now playing, as buffer and output; else null
    QBuffer* audioBuffer = nullptr;
    QAudioFormat audioFormat;
    QAudioOutput* audioOutput = nullptr;
    bool centerWindow = true;
    double widthFraction = 0.8;
    double heightFraction = 0.9;
    SoundProgress currentProgress; ///< of the sound now playing
    QList<PlayedSound> soundsAside; ///< that still played when the next one started
    QTimer* timerInterruption = nullptr; ///< runs while there are interrupted sounds
    QElapsedTimer pacingClock;
    SoundPacing pacing;
    bool waitsForSound = false; ///< a tick passed without a sound: an earlier one has not ended
    double waitingSinceMs = 0.0; ///< on the pacing clock
    bool isPeriodMoved = false; ///< the timer's interval is the rest of a silence, not the period
    Disturbances disturbances; ///< of the trial under way
    QVector<Disturbances> recordedDisturbances; ///< one a record
}; // NOLINTEND(readability-identifier-naming)
