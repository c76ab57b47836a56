// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordLines.h"

#include <QVector>

#include <variant>

class QByteArray;

/// A trial as its lines tell it.
struct RecordedTrial {
    TrialBegun begun;
    QVector<SoundStarted> sounds;
    QVector<SoundInterrupted> interruptions;
    QVector<SoundEnded> ends; ///< in the order of the file; sounds may overlap
    std::optional<AnswerAllowed> allowed;
    std::optional<AnswerGiven> answer;

    // Their lines in the file, counted from 1; 0 for what is not there.
    int begunLine = 0;
    QVector<int> soundLines;
    QVector<int> interruptionLines;
    QVector<int> endLines;
    int allowedLine = 0;
    int answerLine = 0;
};

/// A run as its record tells it.
struct RunRecord {
    RunBegun begun;
    QVector<RecordedTrial> trials;
    /// The last line; none where the program was stopped by force.
    std::variant<std::monostate, RunSaved, RunUnsaved, RunAbandoned> end;
    bool isCut = false; ///< whether the file ends within a line, which is left out
    int nLines = 0; ///< complete ones; the last line's number
};

/// What was read of a record's file: all of it, or the lines up to the first that is wrong.
struct ReadRecord {
    RunRecord run;
    QString error; ///< what is wrong; empty if nothing is
    int line = 0; ///< where, counted from 1; 0 for the file as a whole
};

/// Reads the content of a record's file. Lines must be complete and in an order that a run can
/// have; whether their numbers fit each other is not judged.
ReadRecord readRecord(const QByteArray& content);

/// The same from a file.
ReadRecord readRecordFile(const QString& path);
