// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextStream>

#include <functional>
#include <optional>

/// The digital levels of a calibration, dB re full scale, and how it is answered.
struct LevelCourse {
    double startDb;
    double stepDb;
    double highestDb;
    bool isTyped = true; ///< at a terminal; otherwise nothing raises the level
};

/// What the meter read.
struct LevelReading {
    double levelDb; ///< digital level that was played
    double readingDb; ///< dB SPL
};

/// Reads what a sound level meter shows: 20 to 120 dB SPL, with a decimal point.
/// @return none for anything else
std::optional<double> meterReading(const QString& text);

/// Leads the experimenter from the first level to the meter's reading: nothing is played, and no
/// level raised, unless Return is pressed. Answers that are not typed, from a file or a pipe, raise
/// none, and the first that is not understood, or finds a fault, ends it: there may be no end of
/// them.
class CalibrationDialogue {
public:
    /// Plays at a digital level and returns what went wrong; an empty text if nothing did.
    using Play = std::function<QString(double levelDb)>;
    /// The next line of the input, and no more of it; null at its end.
    using ReadLine = std::function<QString()>;

    /// @param output must outlive the dialogue
    CalibrationDialogue(ReadLine readLine, QTextStream& output, Play play);

    /// @return none if it was ended, or the input ended, without a reading
    std::optional<LevelReading> lead(const LevelCourse& course);

    /// Asks for a remark.
    QString remark();

private:
    QString ask(const QString& question);
    QString question() const;
    bool obey(const QString& answer);
    bool play();
    double higherDb() const;

    ReadLine m_readLine;
    QTextStream& m_output;
    Play m_play;
    LevelCourse m_course {};
    double m_levelDb = 0.0; ///< of the next sound, or of the last
    bool m_hasPlayed = false; ///< whether the last level has been heard
};
