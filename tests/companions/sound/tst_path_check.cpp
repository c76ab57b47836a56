// SPDX-License-Identifier: GPL-3.0-or-later
// What the check says of each fact of a sound server.
#include "sound/PathCheck.h"
#include "sound/PipeWireSettings.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

#include <algorithm>

Q_DECLARE_METATYPE(Verdict)

namespace {

constexpr CheckedSettings start {40000, 600.0};

OutputFacts card()
{
    OutputFacts output;
    output.name = "card";
    output.description = "A card";
    output.rate = 40000;
    output.format = "float32le";
    output.volumes = {{"front-left", 100.0}, {"front-right", 100.0}};
    output.latencyMs = 25.0;
    return output;
}

SoundPath goodPath()
{
    return {"pulseaudio", "16.1", {card()}, false, {}};
}

SoundPath pipeWirePath(int largestQuantum, int forcedQuantum = 0, int forcedForUs = 0)
{
    SoundPath path {"PulseAudio (on PipeWire 0.3.65)", "15.0.0", {card()}, false, {}};
    path.outputs[0].rate = 48000;
    path.outputs[0].sleepsAfter = "0";
    path.pipeWire = PipeWireSettings {largestQuantum, forcedQuantum, forcedForUs, {48000}, 48000};
    return path;
}

/// The line of a subject: the last where there are several.
CheckLine lineOf(const QVector<CheckLine>& lines, const QString& subject)
{
    CheckLine found {Verdict::fine, "no such line", {}, {}, {}};
    for (const CheckLine& line : lines) {
        if (line.subject == subject) {
            found = line;
        }
    }
    return found;
}

void row(const char* name, const SoundPath& path, const CheckedSettings& settings,
    const char* subject, Verdict verdict, const QString& finding, const QString& remedy)
{
    const CheckLine line = lineOf(checkedPath(path, settings), subject);
    QTest::newRow(name) << line.subject << QString(subject) << line.verdict << verdict
                        << line.finding << finding << line.remedy << remedy;
}

void addOutputs()
{
    SoundPath path = goodPath();
    row("a card", path, start, "output", Verdict::fine, "card (A card)", "");
    path.outputs[0].name = "auto_null";
    path.outputs[0].description = "Dummy Output";
    row("no card", path, start, "output", Verdict::stop, "Dummy Output",
        "plug a sound card in, or look why the server does not see it: pactl list cards");
    path.outputs.clear();
    row("no output", path, start, "output", Verdict::stop, "none",
        "plug a sound card in, or look why the server does not see it: pactl list cards");
    path = goodPath();
    path.outputs[0].isMuted = true;
    row("muted", path, start, "mute", Verdict::stop, "on", "pactl set-sink-mute card 0");
}

void addVolumes()
{
    const auto withVolumes = [](double left, double right) {
        SoundPath path = goodPath();
        path.outputs[0].volumes[0].percent = left;
        path.outputs[0].volumes[1].percent = right;
        return path;
    };
    row("full volume", withVolumes(100, 100), start, "volume", Verdict::fine,
        "front-left 100 % (0.0 dB), front-right 100 % (0.0 dB)", "");
    row("40 %", withVolumes(40, 40), start, "volume", Verdict::look,
        "front-left 40 % (-23.9 dB), front-right 40 % (-23.9 dB)",
        "for samples as they were computed, if an amplifier after the card sets the level: pactl "
        "set-sink-volume card 100%");
    row("above full volume", withVolumes(120, 100), start, "volume", Verdict::stop,
        "front-left 120 % (4.8 dB), front-right 100 % (0.0 dB)", "pactl set-sink-volume card 100%");
    row("one channel down", withVolumes(60, 0), start, "volume", Verdict::look,
        "front-left 60 % (-13.3 dB), front-right 0 % (-inf dB)", "pactl set-sink-volume card 60%");
    row("volume 0", withVolumes(0, 0), start, "volume", Verdict::stop,
        "front-left 0 % (-inf dB), front-right 0 % (-inf dB)",
        "pactl set-sink-volume card 40%, headphones off, and raise it from there");
}

const QString betterPulseAudio
    = "; if that cannot be, write \"resample-method = speex-float-5\" into "
      "~/.config/pulse/daemon.conf, then: pulseaudio -k";
const QString betterPipeWire
    = "; if that cannot be, write \"stream.properties = { resample.quality = 10 }\" into "
      "~/.config/pipewire/pipewire-pulse.conf.d/resample.conf, then: "
      "systemctl --user restart pipewire-pulse";

void addFormats()
{
    SoundPath path = goodPath();
    row("its rate", path, start, "sampling rate", Verdict::fine, "output 40000 Hz, sounds 40000 Hz",
        "");
    row("another rate", path, {44100, 600.0}, "sampling rate", Verdict::look,
        "output 40000 Hz, sounds 44100 Hz",
        "type 40000 in the panel's \"Sampling rate\"" + betterPulseAudio);
    path.outputs.append(card());
    path.outputs[1].rate = 48000;
    row("another rate behind a virtual output", path, start, "sampling rate", Verdict::look,
        "output 48000 Hz, sounds 40000 Hz",
        "type 48000 in the panel's \"Sampling rate\"" + betterPulseAudio);
    row("another rate than PipeWire's", pipeWirePath(64), start, "sampling rate", Verdict::look,
        "output 48000 Hz, sounds 40000 Hz",
        "type 48000 in the panel's \"Sampling rate\"" + betterPipeWire);
    path = goodPath();
    for (const char* const format : {"float32le", "s32le", "s24le", "s24-32le"}) {
        path.outputs[0].format = format;
        row(format, path, start, "sample format", Verdict::fine, format, "");
    }
    path.outputs[0].format = "s16le";
    row("16 bits", path, start, "sample format", Verdict::look, "s16le",
        "write \"default-sample-format = s32le\" into ~/.config/pulse/daemon.conf, then: "
        "pulseaudio -k");
    path = pipeWirePath(128);
    path.outputs[0].format = "s16le";
    row("16 bits on PipeWire", path, start, "sample format", Verdict::look, "s16le",
        "set audio.format of the output to S32LE in the session manager's settings");
}

void addEars()
{
    const QString oneEar
        = "for one ear: pactl load-module module-remap-sink sink_name=one_ear master=card "
          "channels=1 channel_map=mono master_channel_map=front-left remix=no, then pactl "
          "set-default-sink one_ear; front-right is the other";
    SoundPath path = goodPath();
    row("two channels", path, start, "ears", Verdict::fine, "2 channels", oneEar);
    path.outputs[0].volumes.resize(1);
    row("one channel", path, start, "ears", Verdict::fine, "1 channel", "");
    path.outputs[0].volumes.resize(6);
    row("six channels", path, start, "ears", Verdict::look, "6 channels",
        "choose a stereo profile: pactl list cards, then pactl set-card-profile");
    path = goodPath();
    path.outputs.prepend(card());
    path.outputs[0].volumes = {{"mono", 100.0}};
    path.outputs[0].module = "module-remap-sink";
    const QString undo = "for both ears: pactl unload-module module-remap-sink";
    for (const char* const side : {"left", "right"}) {
        path.outputs[0].moduleArguments
            = QString("sink_name=a master=card master_channel_map=front-%1 remix=no").arg(side);
        row(side, path, start, "ears", Verdict::fine, QString(side) + " only", undo);
    }
}

void addTimes()
{
    SoundPath path = goodPath();
    row("latency", path, start, "latency", Verdict::fine, "25.0 ms", "");
    row("awake", path, start, "sleep", Verdict::fine, "off", "");
    path.hasSuspendOnIdle = true;
    row("falls asleep", path, start, "sleep", Verdict::look, "on",
        "pactl unload-module module-suspend-on-idle");
    path = pipeWirePath(1024);
    row("PipeWire awake", path, start, "sleep", Verdict::fine, "off", "");
    const QString remedy
        = "set session.suspend-timeout-seconds of the output to 0, see the user guide";
    path.outputs[0].sleepsAfter = "5";
    row("PipeWire falls asleep", path, start, "sleep", Verdict::look, "after 5 s", remedy);
    path.outputs[0].sleepsAfter.clear();
    row("PipeWire may fall asleep", path, start, "sleep", Verdict::look,
        "as the session manager has it", remedy);
    row("it fits", goodPath(), start, "length", Verdict::fine, "24000 samples", "");
    row("part of a sample", goodPath(), {44100, 333.3}, "length", Verdict::fine, "14698 samples",
        "");
    row("too long", goodPath(), {40000, 300000.0}, "length", Verdict::stop, "8388608 samples",
        "type a duration of at most 209715 ms");
}

void addQuanta()
{
    const QString force = "pw-metadata -n settings 0 clock.force-quantum 128";
    row("PulseAudio plays all", goodPath(), start, "end of a sound", Verdict::fine, "played", "");
    SoundPath resampled = goodPath();
    resampled.outputs[0].rate = 48000;
    row("PulseAudio's resampler keeps the end", resampled, start, "end of a sound", Verdict::look,
        "the last 0.2 to 6 ms are lost", "type 48000 in the panel's \"Sampling rate\"");
    row("as PipeWire comes", pipeWirePath(2048), {48000, 600.0}, "quantum", Verdict::look,
        "2048 samples (42.7 ms)", force);
    row("the rule for our programs", pipeWirePath(2048, 0, 128), {48000, 600.0}, "quantum",
        Verdict::fine, "128 samples (2.7 ms)", "");
    row("too small for all", pipeWirePath(2048, 64), {48000, 600.0}, "quantum", Verdict::look,
        "64 samples (1.3 ms)", force);
    row("too small for all, but not for our programs", pipeWirePath(2048, 64, 128), {48000, 600.0},
        "quantum", Verdict::fine, "128 samples (2.7 ms)", "");
    row("forced twice", pipeWirePath(2048, 1024, 128), {48000, 600.0}, "quantum", Verdict::look,
        "1024 samples (21.3 ms)", force);
    row("forced between powers of two", pipeWirePath(2048, 200), {48000, 600.0}, "quantum",
        Verdict::fine, "128 samples (2.7 ms)", "");
    row("unknown quantum", pipeWirePath(0), {48000, 600.0}, "quantum", Verdict::look, "unknown",
        "install pw-metadata: apt install pipewire-bin");
    row("unknown but for the rule", pipeWirePath(0, 0, 128), {48000, 600.0}, "quantum",
        Verdict::fine, "128 samples (2.7 ms)", "");
    row("the end is lost", pipeWirePath(2048), {48000, 56.0}, "end of a sound", Verdict::stop,
        "the last 640 of 2688 samples are lost", force);
    row("the end is lost after resampling", pipeWirePath(2048), {40000, 56.0}, "end of a sound",
        Verdict::stop, "the last 640 of 2688 samples are lost", force);
    row("whole quanta", pipeWirePath(2048, 0, 128), {48000, 600.0}, "end of a sound", Verdict::fine,
        "played", "");
    row("less than a small quantum is lost", pipeWirePath(2048, 64), {48000, 601.0},
        "end of a sound", Verdict::stop, "the last 48 of 28848 samples are lost",
        "type a duration of whole quanta, such as 602.6666667 ms");
    row("neither fits", pipeWirePath(2048), {48000, 601.0}, "end of a sound", Verdict::stop,
        "the last 176 of 28848 samples are lost",
        force + "; and type a duration of whole quanta, such as 602.6666667 ms");
    row("the end is unknown", pipeWirePath(0), {48000, 600.0}, "end of a sound", Verdict::look,
        "unknown", "");
}

} // namespace

