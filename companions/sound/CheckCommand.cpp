// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound check from its options to its table.
#include "sound/CheckCommand.h"

#include "input/SamplingRates.h"
#include "output/OptionReader.h"
#include "session/Data.h"
#include "session/Units.h"
#include "sound/PathCheck.h"
#include "sound/PipeWireSettings.h"
#include "sound/PulseServer.h"

#include <QCommandLineParser>

using namespace quorin;

namespace {

QString readSettings(const QCommandLineParser& parser, CheckedSettings& settings)
{
    constexpr double longestMs = 3600000.0;
    OptionReader reader(parser);
    if (!parser.positionalArguments().isEmpty()) {
        reader.fail("unknown argument: " + parser.positionalArguments().constFirst());
    }
    settings.rate = reader.count("rate", slowestRate, fastestRate, settings.rate);
    settings.durationMs = reader.number("duration", 1.0, longestMs, settings.durationMs);
    return reader.errorText();
}

QVector<CheckLine> checkedServer(const CheckedSettings& settings)
{
    FoundPath found = askPulseServer();
    if (!found.obstacle.isEmpty()) {
        return checkWithoutServer(found.obstacle);
    }
    if (found.path.serverName.contains("PipeWire")) {
        found.path.pipeWire = runningPipeWireSettings();
        found.path.pipeWire->forcedForUs = found.forcedQuantum;
    }
    return checkedPath(found.path, settings);
}

} // namespace

int runCheck(const QStringList& arguments, StandardStreams& streams)
{
    const Data data;
    CheckedSettings settings {static_cast<int>(data.fs), inMs(data.dur[standard])};
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Asks the running sound server what becomes of a sound on its way to the card. Each line "
        "is fine, to look at, or a reason to stop.");
    addHelpOptions(parser);
    parser.addOptions({
        {"rate", QString("Sampling rate of the panel. Default: %1.").arg(settings.rate), "Hz"},
        {"duration", QString("Duration of a sound. Default: %1.").arg(settings.durationMs), "ms"},
    });
    const std::optional<Answer> answer = answerTo(
        arguments, parser, [&parser, &settings] { return readSettings(parser, settings); });
    if (answer) {
        return streams.say(*answer);
    }
    const QVector<CheckLine> lines = checkedServer(settings);
    return streams.print(checkTable(lines), mustStop(lines) ? somethingIsWrong : success);
}
