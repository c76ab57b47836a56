// SPDX-License-Identifier: GPL-3.0-or-later
// Which facts of a sound server matter to an experiment, and what mends them.
#include "sound/PathCheck.h"

#include "sound/LengthCheck.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr int fullPercent = 100;

// PulseAudio's scale of volumes is cubic.
QString volumeText(double percent)
{
    constexpr double dbPerDecade = 60.0;
    const QString db = QString::number(dbPerDecade * std::log10(percent / fullPercent), 'f', 1);
    return QString("%1 % (%2 dB)").arg(qRound(percent)).arg(percent > 0.0 ? db : "-inf");
}

CheckLine serverLine(const SoundPath& path)
{
    return {Verdict::fine, "server", path.serverName + ", version " + path.serverVersion, {}, {}};
}

CheckLine outputLine(const OutputFacts& output)
{
    if (output.name == "auto_null") {
        return {Verdict::stop, "output", output.description,
            "The server has found no sound card: nothing is heard.",
            "plug a sound card in, or look why the server does not see it: pactl list cards"};
    }
    return {Verdict::fine, "output", output.name + " (" + output.description + ')', {}, {}};
}

// Both lose less than 0.1 dB up to 16 kHz: docs/timing.md.
QString betterResampler(bool isPipeWire)
{
    const QString where = "if that cannot be, write \"%1\" into %2, then: %3";
    return isPipeWire ? where.arg("stream.properties = { resample.quality = 10 }",
               "~/.config/pipewire/pipewire-pulse.conf.d/resample.conf",
               "systemctl --user restart pipewire-pulse")
                      : where.arg("resample-method = speex-float-5", "~/.config/pulse/daemon.conf",
                          "pulseaudio -k");
}

CheckLine rateLine(const SoundPath& path, const CheckedSettings& settings)
{
    const int rate = path.otherRate(settings.rate);
    const QString finding = QString("output %1 Hz, sounds %2 Hz").arg(rate).arg(settings.rate);
    if (rate == settings.rate) {
        return {Verdict::fine, "sampling rate", finding, "Nothing is resampled.", {}};
    }
    if (path.pipeWire && path.pipeWire->rateFor(settings.rate) == settings.rate) {
        return {Verdict::fine, "sampling rate", finding,
            "PipeWire switches to the sounds' rate where nothing else plays.", {}};
    }
    return {Verdict::look, "sampling rate", finding,
        "Sounds are resampled: the highest frequencies become weaker, and what arrives is no "
        "longer sample for sample what was computed. quorin-sound measure tells how much.",
        QString("type %1 in the panel's \"Sampling rate\"; ").arg(rate)
            + betterResampler(path.pipeWire.has_value())};
}

CheckLine formatLine(const OutputFacts& output, bool isPipeWire)
{
    const auto begins = [&output](const char* text) { return output.format.startsWith(text); };
    if (begins("float32") || begins("s32") || begins("s24")) {
        return {Verdict::fine, "sample format", output.format, {}, {}};
    }
    return {Verdict::look, "sample format", output.format,
        "Samples are rounded: 16 bits leave some 96 dB between full scale and what is lost.",
        isPipeWire
            ? "set audio.format of the output to S32LE in the session manager's settings"
            : "write \"default-sample-format = s32le\" into ~/.config/pulse/daemon.conf, then: "
              "pulseaudio -k"};
}

QString earOf(const OutputFacts& output)
{
    if (output.module != "module-remap-sink") {
        return {};
    }
    for (const char* const side : {"left", "right"}) {
        if (output.moduleArguments.contains(QString("master_channel_map=front-%1").arg(side))) {
            return side;
        }
    }
    return {};
}

CheckLine earLine(const OutputFacts& output)
{
    const int nChannels = output.volumes.size();
    const QString ear = earOf(output);
    if (!ear.isEmpty()) {
        return {Verdict::fine, "ears", ear + " only",
            "The sounds are monaural: the other channel is silent.",
            "for both ears: pactl unload-module module-remap-sink"};
    }
    const QString finding = QString("%1 channel%2").arg(nChannels).arg(nChannels == 1 ? "" : "s");
    if (nChannels > 2) {
        return {Verdict::look, "ears", finding,
            "The sounds go to every channel, or are spread over some of them.",
            "choose a stereo profile: pactl list cards, then pactl set-card-profile"};
    }
    return {Verdict::fine, "ears", finding,
        nChannels == 2 ? "Both ears get the same: the sounds are diotic." : QString(),
        nChannels == 2 ? QString("for one ear: pactl load-module module-remap-sink "
                                 "sink_name=one_ear master=%1 channels=1 channel_map=mono "
                                 "master_channel_map=front-left remix=no, then pactl "
                                 "set-default-sink one_ear; front-right is the other")
                             .arg(output.name)
                       : QString()};
}

