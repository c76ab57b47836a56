// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of quorin-sound calibrate, and the limits of its sounds.
#include "sound/CalibrateOptions.h"

#include "input/SamplingRates.h"
#include "output/OptionReader.h"
#include "record/CalibrationNote.h"

#include <QCommandLineParser>
#include <QFileInfo>

using namespace quorin;

namespace {

constexpr double softestDb = -90.0;
constexpr double loudestStartDb = -20.0;
constexpr double largestStepDb = 6.0;
constexpr double lowestFrequency = 20.0;
constexpr double highestFrequencyShare = 0.45; // of the rate

void addCalibrateOptions(QCommandLineParser& parser)
{
    addHelpOptions(parser);
    parser.addOptions({
        {"frequency", "Of the tone. Default: 1000.", "Hz"},
        {"noise", "Play the experiment's noise instead of a tone."},
        {"rate", "Sampling rate of the panel. Default: 40000.", "Hz"},
        {"level", "Level of the first sound, RMS re digital full scale, -90 to -20. Default: -30.",
            "dB"},
        {"allow-loud", "Let the first sound be above -20 dB."},
        {"step", "How much Return raises the level, 0.1 to 6. Default: 3.", "dB"},
        {"duration", "Of each sound, 200 to 10000. Default: 10000.", "ms"},
        {"ear", "both, left or right. Default: both.", "ear"},
        {"weighting", "That the meter is set to: A, C or Z. Default: Z.", "letter"},
        {"reading",
            "What the meter reads, 20 to 120 dB SPL: the sound is played once and nothing is "
            "asked.",
            "dB"},
        {"remark", "Goes into the note.", "text"},
    });
    parser.addPositionalArgument("folder", "Where the note goes; it must exist.");
}

void readSound(const QCommandLineParser& parser, OptionReader& reader, CalibrationSound& sound)
{
    constexpr double shortestMs = 200.0;
    constexpr double longestMs = 10000.0;
    sound.isNoise = parser.isSet("noise");
    if (sound.isNoise && parser.isSet("frequency")) {
        reader.fail("--frequency goes without --noise");
    }
    sound.rate = reader.count("rate", slowestRate, fastestRate, sound.rate);
    // Near half the rate a tone's samples may all lie beside its maxima: it would be weaker than
    // told.
    sound.frequency = reader.number(
        "frequency", lowestFrequency, highestFrequencyShare * sound.rate, sound.frequency);
    sound.durationMs = reader.number("duration", shortestMs, longestMs, sound.durationMs);
}

void readLevels(const QCommandLineParser& parser, OptionReader& reader, CalibrateOptions& options)
{
    const double highestDb
        = parser.isSet("allow-loud") ? highestLevelDb(options.sound) : loudestStartDb;
    options.startDb = reader.number("level", softestDb, highestDb, options.startDb);
    options.stepDb = reader.number("step", 0.1, largestStepDb, options.stepDb);
    if (parser.isSet("reading")) {
        options.readingDb = reader.number("reading", lowestReadingDb, highestReadingDb, 0.0);
        options.remark = QString();
    }
    if (parser.isSet("remark")) {
        options.remark = parser.value("remark");
    }
}

void readMeter(const QCommandLineParser& parser, OptionReader& reader, CalibrateOptions& options)
{
    if (parser.isSet("ear")) {
        const int index = QStringList({"both", "left", "right"}).indexOf(parser.value("ear"));
        options.ear = index < 0 ? Ear::both : static_cast<Ear>(index);
        if (index < 0) {
            reader.fail("--ear must be both, left or right, not \"" + parser.value("ear") + '"');
        }
    }
    if (parser.isSet("weighting")) {
        options.weighting = parser.value("weighting");
        if (!QStringList({"A", "C", "Z"}).contains(options.weighting)) {
            reader.fail("--weighting must be A, C or Z, not \"" + options.weighting + '"');
        }
    }
}

QString folderError(const QStringList& folders)
{
    if (folders.size() != 1) {
        return folders.isEmpty() ? "no folder is given"
                                 : "one folder is wanted, not also \"" + folders[1] + '"';
    }
    const QFileInfo folder(folders[0]);
    if (!folder.isDir()) {
        return folders[0] + ": is no folder";
    }
    return folder.isWritable() ? QString() : folders[0] + ": cannot be written to";
}

QString mistakeIn(const QCommandLineParser& parser, CalibrateOptions& options)
{
    OptionReader reader(parser);
    readSound(parser, reader, options.sound);
    readLevels(parser, reader, options);
    readMeter(parser, reader, options);
    const QString mistake = folderError(parser.positionalArguments());
    if (!mistake.isEmpty()) {
        reader.fail(mistake);
    }
    options.folder = parser.positionalArguments().value(0);
    return reader.errorText();
}

} // namespace

QString nameOf(Ear ear)
{
    switch (ear) {
    case Ear::left:
        return "left";
    case Ear::right:
        return "right";
    default:
        return "both";
    }
}

CalibrateOptions calibrateOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Plays a steady sound for a sound level meter, from a low level upwards, and writes what "
        "the meter reads into a calibration note. Headphones off: the sound is for the meter.");
    addCalibrateOptions(parser);
    CalibrateOptions options;
    options.answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    return options;
}
