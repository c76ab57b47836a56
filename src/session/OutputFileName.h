// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Data;

/// A session's number with at least three digits.
QString sessionNumber(int sesNum);

/// The name of the results file from the run's identifying choices:
/// subject _ session type, number to three digits _ sound type _ main parameter .txt
/// Nothing is checked or escaped; a choice outside its list adds nothing.
QString composedFileName(const Data& data);

/// Reads a name that composedFileName could have composed back into the record's identifying
/// choices. Any other name changes nothing.
/// @param name a file's name without its folder
/// @return whether the name is such a one
bool readFileName(const QString& name, Data& data);

/// The user's desktop folder, where results files go unless another folder is given.
QString desktopFolder();
