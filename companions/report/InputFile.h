// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/ResultsReader.h"

#include <QByteArray>
#include <QString>

/// Reads a whole file, a pipe or a device.
/// @return what went wrong, or that it is larger than any run's file; empty if all was read
QString readWhole(const QString& path, QByteArray& bytes);

/// "file:line: what", or "file: what" of the whole file.
QString placed(const QString& path, const Complaint& complaint);

/// Whether a file is to be read as the record of a run, not as a results file.
bool isRecord(const QString& path, const QByteArray& bytes);
