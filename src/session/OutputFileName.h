// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Data;

/// The name of the results file from the run's identifying choices:
/// subject _ session type, number to three digits _ sound type _ main parameter .txt
/// Nothing is checked or escaped; a choice outside its list adds nothing.
QString composedFileName(const Data& data);

/// The user's desktop folder, where results files go unless another folder is given.
QString desktopFolder();
