// SPDX-License-Identifier: GPL-3.0-or-later
// Questions and answers of a calibration.
#include "sound/CalibrationDialogue.h"

#include "record/CalibrationNote.h"
#include "sound/CalibrationSound.h"

#include <utility>

using namespace quorin;

namespace {

QString decibelText(double level)
{
    return QString::number(level, 'f', 1) + " dB";
}

} // namespace

std::optional<double> meterReading(const QString& text)
{
    bool isNumber = false;
    const double reading = text.trimmed().toDouble(&isNumber);
    const bool isReasonable = isNumber && reading >= lowestReadingDb && reading <= highestReadingDb;
    return isReasonable ? std::optional(reading) : std::nullopt;
}

CalibrationDialogue::CalibrationDialogue(ReadLine readLine, QTextStream& output, Play play)
    : m_readLine(std::move(readLine))
    , m_output(output)
    , m_play(std::move(play))
{
}

std::optional<LevelReading> CalibrationDialogue::lead(const LevelCourse& course)
{
    m_course = course;
    m_levelDb = course.startDb;
    m_hasPlayed = false;
    while (true) {
        const QString answer = ask(question());
        if (answer.isNull() || answer == "q") {
            return {};
        }
        const std::optional<double> reading = meterReading(answer);
        if (m_hasPlayed && reading) {
            return LevelReading {m_levelDb, *reading};
        }
        if (!obey(answer) && !m_course.isTyped) {
            return {};
        }
    }
}

double CalibrationDialogue::higherDb() const
{
    return raisedLevelDb(m_levelDb, m_course.stepDb, m_course.highestDb);
}

QString CalibrationDialogue::question() const
{
    if (!m_hasPlayed) {
        return decibelText(m_levelDb) + ": Return plays it, q ends: ";
    }
    QString raising;
    if (m_course.isTyped) {
        raising = higherDb() > m_levelDb ? "Return plays " + decibelText(higherDb()) + ", "
                                         : QString("it is the highest, ");
    }
    return decibelText(m_levelDb) + ": the meter's reading in dB SPL; " + raising
        + "r plays it again, q ends: ";
}

// What is not understood plays nothing. False: so it was, or the sound failed.
bool CalibrationDialogue::obey(const QString& answer)
{
    const bool isReturn = answer.isEmpty();
    if (!m_hasPlayed && !isReturn) {
        m_output << "nothing has been played yet\n";
        return false;
    }
    if (!m_hasPlayed || answer == "r") {
        return play();
    }
    if (!isReturn) {
        m_output << '"' << answer << "\" is no reading: 20 to 120 dB SPL\n";
        return false;
    }
    if (!m_course.isTyped) {
        m_output << "Return raises the level only on a terminal\n";
        return false;
    }
    if (higherDb() > m_levelDb) {
        m_levelDb = higherDb();
        return play();
    }
    return true;
}

QString CalibrationDialogue::remark()
{
    return ask("Remark, such as headphones and coupler; may be empty: ");
}

// Null at the end of the input.
QString CalibrationDialogue::ask(const QString& question)
{
    m_output << question << Qt::flush;
    QString answer = m_readLine();
    if (answer.isNull()) {
        m_output << '\n';
        return answer;
    }
    answer = answer.trimmed();
    return answer.isNull() ? QString("") : answer;
}

bool CalibrationDialogue::play()
{
    const QString fault = m_play(m_levelDb);
    m_hasPlayed = fault.isEmpty();
    if (!m_hasPlayed) {
        m_output << fault << '\n' << Qt::flush;
    }
    return m_hasPlayed;
}
