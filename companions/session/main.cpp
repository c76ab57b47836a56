// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-session: the application's windows with a recorder beside them, or a record replayed.
#include "app/MainWindow.h"
#include "output/CommandLine.h"
#include "output/EndSignals.h"
#include "session/CalibrationNow.h"
#include "session/FaultMessages.h"
#include "session/FlightRecorder.h"
#include "session/FolderChoice.h"
#include "session/ListenerScreen.h"
#include "session/PreparedSession.h"
#include "session/Recomputation.h"
#include "session/SecondFolders.h"
#include "session/SessionOptions.h"
#include "session/StudyCourse.h"

#include <QApplication>
#include <QMessageBox>

#include <csignal>
#include <memory>

using namespace quorin;

namespace {

QString comparison(const QString& path, const RunRecord& run, const QStringList& differences)
{
    QString text;
    for (const QString& difference : differences) {
        text += path + ": " + difference + '\n';
    }
    int nSounds = 0;
    for (const RecordedTrial& trial : run.trials) {
        nSounds += trial.sounds.size();
    }
    const QString verdict = differences.isEmpty()
        ? QString("the same")
        : QString("%1 differences").arg(differences.size());
    return text
        + QString("%1: %2 in %3 trials and %4 sounds\n")
              .arg(path, verdict)
              .arg(run.trials.size())
              .arg(nSounds);
}

int replay(const QString& path, StandardStreams& streams)
{
    const ReadRecord read = readRecordFile(path);
    if (!read.error.isEmpty()) {
        const QString line = read.line > 0 ? QString(":%1").arg(read.line) : QString();
        streams.complain(path + line + ": " + read.error);
        return somethingIsWrong;
    }
    if (read.run.isCut) {
        streams.complain(path + ": note: the last line is cut short and left out");
    }
    const QStringList differences = differencesOf(read.run);
    return streams.print(comparison(path, read.run, differences),
        differences.isEmpty() ? success : somethingIsWrong);
}

void accompany(
    StudyCourse& course, FlightRecorder& recorder, MainWindow& window, StandardStreams& streams)
{
    recorder.askForPlace([&course] { return course.place(); });
    QObject::connect(&course, &StudyCourse::told,
        [&streams](const QString& text) { streams.print(text, success); });
    QObject::connect(&course, &StudyCourse::finished, &window, &QWidget::close);
}

// The screens are known only now.
bool findScreen(ListenerPlace& place, StandardStreams& streams)
{
    const std::optional<QString> name
        = place.screen.isEmpty() ? QString() : screenNameOf(place.screen);
    if (!name) {
        streams.complain(QString("--subject-screen must be one of %1, not \"%2\"")
                             .arg(screenList(), place.screen));
    }
    place.screen = name.value_or(QString());
    return name.has_value();
}

// Where the folder was asked for, there is no terminal to look at.
void tellAll(const QStringList& texts, const SessionOptions& options, StandardStreams& streams)
{
    for (const QString& text : texts) {
        streams.complain(text);
    }
    if (options.asksFolder && !texts.isEmpty()) {
        QMessageBox::warning(nullptr, "Recording", texts.join("\n\n"));
    }
}

int record(const SessionOptions& options, const PreparedSession& session, StandardStreams& streams)
{
    ListenerPlace place = options.listener;
    if (!findScreen(place, streams)) {
        return wrongUsage;
    }
    qsrand(static_cast<uint>(session.seed));
    MainWindow window;
    FlightRecorder recorder(window, options.folder, session.seed, secondFolders(options.folder));
    if (session.calibration) {
        recorder.askForCalibration([&session] { return calibrationNow(*session.calibration); });
    }
    const FaultMessages faultMessages(recorder, window, streams);
    ListenerScreen listenerScreen(window, place);
    QObject::connect(&listenerScreen, &ListenerScreen::moved,
        [&streams](const QString& missing, const QString& instead) {
            streams.complain(QString("the screen %1 is not there; the listener's window is on %2")
                                 .arg(missing, instead));
        });
    std::unique_ptr<StudyCourse> course;
    if (session.study) {
        course = std::make_unique<StudyCourse>(window, *session.study, options.study.pressesGo);
        accompany(*course, recorder, window, streams);
    }
    endLoopOnSignals();
    window.show();
    if (course) {
        course->start();
    }
    const int status = QApplication::exec();
    const QStringList leftOut = recorder.close();
    tellAll(leftOut, options, streams);
    return leftOut.isEmpty() ? status : somethingIsWrong;
}

/// Tells what keeps the session from beginning, or that nothing is left to do; no status if it is
/// to begin.
std::optional<int> statusOf(
    const SessionOptions& options, const PreparedSession& session, StandardStreams& streams)
{
    for (const QString& note : session.notes) {
        streams.complain("note: " + note);
    }
    tellAll(session.errors, options, streams);
    if (!session.errors.isEmpty()) {
        return somethingIsWrong;
    }
    const bool isDone
        = session.study && runsLeft(session.study->runs, session.study->completed).isEmpty();
    return isDone ? std::optional(streams.print(progressOf(*session.study), success))
                  : std::nullopt;
}

/// A session in a folder that is asked for.
int recordWhereAsked(SessionOptions& options, StandardStreams& streams)
{
    options.folder = chosenFolder();
    if (options.folder.isEmpty()) {
        return success;
    }
    const PreparedSession session = preparedSession(options);
    const std::optional<int> status = statusOf(options, session, streams);
    return status ? *status : record(options, session, streams);
}

/// Help, mistakes and replays need no display.
int answered(const SessionOptions& options, StandardStreams& streams)
{
    return options.answer ? streams.say(*options.answer) : replay(options.replayed, streams);
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList arguments = commandLine(argc, argv);
    QCoreApplication::setApplicationName("quorin-session");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);
    int nNames = 1; // Qt takes options of its own from a command line: it gets none
    std::signal(SIGPIPE, SIG_IGN); // a run must not end with the reader of its run sheet
    StandardStreams streams;
    SessionOptions options;
    PreparedSession session;
    {
        const QCoreApplication application(nNames, argv);
        options = sessionOptions(arguments);
        if (options.answer || !options.replayed.isEmpty()) {
            return answered(options, streams);
        }
        if (!options.asksFolder) {
            session = preparedSession(options);
            if (const std::optional<int> status = statusOf(options, session, streams)) {
                return *status;
            }
        }
    }
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    const QApplication application(nNames, argv);
    return options.asksFolder ? recordWhereAsked(options, streams)
                              : record(options, session, streams);
}
