// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of quorin-sound.
#include "sound/Command.h"

#include "sound/CalibrateCommand.h"
#include "sound/CheckCommand.h"
#include "sound/ExportCommand.h"
#include "sound/MeasureCommand.h"

#include <QCommandLineParser>

#include <algorithm>

using namespace quorin;

QVector<Command> commands()
{
    return {
        {"calibrate", "Play a sound for a level meter, and note what it reads.", runCalibrate},
        {"check", "Ask the sound server what becomes of a sound on its way.", runCheck},
        {"export", "Write the sounds of given settings, and tell their levels.", runExport},
        {"measure", "Measure what the running sound server does to tones and to a sound's ends.",
            runMeasure},
    };
}

const Command* commandNamed(const QVector<Command>& all, const QString& name)
{
    const auto found = std::find_if(all.cbegin(), all.cend(),
        [&name](const Command& command) { return name == QLatin1String(command.name); });
    return found == all.cend() ? nullptr : &*found;
}

Answer answerWithoutCommand(const QVector<Command>& all, const QStringList& arguments)
{
    constexpr int nameWidth = 12;
    QStringList names;
    QString description = "The sounds of Quorin Lab and their way to the ear. Commands:\n";
    for (const Command& command : all) {
        names.append(command.name);
        description
            += "\n  " + QString(command.name).leftJustified(nameWidth) + QString(command.summary);
    }
    QCommandLineParser parser;
    parser.setApplicationDescription(
        description + "\n\nEach has a help of its own: quorin-sound export --help.");
    addHelpOptions(parser);
    parser.addPositionalArgument("command", "What to do.", "command [option...]");
    return *answerTo(arguments, parser, [&] {
        const QString given = arguments.value(1);
        return (given.isEmpty() ? QString("give a command: ")
                                : QString("there is no command \"%1\", but: ").arg(given))
            + names.join(", ");
    });
}
