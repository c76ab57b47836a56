// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordLines.h"
#include "session/LastSound.h"
#include "session/RecordQueue.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <optional>
#include <utility>

class MainWindow;

/// Records the runs of a main window, each to a file of its own, by watching the window. Must be
/// made before the window is used, and be deleted before it.
///
/// Lines are written when the event loop comes to it, well before the next sound, and never from
/// the moment the listener may answer until the answer: they wait in memory then.
class FlightRecorder : public QObject {
    Q_OBJECT

public:
    /// @param folder       where the files go
    /// @param seed         that the generator was seeded with just before the window was made
    /// @param otherFolders where they are as long as the folder cannot be written to
    FlightRecorder(MainWindow& window, QString folder, qint64 seed, QStringList otherFolders = {});
    /// A run under way is recorded as abandoned.
    ~FlightRecorder() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Ends the trial that trialLost() told, see LastSound: the listener may answer, and the record
    /// tells that the output failed.
    void endLostTrial();
    /// Each run is recorded as what the function then says it is. Without one, runs are of no
    /// protocol.
    void askForPlace(std::function<std::optional<ProtocolPlace>()> place)
    {
        m_place = std::move(place);
    }
    /// Each run is recorded with the calibration that the function then gives. Without one, runs
    /// have none.
    void askForCalibration(std::function<RunCalibration()> calibration)
    {
        m_calibration = std::move(calibration);
    }
    /// Brings to the disk what waits in memory.
    /// @return whether all is in the folder
    bool flush();
    /// Ends the recording.
    /// @return a line for each record that is in another folder, or nowhere, and for each results
    ///         file that could not be made
    QStringList close();
    /// The name of the record under way or of the last one; empty before the first.
    QString recordName() const;

signals:
    /// Something cannot be recorded. Comes once for each text, between an answer and the next
    /// trial's first sound.
    void failed(const QString& what);
    /// A finished run's results file cannot be written. The record has all of it, and is written.
    void resultsFailed(const QString& what);
    /// All that waited is in the folder again.
    void recovered();
    /// The sound output failed in a trial that was answered, the first of several in a row.
    void soundFailed(int trial);
    /// A run has begun with other outputs or volumes than its calibration's, a sentence each.
    void calibrationDiffers(const QStringList& differences);
    /// A trial will not end by itself, see LastSound. Comes again as long as it is so.
    void trialLost(int trial);

private:
    void noteView();
    void begin();
    void watchListener();
    void noteState(int state);
    void noteSound(int interval);
    void watchSound(const QIODevice& sound, int trial, int interval);
    void noteInterruption(int trial, int interval);
    void noteEnd(int trial, int interval);
    void catchUp();
    void noteAnswer();
    void noteTrial();
    void finish();
    void abandon(const QString& reason);
    template <typename Line> void add(const Line& line, const QByteArray& sound = {});
    void tellFaults();
    void tellSoundFailure();
    bool hasOutputFailed() const;
    double nowMs() const;

    MainWindow& m_window;
    RecordQueue m_queue;
    qint64 m_seed;
    std::function<std::optional<ProtocolPlace>()> m_place;
    std::function<RunCalibration()> m_calibration;
    qint64 m_draws; ///< from the generator since it was seeded
    qint64 m_drawsBeforeView = 0;
    LastSound m_lastSound;
    Data m_view; ///< the session record at the last View
    QElapsedTimer m_clock; ///< since Go
    bool m_isRunning = false;
    int m_runs = 0;
    int m_trials = 0; ///< begun
    int m_answers = 0;
    int m_reversals = 0;
    double m_lastStartMs = 0.0; ///< of a sound or of the trial
    int m_interruptions = 0; ///< of the trial's sounds that have their line
    int m_interruptedTold = 0; ///< of these at the last line of an end
    int m_lateTold = 0;
    bool m_isInTrial = false; ///< from its first sound to its answer
    QString m_fault; ///< told last
    bool m_hasSoundFailed = false; ///< in the run's last trial
};
