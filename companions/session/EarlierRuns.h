// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// What the records in a folder tell of a subject's runs of a protocol.
struct EarlierRuns {
    bool areThere = false; ///< any, completed or not
    QString order; ///< name of the first one's
    qint64 orderSeed = 0;
    QStringList completed; ///< identifiers of runs
    QVector<qint64> seeds; ///< of positions and noises
    int ofOtherProtocols = 0; ///< runs of the subject, of a file with other bytes
    QString error; ///< a record with another order than the first one; empty: there is none
    QStringList notes; ///< records that cannot be read, a text each
};

/// Looks through the records in a folder. A run is completed if its record has its results, or all
/// trials.
/// @param sha256 of the protocol's bytes, in hexadecimal digits
EarlierRuns earlierRuns(const QString& folder, const QString& sha256, const QString& subject);