CheckLine volumeLine(const OutputFacts& output)
{
    QStringList shown;
    double least = fullPercent;
    double most = 0.0;
    for (const ChannelVolume& volume : output.volumes) {
        shown.append(volume.channel + ' ' + volumeText(volume.percent));
        least = std::min(least, volume.percent);
        most = std::max(most, volume.percent);
    }
    const QString finding = shown.join(", ");
    const QString command = QString("pactl set-sink-volume %1 %2").arg(output.name);
    if (qRound(most) > fullPercent) {
        return {Verdict::stop, "volume", finding,
            "Sounds are raised beyond full scale and clipped.", command.arg("100%")};
    }
    if (qRound(most) == 0) {
        return {Verdict::stop, "volume", finding, "Nothing is heard.",
            command.arg("40%") + ", headphones off, and raise it from there"};
    }
    if (least != most) {
        return {Verdict::look, "volume", finding, "The channels are not of one level.",
            command.arg(QString("%1%").arg(qRound(most)))};
    }
    if (qRound(most) < fullPercent) {
        return {Verdict::look, "volume", finding,
            "Levels are lower by this much, by the card or by scaling each sample: calibrate at "
            "this volume, write it down and leave it.",
            "for samples as they were computed, if an amplifier after the card sets the level: "
                + command.arg("100%")};
    }
    return {Verdict::fine, "volume", finding,
        "Full scale leaves the card at its full strength: set the level after it, and begin low.",
        {}};
}

CheckLine muteLine(const OutputFacts& output)
{
    if (output.isMuted) {
        return {Verdict::stop, "mute", "on", "Nothing is heard.",
            QString("pactl set-sink-mute %1 0").arg(output.name)};
    }
    return {Verdict::fine, "mute", "off", {}, {}};
}

CheckLine sleepLine(const SoundPath& path)
{
    const QString effect
        = "The output falls asleep while a listener thinks for more than some seconds; the next "
          "sound comes late, and some cards lose its beginning.";
    const OutputFacts& output = path.outputs.last();
    if (path.pipeWire) {
        if (output.sleepsAfter == "0") {
            return {Verdict::fine, "sleep", "off", {}, {}};
        }
        return {Verdict::look, "sleep",
            output.sleepsAfter.isEmpty() ? QString("as the session manager has it")
                                         : "after " + output.sleepsAfter + " s",
            effect, "set session.suspend-timeout-seconds of the output to 0, see the user guide"};
    }
    if (path.hasSuspendOnIdle) {
        return {Verdict::look, "sleep", "on", effect, "pactl unload-module module-suspend-on-idle"};
    }
    return {Verdict::fine, "sleep", "off", {}, {}};
}

CheckLine latencyLine(const OutputFacts& output)
{
    return {Verdict::fine, "latency", QString("%1 ms").arg(output.latencyMs, 0, 'f', 1),
        "Of the output as it is now; a sound that plays asks for its own.", {}};
}

} // namespace

QVector<CheckLine> checkedPath(const SoundPath& path, const CheckedSettings& settings)
{
    QVector<CheckLine> lines {serverLine(path)};
    if (path.outputs.isEmpty()) {
        lines.append({Verdict::stop, "output", "none", "Nothing is heard.",
            "plug a sound card in, or look why the server does not see it: pactl list cards"});
        return lines;
    }
    for (const OutputFacts& output : path.outputs) {
        lines.append(outputLine(output));
        lines.append(volumeLine(output));
        lines.append(muteLine(output));
    }
    const OutputFacts& card = path.outputs.last();
    lines.append(earLine(path.outputs.first()));
    lines.append(rateLine(path, settings));
    lines.append(formatLine(card, path.pipeWire.has_value()));
    lines.append(sleepLine(path));
    lines.append(latencyLine(card));
    return lines + lengthLines(path, settings);
}

QVector<CheckLine> checkWithoutServer(const QString& obstacle)
{
    return {{Verdict::stop, "server", obstacle, "Nothing is heard.",
        "start the sound server: systemctl --user start pipewire-pulse, or pulseaudio --start"}};
}

QString checkTable(const QVector<CheckLine>& lines)
{
    constexpr int verdictWidth = 6;
    constexpr int subjectWidth = 16;
    const QString below(verdictWidth + subjectWidth, ' ');
    const QStringList verdicts {"fine", "look", "stop"};
    QVector<int> counts(verdicts.size(), 0);
    QString table;
    for (const CheckLine& line : lines) {
        const int verdict = static_cast<int>(line.verdict);
        ++counts[verdict];
        table += verdicts[verdict].leftJustified(verdictWidth)
            + line.subject.leftJustified(subjectWidth) + line.finding + '\n';
        table += line.effect.isEmpty() ? QString() : below + line.effect + '\n';
        table += line.remedy.isEmpty() ? QString() : below + "-> " + line.remedy + '\n';
    }
    return table
        + QString("%1 fine, %2 to look at, %3 to stop for\n")
              .arg(counts[0])
              .arg(counts[1])
              .arg(counts[2]);
}

bool mustStop(const QVector<CheckLine>& lines)
{
    return std::any_of(lines.cbegin(), lines.cend(),
        [](const CheckLine& line) { return line.verdict == Verdict::stop; });
}
