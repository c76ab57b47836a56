// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-report: what runs tell, as tables, pictures and pages.
#include "output/CommandLine.h"
#include "plots/PictureFile.h"
#include "report/Report.h"
#include "report/Rescue.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <unistd.h>

using namespace quorin;

namespace {

int answered(const ReportOptions& options, StandardStreams& streams)
{
    if (options.answer) {
        return streams.say(*options.answer);
    }
    const bool isTerminal = ::isatty(STDERR_FILENO) != 0;
    if (options.isRescue) {
        Messages messages(streams.errors(), isTerminal);
        return rescueRecords(
                   options.runs.inputs, options.runs.isUnchecked, streams.output(), messages)
            ? success
            : somethingIsWrong;
    }
    Report report(options, streams.output(), streams.errors(), isTerminal);
    return report.make() ? success : somethingIsWrong;
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList arguments = commandLine(argc, argv);
    // Qt's own warnings, such as one of a missing runtime folder, would stand between the errors.
    QLoggingCategory::setFilterRules("default.warning=false");
    drawWithoutDisplay();
    int nNames
        = 1; // Qt takes options of its own, such as -platform, from a command line: it gets none
    const QGuiApplication application(nNames, argv);
    QCoreApplication::setApplicationName("quorin-report");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);
    StandardStreams streams;
    return answered(reportOptions(arguments), streams);
}
