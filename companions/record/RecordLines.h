// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/CalibrationNote.h"
#include "session/Data.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

// The lines of a run's record, one struct a kind. Each names its event, and its fields with their
// keys; docs/session-records.md says what they mean. Times atMs are in ms since Go.

namespace quorin {

constexpr int soundsPerTrial = 4;

} // namespace quorin

/// Which of a protocol's runs a run is.
struct ProtocolPlace {
    QString file; ///< the protocol's name, without its folder
    QString sha256; ///< of the protocol's bytes, in hexadecimal digits
    QString subject; ///< the code that the order is for
    QString order; ///< its name
    qint64 orderSeed = 0; ///< that the order follows from if it is shuffled
    int row = 0; ///< counted from 1, without the line of headings
    int repeat = 0; ///< of the row, counted from 1
    int place = 0; ///< in the order, counted from 1
    int runs = 0; ///< of the whole protocol

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("file", self.file);
        visit("sha256", self.sha256);
        visit("subject", self.subject);
        visit("order", self.order);
        visit("order_seed", self.orderSeed);
        visit("row", self.row);
        visit("repeat", self.repeat);
        visit("place", self.place);
        visit("runs", self.runs);
    }
};

/// The first line: all that the run depends on.
struct RunBegun {
    static constexpr auto event = "run";
    static constexpr int currentVersion = 1;

    int version = currentVersion; ///< of the format
    QString program; ///< its name and version
    QString commit; ///< that it was built from; "unknown" outside a repository
    QString qtVersion; ///< of the library that is loaded
    QString time; ///< of Go, ISO 8601 with ms and the offset from UTC
    QString locale; ///< the program's
    QJsonArray screens; ///< name, geometry and so on of each
    std::optional<QString> listenerScreen; ///< name of the one with the listener's window; records
                                           ///< of earlier programs do not have it
    QJsonObject audio; ///< output device and, where it can be asked, the sound server
    qint64 seed = 1; ///< that the generator was seeded with before the window was made
    qint64 drawsBefore = 0; ///< draws from it between that and the View whose sounds are used
    QString sessionType; ///< the three choices in words
    QString soundType;
    QString mainParameter;
    std::optional<ProtocolPlace> protocol; ///< none: the run is of no protocol
    std::optional<RunCalibration> calibration; ///< none: the session was given no note
    Data view; ///< the session record at that View
    Data go; ///< and at Go

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("version", self.version);
        visit("program", self.program);
        visit("commit", self.commit);
        visit("qt_version", self.qtVersion);
        visit("time", self.time);
        visit("locale", self.locale);
        visit("screens", self.screens);
        visit("listener_screen", self.listenerScreen);
        visit("audio", self.audio);
        visit("seed", self.seed);
        visit("draws_before", self.drawsBefore);
        visit("session_type", self.sessionType);
        visit("sound_type", self.soundType);
        visit("main_parameter", self.mainParameter);
        visit("protocol", self.protocol);
        visit("calibration", self.calibration);
        visit("view", self.view);
        visit("go", self.go);
    }
};

/// A trial begins.
struct TrialBegun {
    static constexpr auto event = "trial";

    int trial = 0; ///< counted from 1
    int position = 0; ///< interval of the deviant
    double value = 0.0; ///< of the adapted parameter, a fraction
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("position", self.position);
        visit("value", self.value);
        visit("at_ms", self.atMs);
    }
};

/// A sound has been started.
struct SoundStarted {
    static constexpr auto event = "sound";

    int trial = 0;
    int interval = 0; ///< 1 to 4; above: the empty sound of a tick after the fourth
    double latenessMs = 0.0; ///< after one period since the sound before, or since the trial began
    QString sha256; ///< of the bytes that are played, in hexadecimal digits
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("interval", self.interval);
        visit("lateness_ms", self.latenessMs);
        visit("sha256", self.sha256);
        visit("at_ms", self.atMs);
    }
};

/// A sound ran dry before its end. It goes on when the output does.
struct SoundInterrupted {
    static constexpr auto event = "interrupted";

    int trial = 0;
    int interval = 0; ///< 1 to 4
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("interval", self.interval);
        visit("at_ms", self.atMs);
    }
};

/// A sound has ended, or was given up.
struct SoundEnded {
    static constexpr auto event = "ended";

    int trial = 0;
    int interval = 0;
    bool isInterrupted = false; ///< whether one ran dry since the line "ended" before
    bool isLate = false; ///< whether the program found one late since then
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("interval", self.interval);
        visit("interrupted", self.isInterrupted);
        visit("late", self.isLate);
        visit("at_ms", self.atMs);
    }
};

/// The listener may answer from now on.
struct AnswerAllowed {
    static constexpr auto event = "answer allowed";

    int trial = 0;
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("at_ms", self.atMs);
    }
};

/// The answer, and what the staircase made of it.
struct AnswerGiven {
    static constexpr auto event = "answer";

    int trial = 0;
    int response = 0; ///< the interval chosen
    bool isCorrect = false;
    double reactionMs = 0.0;
    double value = 0.0; ///< of the trial, a fraction
    std::optional<double> valueAfter; ///< of the next trial; none after the last
    bool isReversal = false;
    int reversals = 0; ///< counted up to this trial
    int interruptedSounds = 0; ///< of the trial, as the program counts them, and the next three
    int lateSounds = 0;
    int worstLatenessMs = 0;
    bool hasOutputFailed = false;
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trial", self.trial);
        visit("response", self.response);
        visit("correct", self.isCorrect);
        visit("reaction_ms", self.reactionMs);
        visit("value", self.value);
        visit("value_after", self.valueAfter);
        visit("reversal", self.isReversal);
        visit("reversals", self.reversals);
        visit("interrupted_sounds", self.interruptedSounds);
        visit("late_sounds", self.lateSounds);
        visit("worst_lateness_ms", self.worstLatenessMs);
        visit("output_failed", self.hasOutputFailed);
        visit("at_ms", self.atMs);
    }
};

/// What a finished run came to; the last line is one of the next two.
struct RunFigures {
    int trials = 0;
    double threshold = 0.0; ///< a fraction
    double reactionMs = 0.0; ///< means over all, the correct and the wrong answers
    double reactionCorrectMs = 0.0;
    double reactionWrongMs = 0.0;
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trials", self.trials);
        visit("threshold", self.threshold);
        visit("mean_reaction_ms", self.reactionMs);
        visit("mean_reaction_correct_ms", self.reactionCorrectMs);
        visit("mean_reaction_wrong_ms", self.reactionWrongMs);
        visit("at_ms", self.atMs);
    }
};

/// The run's results stand in a file.
struct RunSaved : RunFigures {
    static constexpr auto event = "result";

    QString resultsFile; ///< its name, in the record's folder

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        RunFigures::eachField(self, visit);
        visit("results_file", self.resultsFile);
    }
};

/// The run's results could not be written to a file.
struct RunUnsaved : RunFigures {
    static constexpr auto event = "save failed";

    QString reason;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        RunFigures::eachField(self, visit);
        visit("reason", self.reason);
    }
};

/// The last line of a run that was not finished.
struct RunAbandoned {
    static constexpr auto event = "abandoned";

    int trials = 0; ///< answered ones
    QString reason;
    double atMs = 0.0;

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("trials", self.trials);
        visit("reason", self.reason);
        visit("at_ms", self.atMs);
    }
};
