// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-sound calibrate from its options to its note.
#include "sound/CalibrateCommand.h"

#include "output/OutputFile.h"
#include "sound/CalibrateOptions.h"
#include "sound/CalibratedOutputs.h"
#include "sound/CalibrationDialogue.h"
#include "sound/PressureTable.h"
#include "sound/PulseServer.h"
#include "sound/SoundPlayer.h"
#include "sound/TypedLines.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

#include <algorithm>

using namespace quorin;

namespace {

constexpr double loudDb = 85.0; // SPL
constexpr double percentTolerance = 0.5; // of what a server makes of 100 %

// The offset is left out of ISO 8601 unless it is given.
QString timeNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QString newNotePath(const QString& folder)
{
    const QString time = QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
    for (int number = 1;; ++number) {
        QString path = QDir(folder).filePath(
            QString("calibration_%1_%2.json").arg(time).arg(number, 3, 10, QChar('0')));
        const QFileInfo file(path);
        if (!file.exists() && !file.isSymLink()) {
            return path;
        }
    }
}

QString volumesOf(const OutputFacts& output)
{
    QStringList texts;
    for (const ChannelVolume& volume : output.volumes) {
        texts.append(QString("%1 %2 %").arg(volume.channel).arg(volume.percent, 0, 'f', 1));
    }
    return texts.join(", ");
}

/// What keeps the sound from the meter; empty if nothing does.
QString obstacleOf(const FoundPath& found, Ear ear)
{
    if (!found.obstacle.isEmpty() || found.path.outputs.isEmpty()) {
        return "the sound server does not tell its output and volume: "
            + (found.obstacle.isEmpty() ? QString("it has no output") : found.obstacle);
    }
    for (const OutputFacts& output : found.path.outputs) {
        if (output.isMuted) {
            return QString("the output is muted: pactl set-sink-mute %1 0").arg(output.name);
        }
        const auto isAmplified
            = [](const ChannelVolume& volume) { return volume.percent > 100.0 + percentTolerance; };
        if (std::any_of(output.volumes.cbegin(), output.volumes.cend(), isAmplified)) {
            return QString("the output's volume is above 100 %: pactl set-sink-volume %1 100%")
                .arg(output.name);
        }
    }
    const OutputFacts& first = found.path.outputs.constFirst();
    return first.volumes.size() < channelsOf(ear)
        ? QString("the output %1 has one channel: it cannot play to one ear").arg(first.name)
        : QString();
}

/// Plays, asks and writes.
class Calibration {
public:
    Calibration(const CalibrateOptions& options, StandardStreams& streams)
        : m_options(options)
        , m_streams(streams)
    {
    }

    int make()
    {
        const QString obstacle = presentObstacle();
        if (!obstacle.isEmpty()) {
            m_streams.complain(obstacle);
            return somethingIsWrong;
        }
        tellPlan();
        const std::optional<CalibrationNote> note
            = m_options.readingDb ? noteOfReading() : noteOfDialogue();
        if (!note) {
            m_streams.complain("no note was written");
            return somethingIsWrong;
        }
        return write(*note);
    }

private:
    void tellPlan()
    {
        const CalibrationSound& sound = m_options.sound;
        QTextStream& output = m_streams.output();
        for (const OutputFacts& facts : qAsConst(m_path.path.outputs)) {
            output << QString("Output: %1 (%2)\nVolume: %3\n")
                          .arg(facts.description, facts.name, volumesOf(facts));
        }
        output << QString("Sound: %1, %2, at most %3 s\n")
                      .arg(sound.isNoise ? QString("noise")
                                         : QString("tone of %1 Hz").arg(sound.frequency),
                          m_options.ear == Ear::both ? QString("both ears")
                                                     : nameOf(m_options.ear) + " ear",
                          QString::number(sound.durationMs / 1000.0))
               << "Levels are RMS re digital full scale. Headphones off: the sound is for the "
                  "meter.\n"
               << Qt::flush;
    }

