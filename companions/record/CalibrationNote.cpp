// SPDX-License-Identifier: GPL-3.0-or-later
// The calibration note: its file, what it may hold, and outputs compared with it.
#include "record/CalibrationNote.h"

#include "input/SamplingRates.h"
#include "record/JsonFields.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

bool isWithin(double number, double lowest, double highest)
{
    return number >= lowest && number <= highest;
}

QString percentOf(const QVector<double>& volumes)
{
    QStringList texts;
    for (const double volume : volumes) {
        texts.append(QString::number(volume, 'f', 1));
    }
    return texts.join(", ") + " %";
}

// Volumes come back from a file to the last bit, but from some servers rounded.
bool areSame(const QVector<double>& a, const QVector<double>& b)
{
    constexpr double tolerance = 0.05; // %: of what is shown to one decimal
    return a.size() == b.size()
        && std::equal(a.cbegin(), a.cend(), b.cbegin(),
            [](double x, double y) { return std::abs(x - y) < tolerance; });
}

QString differenceOf(const CalibratedOutput& noted, const CalibratedOutput& now)
{
    if (noted.name != now.name) {
        return QString("the output is %1, the note is of %2").arg(now.name, noted.name);
    }
    return areSame(noted.volumes, now.volumes)
        ? QString()
        : QString("the volume of %1 is %2, in the note %3")
              .arg(now.name, percentOf(now.volumes), percentOf(noted.volumes));
}

} // namespace

QString faultOf(const CalibrationNote& note)
{
    constexpr double softestDb = -120.0;
    const bool isTone = note.sound == "tone";
    const bool isGoodTone = note.frequency.has_value() == isTone
        && (!isTone || isWithin(*note.frequency, 1.0, note.rate / 2.0));
    const QVector<QPair<bool, const char*>> demands {
        {note.version == CalibrationNote::currentVersion, "version"},
        {!note.outputs.isEmpty(), "outputs"},
        {QStringList({"left", "right", "both"}).contains(note.ear), "ear"},
        {isTone || note.sound == "noise", "sound"},
        {isWithin(note.rate, slowestRate, fastestRate), "rate_hz"},
        {isGoodTone, "frequency_hz"},
        {isWithin(note.levelDb, softestDb, 0.0), "level_db"},
        {isWithin(note.readingDb, lowestReadingDb, highestReadingDb), "reading_db_spl"},
        {QStringList({"A", "C", "Z"}).contains(note.weighting), "weighting"},
    };
    for (const auto& demand : demands) {
        if (!demand.first) {
            return QString("\"%1\" cannot be true of a calibration").arg(demand.second);
        }
    }
    return {};
}

ReadNote readCalibrationNote(const QString& path)
{
    ReadNote read;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        read.error = "cannot be read: " + file.errorString();
        return read;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    FieldReader reader(document.object());
    CalibrationNote::eachField(read.note, reader);
    if (!document.isObject()) {
        read.error = "is no calibration note: no JSON object";
    } else if (!reader.badKey().isEmpty()) {
        read.error = QString("is no calibration note: \"%1\" is missing or of a wrong kind")
                         .arg(reader.badKey());
    } else {
        read.error = faultOf(read.note);
    }
    return read;
}

QByteArray calibrationBytes(const CalibrationNote& note)
{
    FieldWriter writer;
    CalibrationNote::eachField(note, writer);
    return QJsonDocument(writer.object()).toJson();
}

QStringList differencesFrom(const CalibrationNote& note, const QVector<CalibratedOutput>& now)
{
    if (now.isEmpty()) {
        return {"the sound server does not tell its output and volume"};
    }
    QStringList differences;
    const int nBoth = std::min(note.outputs.size(), now.size());
    for (int i = 0; i < nBoth; ++i) {
        const QString difference = differenceOf(note.outputs[i], now[i]);
        if (!difference.isEmpty()) {
            differences.append(difference);
        }
    }
    for (const CalibratedOutput& output : now) {
        if (output.isMuted) {
            differences.append(QString("the output %1 is muted").arg(output.name));
        }
    }
    if (now.size() != note.outputs.size()) {
        differences.append(QString("sounds pass %1 outputs, in the note %2")
                               .arg(now.size())
                               .arg(note.outputs.size()));
    }
    return differences;
}
