// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of quorin-sound export.
#include "sound/ExportOptions.h"

#include "output/OptionReader.h"
#include "plots/PictureFile.h"
#include "session/RandomDraws.h"
#include "sound/PanelOptions.h"

#include <QCommandLineParser>

namespace {

constexpr int largestSeed = 2147483646; // beyond it the generator's sequences repeat others
constexpr int mostDraws = 2000000000;

int drawsOfStart()
{
    return static_cast<int>(drawsOfView(openingRecord()));
}

void addExportOptions(QCommandLineParser& parser)
{
    addHelpOptions(parser);
    addPanelOptions(parser);
    parser.addOptions({
        {"seed", "Of the random numbers, 1 to 2147483646. Default: 1, as quorin-lab starts.",
            "number"},
        {"draws",
            QString("Random numbers drawn between the seed and View, as a record's drawsBefore "
                    "tells. Default: %1, those that quorin-lab draws as it opens.")
                .arg(drawsOfStart()),
            "number"},
        {"csv", "Write the table to a file.", "file"},
        {"plot", "Draw waveforms and spectra: .png, .svg or .pdf.", "file"},
        {"force",
            "Replace a table or picture that a companion of Quorin Lab wrote. Any other file is "
            "never replaced."},
    });
    parser.addPositionalArgument(
        "folder", "Where standard.wav and deviant.wav go; it must exist.", "[folder]");
}

QString readName(const QCommandLineParser& parser, OptionReader& reader, const QString& option)
{
    if (parser.isSet(option) && parser.value(option).isEmpty()) {
        reader.fail("--" + option + " needs a name");
    }
    return parser.value(option);
}

QString mistakeIn(const QCommandLineParser& parser, ExportOptions& options)
{
    OptionReader reader(parser);
    const QStringList folders = parser.positionalArguments();
    if (folders.size() > 1) {
        reader.fail("one folder at most, not \"" + folders.join("\" and \"") + '"');
    }
    options.folder = folders.value(0);
    const QString mistake = readPanelOptions(parser, options.data);
    if (!mistake.isEmpty()) {
        reader.fail(mistake);
    }
    options.draws.seed = static_cast<uint>(reader.count("seed", 1, largestSeed, 1));
    options.draws.before = reader.count("draws", 0, mostDraws, drawsOfStart());
    options.csvPath = readName(parser, reader, "csv");
    options.plotPath = parser.value("plot");
    if (parser.isSet("plot") && !pictureNameError(options.plotPath).isEmpty()) {
        reader.fail("--plot: " + pictureNameError(options.plotPath));
    }
    options.isForced = parser.isSet("force");
    return reader.errorText();
}

} // namespace

ExportOptions exportOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Makes the standard and the deviant of a trial as quorin-lab plays them, sample for "
        "sample, from the fields of its panel, and prints their levels.");
    addExportOptions(parser);
    ExportOptions options;
    options.answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    return options;
}
