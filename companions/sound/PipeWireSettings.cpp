// SPDX-License-Identifier: GPL-3.0-or-later
// What PipeWire is set to.
#include "sound/PipeWireSettings.h"

#include <QProcess>
#include <QRegularExpression>

#include <algorithm>

int PipeWireSettings::quantumInForce() const
{
    const int forced = std::max(forcedQuantum, forcedForUs);
    if (forced <= 0) {
        return largestQuantum;
    }
    int power = 1;
    while (power <= forced / 2) {
        power *= 2;
    }
    return power;
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
