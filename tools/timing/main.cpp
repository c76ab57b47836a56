// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-timing: plays trials on a sound server and prints how exactly they came.
#include "app/MainWindow.h"
#include "session/Data.h"
#include "session/FlightRecorder.h"
#include "soundlab/PipeWireServer.h"
#include "soundlab/SoundServer.h"
#include "timing/GraphRecorder.h"
#include "timing/TimedRecorder.h"
#include "timing/TimingTable.h"
#include "timing/TrialObserver.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLineParser>
#include <QLineEdit>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>

using namespace quorin;

namespace {

constexpr int trialTimeoutMs = 10000; // beside its sounds and silences

struct Trials {
    int number;
    int soundMs;
    int silenceMs;

    int timeoutMs() const { return number * (4 * (soundMs + silenceMs) + trialTimeoutMs); }
};

struct Settings {
    QString condition;
    int rate; // of the sink, Hz
    Trials trials;
    float threshold; // samples closer to zero are silence
    QString folder; // for records of the trials; empty: none
};

int fail(const QString& text)
{
    QTextStream(stderr) << "quorin-timing: " << text << '\n';
    return EXIT_FAILURE;
}

void setPanel(const MainWindow& window, const Settings& settings)
{
    const auto set = [&window](const char* field, double value) {
        window.findChild<QLineEdit*>(field)->setText(QString::number(value));
    };
    // In this order: noise does not go with an adapted carrier frequency.
    window.findChild<QComboBox*>("comboBoxMainParameter")
        ->setCurrentIndex(modulationDepthParameter);
    window.findChild<QComboBox*>("comboBoxSoundType")->setCurrentIndex(noiseCarrier);
    set("lineEditStdDuration", settings.trials.soundMs);
    set("lineEditDevDuration", settings.trials.soundMs);
    set("lineEditSilentInterval", settings.trials.silenceMs);
    // Guesses drive the depth up; at 1 the first sample of a deviant would be zero.
    window.findChild<QCheckBox*>("checkBoxResetMdFd")->setChecked(false);
    set("lineEditDevModDepth", 0.0001);
    set("lineEditSamplingRate", settings.rate);
    set("lineEditNReversals", settings.trials.number + 1); // the run must not end by itself
}

QVector<float> gated(QVector<float> samples, float threshold)
{
    for (float& sample : samples) {
        if (std::abs(sample) < threshold)
            sample = 0.0F;
    }
    return samples;
}

int measure(const Settings& settings, Recorder& recorder)
{
    MainWindow window;
    setPanel(window, settings);
    window.show();
    if (!recorder.begin())
        return fail(recorder.errorText());

    std::unique_ptr<FlightRecorder> flightRecorder;
    if (!settings.folder.isEmpty())
        flightRecorder = std::make_unique<FlightRecorder>(window, settings.folder, 1);
    TrialObserver observer(window);
    observer.startRun(settings.trials.number);
    QObject::connect(&observer, &TrialObserver::finished, qApp, &QApplication::quit);
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, qApp, [] { QApplication::exit(1); });
    patience.start(settings.trials.timeoutMs());
    if (QApplication::exec() != 0)
        return fail("the trials did not end");
    recorder.end();

    // The stimuli are noise without ramps: none of their samples is exactly zero.
    const int shortestSilence = settings.rate / 1000 * settings.trials.silenceMs / 4;
    const QVector<RecordedSound> recorded
        = recordedSounds(gated(recorder.samples(), settings.threshold), shortestSilence);
    if (recorded.size() != observer.sounds().size()) {
        return fail(QString("%1 sounds were played, but %2 recorded")
                        .arg(observer.sounds().size())
                        .arg(recorded.size()));
    }
    const int soundSamples = settings.rate / 1000 * settings.trials.soundMs;
    const Measurement measurement
        = {observer.sounds(), recorded, [&recorder](qint64 n) { return recorder.timeMs(n); },
            double(settings.rate), observer.periodMs(), soundSamples};
    QTextStream out(stdout);
    const QStringList rows = tableRows(settings.condition, measurement);
    for (const QString& row : rows)
        out << row << '\n';
    return EXIT_SUCCESS;
}