class TestPathCheck : public QuietTest {
    Q_OBJECT

private slots:
    void fact_hasAVerdictAndARemedy_data()
    {
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QString>("expectedSubject");
        QTest::addColumn<Verdict>("verdict");
        QTest::addColumn<Verdict>("expectedVerdict");
        QTest::addColumn<QString>("finding");
        QTest::addColumn<QString>("expectedFinding");
        QTest::addColumn<QString>("remedy");
        QTest::addColumn<QString>("expectedRemedy");
        addOutputs();
        addVolumes();
        addFormats();
        addEars();
        addTimes();
        addQuanta();
    }

    void fact_hasAVerdictAndARemedy()
    {
        QFETCH(QString, subject);
        QFETCH(QString, expectedSubject);
        QFETCH(Verdict, verdict);
        QFETCH(Verdict, expectedVerdict);
        QFETCH(QString, finding);
        QFETCH(QString, expectedFinding);
        QFETCH(QString, remedy);
        QFETCH(QString, expectedRemedy);
        QCOMPARE(subject, expectedSubject);
        QCOMPARE(finding, expectedFinding);
        QCOMPARE(remedy, expectedRemedy);
        QCOMPARE(verdict, expectedVerdict);
    }

    void rateThatPipeWireSwitchesTo_isFine()
    {
        SoundPath path = pipeWirePath(64);
        path.pipeWire->allowedRates = {44100, 48000};
        QCOMPARE(lineOf(checkedPath(path, {44100, 600.0}), "sampling rate").verdict, Verdict::fine);
        QCOMPARE(lineOf(checkedPath(path, start), "sampling rate").verdict, Verdict::look);
    }