    QString presentObstacle()
    {
        m_path = askPulseServer();
        return obstacleOf(m_path, m_options.ear);
    }

    // A volume may be turned at the question, and while the sound is played.
    QString play(double levelDb)
    {
        QString fault = presentObstacle();
        if (!fault.isEmpty()) {
            return fault;
        }
        const CalibrationSound& sound = m_options.sound;
        const QVector<double> samples = calibrationSamples(sound, levelDb);
        fault = playFrames(calibrationFrames(samples, m_options.ear, sound.rate),
            channelsOf(m_options.ear), sound.rate);
        const QString obstacle = presentObstacle();
        return obstacle.isEmpty() ? fault : obstacle;
    }

    std::optional<CalibrationNote> noteOfReading()
    {
        const QString fault = play(m_options.startDb);
        if (!fault.isEmpty()) {
            m_streams.complain(fault);
            return {};
        }
        return noteOf({m_options.startDb, *m_options.readingDb}, *m_options.remark);
    }

    std::optional<CalibrationNote> noteOfDialogue()
    {
        // A key that was pressed ahead of a question must not raise the next sound.
        CalibrationDialogue dialogue(nextTypedLine, m_streams.output(), [this](double levelDb) {
            QString fault = play(levelDb);
            dropTypedLines();
            return fault;
        });
        const std::optional<LevelReading> reading = dialogue.lead(
            {m_options.startDb, m_options.stepDb, highestLevelDb(m_options.sound), isTyped()});
        const bool asksForRemark = reading && !m_options.remark;
        const QString remark = asksForRemark ? dialogue.remark() : m_options.remark.value_or("");
        if (wasTypedLineTooLong()) {
            m_streams.complain(QString("a line is longer than %1 bytes").arg(longestTypedLine));
            return {};
        }
        return reading ? std::optional(noteOf(*reading, remark)) : std::nullopt;
    }

    CalibrationNote noteOf(const LevelReading& reading, const QString& remark) const
    {
        const CalibrationSound& sound = m_options.sound;
        CalibrationNote note;
        note.program
            = QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion();
        note.time = timeNow();
        note.outputs = calibratedOutputs(m_path.path);
        note.ear = nameOf(m_options.ear);
        note.sound = sound.isNoise ? "noise" : "tone";
        note.frequency = sound.isNoise ? std::nullopt : std::optional(sound.frequency);
        note.rate = sound.rate;
        note.levelDb = reading.levelDb;
        note.readingDb = reading.readingDb;
        note.weighting = m_options.weighting;
        note.remark = remark;
        return note;
    }

    int write(const CalibrationNote& note)
    {
        const QString path = newNotePath(m_options.folder);
        const QString fault = createFile(path, calibrationBytes(note));
        if (!fault.isEmpty()) {
            m_streams.complain(fault);
            return somethingIsWrong;
        }
        const PressureTable table = pressureTable(note);
        const int status = m_streams.print(
            QString("%1: %2 dB are %3 dB SPL (%4). With quorin-lab's settings at its start:\n\n")
                    .arg(path, QString::number(note.levelDb, 'f', 1),
                        QString::number(note.readingDb, 'f', 1), note.weighting)
                + table.text,
            success);
        if (table.highestDb > loudDb) {
            m_streams.complain(QString("the sounds reach %1 dB SPL, above %2: turn the volume down "
                                       "and calibrate again")
                                   .arg(table.highestDb, 0, 'f', 1)
                                   .arg(loudDb));
        }
        return status;
    }

    const CalibrateOptions& m_options;
    StandardStreams& m_streams;
    FoundPath m_path;
};

} // namespace

int runCalibrate(const QStringList& arguments, StandardStreams& streams)
{
    const CalibrateOptions options = calibrateOptions(arguments);
    return options.answer ? streams.say(*options.answer) : Calibration(options, streams).make();
}