int measureOnPulseAudio(
    const QString& condition, const Trials& trials, int latencyMs, const QString& folder)
{
    SoundServer server;
    if (!server.start())
        return fail(server.errorText());
    TimedRecorder recorder({server.address(), server.monitor(), server.environment(),
        server.settings().rate, latencyMs});
    return measure({condition, server.settings().rate, trials, 0.0F, folder}, recorder);
}

int measureOnPipeWire(
    const QString& condition, const Trials& trials, const QCommandLineParser& options)
{
    PipeWireServer server(options.value("quantum").toInt(), options.value("rules"));
    if (!server.start())
        return fail(server.errorText());
    const GraphRecorder::Sink sink = {server.socket(), PipeWireServer::sink(), server.rate()};
    GraphRecorder recorder(sink, trials.timeoutMs() / 1000, options.isSet("awake"));
    return measure({condition, server.rate(), trials, 0.0F, {}}, recorder);
}

// With a sound card, the source is an input that the output is wired to.
int measureOnRunningServer(const QCommandLineParser& options, const Trials& trials, int latencyMs)
{
    const int rate = options.value("rate").toInt();
    TimedRecorder recorder({qEnvironmentVariable("PULSE_SERVER"), options.value("source"),
        QProcessEnvironment::systemEnvironment(), rate, latencyMs});
    return measure(
        {options.value("label"), rate, trials, options.value("threshold").toFloat(), {}}, recorder);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Runs trials on a sound server of its own, records them, and prints how exactly they came "
        "in time, as rows of a table.");
    parser.addHelpOption();
    parser.addOptions({
        {"heading", "Print the heading of the table and end."},
        {"server", "pulseaudio, pipewire, or running: the one that is there.", "name",
            "pulseaudio"},
        {"label", "What the rows are called.", "text", "PulseAudio"},
        {"latency", "The recorder's block, ms.", "ms", "1"},
        {"quantum", "PipeWire's quantum in samples; 0 leaves it as it is.", "samples", "0"},
        {"rules", "A file of settings for PipeWire's PulseAudio server.", "file"},
        {"awake", "Keep PipeWire's sink at work between the sounds, as another program would."},
        {"source", "What to record of a running server.", "name", "@DEFAULT_MONITOR@"},
        {"rate", "At which a running server is played to and recorded, Hz.", "rate", "48000"},
        {"threshold", "What counts as silence in its recording, of full scale 1.", "value", "0"},
        {"record", "With PulseAudio: record the trials into a folder, as quorin-session does.",
            "folder"},
        {"trials", "How many trials to play, four sounds each.", "number", "30"},
        {"sound", "Length of the sounds, ms.", "ms", "60"},
        {"silence", "Silence between them, ms; long enough to tell them apart.", "ms", "120"},
    });
    parser.process(application);
    if (parser.isSet("heading")) {
        QTextStream(stdout) << tableHeading().join('\n') << '\n';
        return EXIT_SUCCESS;
    }
    const QString server = parser.value("server");
    const QString label = parser.value("label");
    const Trials trials = {parser.value("trials").toInt(), parser.value("sound").toInt(),
        parser.value("silence").toInt()};
    const int latencyMs = parser.value("latency").toInt();
    if (std::min({trials.number, trials.soundMs, trials.silenceMs, latencyMs}) < 1)
        return fail("trials, sound, silence and latency must be whole numbers above 0");
    if (server == "pulseaudio")
        return measureOnPulseAudio(label, trials, latencyMs, parser.value("record"));
    if (server == "pipewire")
        return measureOnPipeWire(label, trials, parser);
    if (server == "running")
        return measureOnRunningServer(parser, trials, latencyMs);
    return fail("no such server: " + server);
}
