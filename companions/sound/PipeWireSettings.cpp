// SPDX-License-Identifier: GPL-3.0-or-later
// What PipeWire is set to.
#include "sound/PipeWireSettings.h"

#include <QProcess>
#include <QRegularExpression>

#include <algorithm>

int PipeWireSettings::quantumAt(int rate) const
{
    const int forced = std::max(forcedQuantum, forcedForUs);
    const double share = usualRate > 0 ? double(rate) / usualRate : 1.0;
    const double most = forced > 0 ? forced : largestQuantum * share;
    constexpr int largestPower = 1 << 30;
    int power = 1;
    while (power <= most / 2 && power < largestPower) {
        power *= 2;
    }
    return most >= 1.0 ? power : 0;
}

int PipeWireSettings::rateFor(int soundRate) const
{
    if (forcedRate > 0) {
        return forcedRate;
    }
    return allowedRates.contains(soundRate) ? soundRate : usualRate;
}

PipeWireSettings readPipeWireSettings(const QString& printed)
{
    // update: id:0 key:'clock.max-quantum' value:'2048' type:''
    static const QRegularExpression setting("key:'([^']*)' value:'([^']*)'");
    static const QRegularExpression number("\\d+");
    PipeWireSettings settings;
    auto found = setting.globalMatch(printed);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        const QString key = match.captured(1);
        const QString value = match.captured(2);
        if (key == "clock.max-quantum") {
            settings.largestQuantum = value.toInt();
        } else if (key == "clock.rate") {
            settings.usualRate = value.toInt();
        } else if (key == "clock.force-rate") {
            settings.forcedRate = value.toInt();
        } else if (key == "clock.force-quantum") {
            settings.forcedQuantum = value.toInt();
        } else if (key == "clock.allowed-rates") {
            auto rates = number.globalMatch(value);
            while (rates.hasNext()) {
                settings.allowedRates.append(rates.next().captured().toInt());
            }
        }
    }
    return settings;
}

PipeWireSettings runningPipeWireSettings()
{
    constexpr int patienceMs = 5000;
    QProcess process;
    process.start("pw-metadata", {"-n", "settings"});
    if (!process.waitForFinished(patienceMs)) {
        process.kill();
        process.waitForFinished(patienceMs);
        return {};
    }
    return readPipeWireSettings(process.readAllStandardOutput());
}
