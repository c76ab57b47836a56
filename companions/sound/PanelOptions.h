// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <QString>

class QCommandLineParser;

/// Adds an option for each field of the panel, named as the column of a protocol without its unit,
/// and --value.
void addPanelOptions(QCommandLineParser& parser);

/// Reads them as the main window reads its panel, by the rules that a protocol's row has.
/// @param data becomes the record, with the deviant of the first trial or of --value
/// @return what is wrong; empty: nothing
QString readPanelOptions(const QCommandLineParser& parser, Data& data);

/// The record that the main window opens with.
Data openingRecord();
