// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/RunOrder.h"
#include "record/RecordLines.h"
#include "session/EarlierRuns.h"

#include <QStringList>

/// What the experimenter asks for.
struct StudyRequest {
    QString protocol; ///< path of its file; empty: there is none
    QString subject; ///< code
    std::optional<RunOrder> order; ///< none: that of the records, else as written
    bool resumes = false;
    bool pressesGo = false;
};

/// A protocol with its file.
struct StudyProtocol {
    QString name; ///< of the file, without its folder
    QString sha256; ///< of its bytes, in hexadecimal digits
    Protocol protocol;
    QStringList errors; ///< all that keeps it from being used, with its path, a text each
};

/// Reads a protocol from a file.
StudyProtocol studyProtocol(const QString& path);

/// A subject's way through a protocol.
struct Study {
    StudyProtocol file;
    QString subject;
    RunOrder order = RunOrder::asWritten;
    qint64 orderSeed = 0;
    QVector<ProtocolRun> runs; ///< all of them, in their order
    QStringList completed; ///< identifiers of runs
    QString error; ///< why there is no way; empty if there is one
};

/// Orders the runs of a protocol without errors.
/// @param seed of the order, unless the records tell one
Study plannedStudy(const StudyRequest& request, const StudyProtocol& file,
    const EarlierRuns& earlier, qint64 seed);

/// What the record says of a run of the study.
ProtocolPlace placeIn(const Study& study, const ProtocolRun& run);

/// Subject, protocol and order, how many runs are completed, and the table of all runs.
QString progressOf(const Study& study);
