// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"

#include <QVector>

/// A command of quorin-sound: what stands first on its command line.
struct Command {
    const char* name;
    const char* summary; ///< for the help, a sentence
    /// Does the work. The arguments are those after the command, the program's name first.
    /// @return the exit status
    int (*run)(const QStringList& arguments, StandardStreams& streams);
};
Q_DECLARE_TYPEINFO(Command, Q_PRIMITIVE_TYPE);

/// All commands, in the order of the help.
QVector<Command> commands();

/// The command of this name; null if there is none.
const Command* commandNamed(const QVector<Command>& all, const QString& name);

/// What is said without a command: the help, the version, or what is wrong.
Answer answerWithoutCommand(const QVector<Command>& all, const QStringList& arguments);
