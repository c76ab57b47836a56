// SPDX-License-Identifier: GPL-3.0-or-later
// What the companions' programs have in common: arguments, standard streams, exit statuses.
#include "output/CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextCodec>

#include <unistd.h>

using namespace quorin;

QStringList commandLine(int argc, char* argv[])
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return arguments;
}

void addHelpOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {{"h", "help"}, "Show this help."},
        {{"v", "version"}, "Show the version."},
    });
}

std::optional<Answer> answerTo(const QStringList& arguments, QCommandLineParser& parser,
    const std::function<QString()>& readOptions)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    if (!parser.parse(arguments)) {
        return Answer {parser.errorText(), wrongUsage};
    }
    if (parser.isSet("help")) {
        return Answer {parser.helpText(), success};
    }
    if (parser.isSet("version")) {
        return Answer {QCoreApplication::applicationName() + ' '
                + QCoreApplication::applicationVersion() + '\n',
            success};
    }
    const QString mistake = readOptions();
    return mistake.isEmpty() ? std::nullopt : std::optional<Answer>({mistake, wrongUsage});
}

StandardStreams::StandardStreams()
{
    m_outputFile.open(STDOUT_FILENO, QIODevice::WriteOnly);
    m_errorFile.open(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void StandardStreams::complain(const QString& what)
{
    m_errors << QCoreApplication::applicationName() << ": " << what << '\n';
    m_errors.flush();
}

int StandardStreams::print(const QString& text, int status)
{
    m_output << text;
    m_output.flush();
    if (m_output.status() == QTextStream::Ok) {
        return status;
    }
    complain("standard output: cannot be written");
    return somethingIsWrong;
}

int StandardStreams::say(const Answer& answer)
{
    if (answer.status == success) {
        return print(answer.text, success);
    }
    complain(answer.text);
    return answer.status;
}