    // 44100 of 48000 times 2048 is 1881.6, and PipeWire takes the power of two below it.
    void endAtARateThatPipeWireSwitchesTo_isCountedAtThatRate()
    {
        SoundPath path = pipeWirePath(2048);
        path.pipeWire->allowedRates = {44100, 48000, 96000};
        const auto finding = [&path](int rate, const char* subject) {
            return lineOf(checkedPath(path, {rate, 600.0}), subject).finding;
        };
        QCOMPARE(finding(44100, "quantum"), QString("1024 samples (23.2 ms)"));
        QCOMPARE(
            finding(44100, "end of a sound"), QString("the last 860 of 26460 samples are lost"));
        QCOMPARE(finding(96000, "quantum"), QString("4096 samples (42.7 ms)"));
        QCOMPARE(
            finding(96000, "end of a sound"), QString("the last 256 of 57600 samples are lost"));
        QCOMPARE(
            finding(40000, "end of a sound"), QString("the last 128 of 28800 samples are lost"));
        path.pipeWire->forcedForUs = 128; // at every rate
        QCOMPARE(finding(44100, "quantum"), QString("128 samples (2.9 ms)"));
        QCOMPARE(
            finding(44100, "end of a sound"), QString("the last 92 of 26460 samples are lost"));
    }

