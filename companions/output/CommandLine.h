// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <functional>
#include <optional>

class QCommandLineParser;

namespace quorin {

/// The companions' exit statuses.
constexpr int success = 0;
constexpr int somethingIsWrong = 1;
constexpr int wrongUsage = 2;

} // namespace quorin

/// The command line, the program's name first. From this call on, names of files are UTF-8 in any
/// locale, as the folders of results files may be.
QStringList commandLine(int argc, char* argv[]);

/// What a companion says in place of its work: its help, its version, or what is wrong.
struct Answer {
    QString text;
    int status; ///< success or wrongUsage
};

/// Adds --help and --version to a parser.
void addHelpOptions(QCommandLineParser& parser);

/// Parses a command line, on which one dash does as well as two. Needs a QCoreApplication, whose
/// name and version are told.
/// @param arguments   the program's name first
/// @param readOptions called unless help or version is wanted; returns what is wrong with the
///                    options, or an empty text
/// @return none if the companion is to do its work
std::optional<Answer> answerTo(const QStringList& arguments, QCommandLineParser& parser,
    const std::function<QString()>& readOptions);

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

    /// Prints an answer, or complains of what is wrong.
    /// @return the status
    int say(const Answer& answer);

private:
    QFile m_outputFile;
    QFile m_errorFile;
    QTextStream m_output {&m_outputFile};
    QTextStream m_errors {&m_errorFile};
};
