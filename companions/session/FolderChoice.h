// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Asks for the folder of a session, by Qt's own dialog. Needs a QApplication.
/// @return its path; empty if the dialog was cancelled
QString chosenFolder();
