// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-simulate from its command line to its exit status.
#include "plots/PictureFile.h"
#include "simulate/SimulateProgram.h"

#include <QFile>
#include <QGuiApplication>
#include <QTextCodec>

#include <unistd.h>

namespace {

constexpr int success = 0;
constexpr int somethingIsWrong = 1;
constexpr int wrongUsage = 2;

QStringList argumentsOf(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return arguments;
}

int answered(const SimulateOptions& options, QTextStream& output, QTextStream& errors)
{
    switch (options.request) {
    case SimulateOptions::help:
    case SimulateOptions::version:
        output << options.text;
        output.flush();
        return output.status() == QTextStream::Ok ? success : somethingIsWrong;
    case SimulateOptions::nothing:
        errors << "quorin-simulate: " << options.text << '\n';
        return wrongUsage;
    case SimulateOptions::simulate:
        break;
    }
    const bool isTerminal = isatty(STDERR_FILENO) != 0;
    return SimulateProgram(options, output, errors, isTerminal).make() ? success : somethingIsWrong;
}

} // namespace

int main(int argc, char* argv[])
{
    // Names of files are UTF-8 in any locale, as the results files' folders may be.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    drawWithoutDisplay();
    // Qt takes options of its own from a command line, and some end the program: it gets none.
    int nNames = 1;
    QGuiApplication application(nNames, argv);
    QGuiApplication::setApplicationName("quorin-simulate");
    QGuiApplication::setApplicationVersion(QUORIN_VERSION);

    QFile standardOutput;
    QFile standardError;
    standardOutput.open(STDOUT_FILENO, QIODevice::WriteOnly);
    standardError.open(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
    QTextStream output(&standardOutput);
    QTextStream errors(&standardError);
    return answered(simulateOptions(argumentsOf(argc, argv)), output, errors);
}
