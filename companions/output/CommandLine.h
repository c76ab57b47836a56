// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QStringList>
#include <QTextStream>

namespace quorin {

/// The companions' exit statuses.
constexpr int success = 0;
constexpr int somethingIsWrong = 1;
constexpr int wrongUsage = 2;

} // namespace quorin

/// The command line, the program's name first. From this call on, names of files are UTF-8 in any
/// locale, as the folders of results files may be.
QStringList commandLine(int argc, char* argv[]);

/// Standard output and standard error. Complaints begin with the name of the QCoreApplication,
/// which must be there.
class StandardStreams {
public:
    StandardStreams();

    QTextStream& output() { return m_output; }
    /// What is written appears at once.
    QTextStream& errors() { return m_errors; }

    /// Writes a line to standard error: the program's name and what is wrong.
    void complain(const QString& what);

    /// Prints a text.
    /// @return the status, or somethingIsWrong where the text cannot be written
    int print(const QString& text, int status);

private:
    QFile m_outputFile;
    QFile m_errorFile;
    QTextStream m_output {&m_outputFile};
    QTextStream m_errors {&m_errorFile};
};
