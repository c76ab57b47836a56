// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of quorin-session.
#include "session/SessionOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace {

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "Opens the windows of Quorin Lab and records every run into a folder: a file of all that "
        "happened, line by line, and the results file. Nothing that was recorded is lost, "
        "whatever ends the program.");
    addHelpOptions(parser);
    parser.addOptions({
        {"seed",
            "Seed positions and noises with this number, 1 to 2147483646. Default: a number from "
            "the system; the record has it.",
            "number"},
        {"calibration",
            "Record each run with this note of quorin-sound calibrate, and tell where output or "
            "volume differ from it, or the output is muted.",
            "note"},
        {"replay",
            "Compute the run of a record again, without windows and sound, and tell whether "
            "positions, values, results and every sample are the same. The status is 0 if they "
            "are, else 1.",
            "file"},
        {"subject-screen",
            "Open the listener's window on this screen: its name, or 1, 2 and so on.", "screen"},
        {"subject-fullscreen", "Let the listener's window fill its screen."},
        {"cover", "Hide what else is on the listener's screen behind a plain window."},
        {"protocol",
            "Go through the runs of this file, a CSV with a condition a row: before each the panel "
            "is filled and View is pressed. Needs --subject.",
            "file"},
        {"subject", "Code of the subject that goes through the protocol.", "code"},
        {"order",
            "Order of the runs: as-written, shuffled, or latin, a Latin square by the number at "
            "the end of the subject's code. Default: as-written, with --resume that of the "
            "records.",
            "order"},
        {"auto-go", "Press Go too, unless a run is offered again."},
        {"resume", "Take the protocol up at the first run that the folder has no result of."},
        {"ask-folder", "Ask for the folder in a dialog: for a start without a terminal."},
    });
    parser.addPositionalArgument("folder", "Where the records go; it must exist.");
}

QString seedError(const QCommandLineParser& parser, std::optional<qint64>& seed)
{
    if (!parser.isSet("seed")) {
        return {};
    }
    bool isNumber = false;
    seed = parser.value("seed").toLongLong(&isNumber);
    return isNumber && *seed >= 1 && *seed <= largestSeed
        ? QString()
        : QString("--seed must be 1 to %1, not \"%2\"").arg(largestSeed).arg(parser.value("seed"));
}

QString subjectError(const QString& subject)
{
    const bool isPrintable = std::all_of(subject.cbegin(), subject.cend(),
        [](const QChar& character) { return character.isPrint(); });
    return isPrintable && !subject.isEmpty() && subject.trimmed() == subject
        ? QString()
        : "--subject needs a code without blanks around it, not \"" + subject + '"';
}

QString studyError(const QCommandLineParser& parser, StudyRequest& study)
{
    study.protocol = parser.value("protocol");
    study.subject = parser.value("subject");
    study.resumes = parser.isSet("resume");
    study.pressesGo = parser.isSet("auto-go");
    if (!parser.isSet("protocol")) {
        for (const char* const option : {"subject", "order", "auto-go", "resume"}) {
            if (parser.isSet(option)) {
                return QString("--%1 needs --protocol").arg(option);
            }
        }
        return {};
    }
    if (study.protocol.isEmpty() || !parser.isSet("subject")) {
        return study.protocol.isEmpty() ? "--protocol needs a name" : "--protocol needs --subject";
    }
    if (parser.isSet("order")) {
        study.order = orderOfName(parser.value("order"));
        if (!study.order) {
            return "--order must be as-written, shuffled or latin, not \"" + parser.value("order")
                + '"';
        }
    }
    return subjectError(study.subject);
}

QString folderError(const QStringList& folders, bool asksFolder)
{
    if (asksFolder) {
        return folders.isEmpty() ? QString() : "--ask-folder goes without a folder";
    }
    if (folders.isEmpty()) {
        return "no folder is given";
    }
    if (folders.size() > 1) {
        return "one folder is wanted, not also \"" + folders[1] + '"';
    }
    return QFileInfo(folders[0]).isDir() ? QString() : folders[0] + ": is no folder";
}

QString mistakeIn(const QCommandLineParser& parser, SessionOptions& options)
{
    const QStringList folders = parser.positionalArguments();
    QString mistake = seedError(parser, options.seed);
    mistake = mistake.isEmpty() ? studyError(parser, options.study) : mistake;
    options.listener = {
        parser.value("subject-screen"), parser.isSet("subject-fullscreen"), parser.isSet("cover")};
    if (parser.isSet("subject-screen") && options.listener.screen.isEmpty()) {
        return "--subject-screen needs a name or a number";
    }
    options.calibration = parser.value("calibration");
    if (parser.isSet("calibration") && options.calibration.isEmpty()) {
        return "--calibration needs a name";
    }
    if (!parser.isSet("replay")) {
        options.folder = folders.value(0);
        options.asksFolder = parser.isSet("ask-folder");
        return mistake.isEmpty() ? folderError(folders, options.asksFolder) : mistake;
    }
    options.replayed = parser.value("replay");
    if (!folders.isEmpty() || parser.optionNames().size() > 1) {
        return "--replay goes with nothing else";
    }
    return options.replayed.isEmpty() ? QString("--replay needs a name") : QString();
}

} // namespace

SessionOptions sessionOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    SessionOptions options;
    options.answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    return options;
}