    // It may sleep and tell another rate, and it plays at none of the allowed ones.
    void forcedRateOfPipeWire_isTheOneThatCounts()
    {
        SoundPath path = pipeWirePath(2048);
        path.pipeWire->allowedRates = {44100, 48000};
        path.pipeWire->forcedRate = 44100;
        const QVector<CheckLine> lines = checkedPath(path, {48000, 600.0});
        QCOMPARE(lineOf(lines, "sampling rate").verdict, Verdict::look);
        QCOMPARE(
            lineOf(lines, "sampling rate").finding, QString("output 44100 Hz, sounds 48000 Hz"));
        QCOMPARE(lineOf(lines, "quantum").finding, QString("1024 samples (23.2 ms)"));
        QCOMPARE(lineOf(lines, "end of a sound").finding,
            QString("the last 860 of 26460 samples are lost"));
        QCOMPARE(lineOf(checkedPath(path, {44100, 600.0}), "sampling rate").verdict, Verdict::fine);
    }

    void virtualOutput_isCheckedWithTheOneBehindIt()
    {
        SoundPath path = goodPath();
        path.outputs.append(card());
        path.outputs[1].isMuted = true;
        const QVector<CheckLine> lines = checkedPath(path, start);
        const auto nMutes = std::count_if(lines.cbegin(), lines.cend(),
            [](const CheckLine& line) { return line.subject == "mute"; });
        QCOMPARE(int(nMutes), 2);
        QVERIFY(mustStop(lines));
    }

    void goodPath_hasNothingToStopFor()
    {
        const QVector<CheckLine> lines = checkedPath(goodPath(), start);
        QVERIFY(!mustStop(lines));
        QVERIFY(checkTable(lines).endsWith("\n11 fine, 0 to look at, 0 to stop for\n"));
    }

    void missingServer_isAStop()
    {
        QCOMPARE(checkTable(checkWithoutServer("Connection refused")),
            QString("stop  server          Connection refused\n"
                    "                      Nothing is heard.\n"
                    "                      -> start the sound server: systemctl --user start "
                    "pipewire-pulse, or pulseaudio --start\n"
                    "0 fine, 0 to look at, 1 to stop for\n"));
        QVERIFY(mustStop(checkWithoutServer("Connection refused")));
    }

    void pipeWiresSettings_areRead()
    {
        const PipeWireSettings settings = readPipeWireSettings(
            "Found \"settings\" metadata 32\n"
            "update: id:0 key:'log.level' value:'2' type:''\n"
            "update: id:0 key:'clock.rate' value:'48000' type:''\n"
            "update: id:0 key:'clock.allowed-rates' value:'[ 44100, 48000 ]' type:''\n"
            "update: id:0 key:'clock.quantum' value:'1024' type:''\n"
            "update: id:0 key:'clock.max-quantum' value:'2048' type:''\n"
            "update: id:0 key:'clock.force-quantum' value:'300' type:''\n"
            "update: id:0 key:'clock.force-rate' value:'44100' type:''\n");
        QCOMPARE(settings.largestQuantum, 2048);
        QCOMPARE(settings.forcedQuantum, 300);
        QCOMPARE(settings.usualRate, 48000);
        QCOMPARE(settings.forcedRate, 44100);
        QCOMPARE(settings.quantumAt(48000), 256);
        QCOMPARE(settings.allowedRates, QVector<int>({44100, 48000}));
        QCOMPARE(readPipeWireSettings("").quantumAt(48000), 0);
    }
};

QUORIN_GUILESS_TEST(TestPathCheck);
#include "tst_path_check.moc"
