// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// An output of the sound server, as it was set.
struct CalibratedOutput {
    QString name; ///< the server's
    QString description; ///< for people
    QVector<double> volumes; ///< of each channel, %, as the desktop shows it
    bool isMuted = false; ///< no note has it: a muted output is not calibrated

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("name", self.name);
        visit("description", self.description);
        visit("volume_percent", self.volumes);
    }
};

/// What a sound level meter read of a known sound: from it follow the levels of all others that
/// play the same way.
///
/// Digital levels are the RMS in dB re full scale, which is 1: a full-scale tone has -3.01 dB. What
/// AES17 and IEC 61606 call dBFS, where that tone has 0, is 3.01 dB more.
struct CalibrationNote {
    static constexpr int currentVersion = 1;

    int version = currentVersion; ///< of the format
    QString program; ///< its name and version
    QString time; ///< of the reading, ISO 8601 with ms and the offset from UTC
    QVector<CalibratedOutput> outputs; ///< the default one first, then what that one plays on
    QString ear; ///< "left", "right" or "both"
    QString sound; ///< "tone" or "noise"
    std::optional<double> frequency; ///< of a tone, Hz
    int rate = 0; ///< of its samples, Hz
    double levelDb = 0.0; ///< digital level
    double readingDb = 0.0; ///< the meter's, dB SPL
    QString weighting; ///< the meter's: "A", "C" or "Z"
    QString remark; ///< the experimenter's; may be empty

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("version", self.version);
        visit("program", self.program);
        visit("time", self.time);
        visit("outputs", self.outputs);
        visit("ear", self.ear);
        visit("sound", self.sound);
        visit("frequency_hz", self.frequency);
        visit("rate_hz", self.rate);
        visit("level_db", self.levelDb);
        visit("reading_db_spl", self.readingDb);
        visit("weighting", self.weighting);
        visit("remark", self.remark);
    }
};

/// The note that a run was made under.
struct RunCalibration {
    QString file; ///< the note's name, without its folder
    CalibrationNote note;
    QStringList differences; ///< between the note's outputs and those at Go, a sentence each

    template <typename Self, typename Visit> static void eachField(Self& self, Visit& visit)
    {
        visit("file", self.file);
        visit("note", self.note);
        visit("differences", self.differences);
    }
};

namespace quorin {

/// What a meter may have read of a calibration, dB SPL: all else is a slip.
constexpr double lowestReadingDb = 20.0;
constexpr double highestReadingDb = 120.0;

} // namespace quorin

/// A note, or why there is none.
struct ReadNote {
    CalibrationNote note;
    QString error; ///< empty: it can be used
};

/// Reads a note from its file.
ReadNote readCalibrationNote(const QString& path);

/// The bytes of a note's file.
QByteArray calibrationBytes(const CalibrationNote& note);

/// What cannot be true of a note; empty if nothing is wrong.
QString faultOf(const CalibrationNote& note);

/// How outputs differ from those of a note, a sentence each: another name, another volume, or mute.
QStringList differencesFrom(const CalibrationNote& note, const QVector<CalibratedOutput>& now);
