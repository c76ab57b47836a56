// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-simulate from its command line to its exit status.
#include "output/CommandLine.h"
#include "plots/PictureFile.h"
#include "simulate/SimulateProgram.h"

#include <QGuiApplication>

#include <unistd.h>

using namespace quorin;

namespace {

int answered(const SimulateOptions& options, StandardStreams& streams)
{
    if (options.answer) {
        return streams.say(*options.answer);
    }
    const bool isTerminal = ::isatty(STDERR_FILENO) != 0;
    SimulateProgram program(options, streams.output(), streams.errors(), isTerminal);
    return program.make() ? success : somethingIsWrong;
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList arguments = commandLine(argc, argv);
    drawWithoutDisplay();
    int nNames
        = 1; // Qt takes options of its own, such as -platform, from a command line: it gets none
    const QGuiApplication application(nNames, argv);
    QCoreApplication::setApplicationName("quorin-simulate");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);
    StandardStreams streams;
    return answered(simulateOptions(arguments), streams);
}
