// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound measure from its options to its table and files.
#include "sound/MeasureCommand.h"

#include "input/SamplingRates.h"
#include "output/EndSignals.h"
#include "output/OptionReader.h"
#include "output/OutputFile.h"
#include "plots/PictureFile.h"
#include "session/Data.h"
#include "session/Units.h"
#include "sound/MeasurePicture.h"
#include "sound/MeasureTable.h"
#include "sound/PulseServer.h"

#include <QCommandLineParser>
#include <QLoggingCategory>

using namespace quorin;

namespace {

struct MeasureOptions {
    MeasuredPath path {}; ///< an output rate of 0 is that of the default output
    QString csvPath; ///< empty: none
    QString plotPath; ///< empty: none
    bool isForced = false;
};

MeasureOptions defaultOptions()
{
    const Data data;
    return {{static_cast<int>(data.fs), 0, inMs(data.dur[standard])}, {}, {}, false};
}

void addMeasureOptions(QCommandLineParser& parser, const MeasureOptions& defaults)
{
    addHelpOptions(parser);
    parser.addOptions({
        {"rate", QString("Sampling rate of the panel. Default: %1.").arg(defaults.path.playedRate),
            "Hz"},
        {"output-rate", "Of the output. Default: that of the default output.", "Hz"},
        {"duration",
            QString("Of the sound whose begin and end are measured. Default: %1.")
                .arg(defaults.path.durationMs),
            "ms"},
        {"csv", "Write the table to a file.", "file"},
        {"plot", "Draw levels and images: .png, .svg or .pdf.", "file"},
        {"force",
            "Replace a table or picture that a companion of Quorin Lab wrote. Any other file is "
            "never replaced."},
    });
}

QString mistakeIn(const QCommandLineParser& parser, MeasureOptions& options)
{
    constexpr double shortestMs = 10.0;
    constexpr double longestMs = 5000.0;
    OptionReader reader(parser);
    if (!parser.positionalArguments().isEmpty()) {
        reader.fail("unknown argument: " + parser.positionalArguments().constFirst());
    }
    MeasuredPath& path = options.path;
    path.playedRate = reader.count("rate", slowestRate, fastestRate, path.playedRate);
    path.outputRate = reader.count("output-rate", slowestRate, fastestRate, path.outputRate);
    path.durationMs = reader.number("duration", shortestMs, longestMs, path.durationMs);
    options.csvPath = parser.value("csv");
    if (parser.isSet("csv") && options.csvPath.isEmpty()) {
        reader.fail("--csv needs a name");
    }
    options.plotPath = parser.value("plot");
    if (parser.isSet("plot") && !pictureNameError(options.plotPath).isEmpty()) {
        reader.fail("--plot: " + pictureNameError(options.plotPath));
    }
    options.isForced = parser.isSet("force");
    return reader.errorText();
}

OutputFile tableFile(const MeasureOptions& options)
{
    return {options.csvPath, OutputFile::Kind::table, measureHeadings().toUtf8(), options.isForced};
}

QString obstacleToOutputs(const MeasureOptions& options)
{
    const QString obstacle
        = options.csvPath.isEmpty() ? QString() : outputObstacle(tableFile(options));
    return obstacle.isEmpty() && !options.plotPath.isEmpty()
        ? outputObstacle({options.plotPath, OutputFile::Kind::marked, {}, options.isForced})
        : obstacle;
}

/// The rate of the output that sounds reach at last, or why there is none.
QString readOutputRate(int& rate)
{
    const FoundPath found = askPulseServer();
    if (!found.obstacle.isEmpty()) {
        return "no sound server: " + found.obstacle;
    }
    if (found.path.outputs.isEmpty()) {
        return "the sound server has no output; give --output-rate";
    }
    rate = rate == 0 ? found.path.outputs.constLast().rate : rate;
    return {};
}

QString writeFiles(const MeasureOptions& options, const PathMeasurement& measurement)
{
    QString failure;
    if (!options.csvPath.isEmpty()) {
        const QString text = measureHeadings() + '\n' + measureRows(options.path, measurement);
        failure = writeOutput(tableFile(options), text.toUtf8());
    }
    return failure.isEmpty() && !options.plotPath.isEmpty()
        ? writeMeasurePicture(options.plotPath, options.path, measurement.tones, options.isForced)
        : failure;
}

} // namespace

int runMeasure(const QStringList& arguments, StandardStreams& streams)
{
    MeasureOptions options = defaultOptions();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Plays tones and a sound through the running sound server into an output that nobody "
        "hears, and tells what arrives: level and strongest image from 100 Hz to 19 kHz, and what "
        "is missing at begin and end. Takes about 5 s.");
    addMeasureOptions(parser, options);
    const std::optional<Answer> answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    if (answer) {
        return streams.say(*answer);
    }
    QString failure = obstacleToOutputs(options);
    failure = failure.isEmpty() ? readOutputRate(options.path.outputRate) : failure;
    PathMeasurement measurement;
    if (failure.isEmpty()) {
        endLoopOnSignals();
        endAtOnceOnSecondInterrupt();
        // Qt's sound backend warns where an output goes while it asks for it.
        QLoggingCategory::setFilterRules("default.warning=false");
        measurement = measurePath(options.path);
        failure = measurement.obstacle;
    }
    if (!failure.isEmpty()) {
        streams.complain(failure);
        return somethingIsWrong;
    }
    const int status = streams.print(measureTable(options.path, measurement), success);
    failure = writeFiles(options, measurement);
    if (!failure.isEmpty()) {
        streams.complain(failure);
    }
    return failure.isEmpty() ? status : somethingIsWrong;
}
