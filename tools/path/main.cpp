// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-path: measures the path through a private sound server and prints a row of a table.
#include "sound/PathMeasurement.h"
#include "soundlab/PipeWireServer.h"
#include "soundlab/SoundServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

const QVector<double> shownTones {10000.0, 14000.0, 15000.0, 16000.0, 17000.0, 18000.0, 19000.0};

int fail(const QString& text)
{
    QTextStream(stderr) << "quorin-path: " << text << '\n';
    return EXIT_FAILURE;
}

QString rowOf(const QStringList& cells)
{
    return "| " + cells.join(" | ") + " |\n";
}

QString heading()
{
    QStringList names {"server and setting", "sounds (Hz)", "output (Hz)"};
    QStringList rules {"---", "--:", "--:"};
    for (const double tone : shownTones) {
        names.append(QString("%1 kHz").arg(tone / 1000.0));
        rules.append("--:");
    }
    return rowOf(names + QStringList {"strongest image", "lost at the end (samples)"})
        + rowOf(rules + QStringList {"--:", "--:"});
}

double strongestImageDb(const PathMeasurement& measured)
{
    double strongest = measured.tones.constFirst().imageDb;
    for (const ToneFigures& tone : measured.tones) {
        strongest = std::max(strongest, tone.imageDb);
    }
    return strongest;
}

QString row(const QString& label, const MeasuredPath& path, const PathMeasurement& measured)
{
    QStringList cells {label, QString::number(path.playedRate), QString::number(path.outputRate)};
    for (const ToneFigures& tone : measured.tones) {
        if (shownTones.contains(tone.frequency)) {
            cells.append(QString::number(tone.levelDb, 'f', 2).replace("-0.00", "0.00"));
        }
    }
    cells.append(QString::number(strongestImageDb(measured), 'f', 0));
    cells.append(QString::number(qRound(measured.lost.atEnd)));
    return rowOf(cells);
}

// A pause, which a busy machine makes, raises the images and lowers what is lost: of some
// measurements the one with the weakest images counts, and the median of what is lost.
int measure(const QString& label, const MeasuredPath& path)
{
    constexpr int nMeasurements = 3;
    PathMeasurement best;
    std::array<double, nMeasurements> lost {};
    for (double& lostAtEnd : lost) {
        const PathMeasurement measured = measurePath(path);
        if (!measured.obstacle.isEmpty()) {
            return fail(measured.obstacle);
        }
        lostAtEnd = measured.lost.atEnd;
        if (best.tones.isEmpty() || strongestImageDb(measured) < strongestImageDb(best)) {
            best = measured;
        }
    }
    std::sort(lost.begin(), lost.end());
    best.lost.atEnd = lost[nMeasurements / 2];
    QTextStream(stdout) << row(label, path, best);
    return EXIT_SUCCESS;
}

int measureOnPulseAudio(
    const QString& label, const MeasuredPath& path, const QString& resampleMethod)
{
    SoundServer::Settings settings;
    settings.rate = path.outputRate;
    settings.resampleMethod = resampleMethod;
    SoundServer server(settings);
    return server.start() ? measure(label, path) : fail(server.errorText());
}

int measureOnPipeWire(const QString& label, const MeasuredPath& path, const QString& rules)
{
    PipeWireServer server(0, rules, path.outputRate);
    return server.start() ? measure(label, path) : fail(server.errorText());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Measures what a sound server of its own does to tones and to the end of a sound, and "
        "prints a row of a table.");
    parser.addHelpOption();
    parser.addOptions({
        {"heading", "Print the heading of the table and end."},
        {"server", "pulseaudio or pipewire.", "name", "pulseaudio"},
        {"label", "What the row is called.", "text", "PulseAudio"},
        {"method", "PulseAudio's resample method.", "name", "speex-float-1"},
        {"rules", "A file of settings for PipeWire's PulseAudio server.", "file"},
        {"rate", "At which sounds are played, Hz.", "rate", "40000"},
        {"output-rate", "Of the output, Hz.", "rate", "48000"},
        {"duration", "Of the sound whose end is measured, ms.", "ms", "600"},
    });
    parser.process(application);
    if (parser.isSet("heading")) {
        QTextStream(stdout) << heading();
        return EXIT_SUCCESS;
    }
    const MeasuredPath path = {parser.value("rate").toInt(), parser.value("output-rate").toInt(),
        parser.value("duration").toDouble()};
    if (std::min(path.playedRate, path.outputRate) < 1 || !(path.durationMs > 0.0)) {
        return fail("rates and duration must be above 0");
    }
    return parser.value("server") == "pipewire"
        ? measureOnPipeWire(parser.value("label"), path, parser.value("rules"))
        : measureOnPulseAudio(parser.value("label"), path, parser.value("method"));
}
