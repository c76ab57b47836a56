// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound from its command line to its exit status.
#include "plots/PictureFile.h"
#include "sound/Command.h"

#include <QGuiApplication>

int main(int argc, char* argv[])
{
    QStringList arguments = commandLine(argc, argv);
    drawWithoutDisplay();
    const QVector<Command> all = commands();
    const Command* const command = commandNamed(all, arguments.value(1));
    // The help begins with this name; Qt takes options of its own, such as -platform, from a
    // command line: it gets none.
    QByteArray name("quorin-sound");
    if (command != nullptr) {
        name += QByteArray(" ") + command->name;
    }
    char* names[] = {name.data(), nullptr};
    int nNames = 1;
    const QGuiApplication application(nNames, names);
    QCoreApplication::setApplicationName("quorin-sound");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);
    StandardStreams streams;
    if (command == nullptr) {
        return streams.say(answerWithoutCommand(all, arguments));
    }
    arguments.removeAt(1);
    return command->run(arguments, streams);
}
