// SPDX-License-Identifier: GPL-3.0-or-later
// Reads results files field by field; where an editor or a spreadsheet changed one, the message
// names the cause.
#include "report/ResultsReader.h"

#include "input/TextEncoding.h"
#include "procedure/ResultsFormat.h"
#include "session/Data.h"

#include <QList>

#include <cmath>

using namespace quorin;

namespace {

constexpr int longestLine = 4096; // the longest that can be written has some 350 bytes
constexpr int mostTrials = 100000;

constexpr auto secondHeaderText = "a second header: there is more than one run in the file";

enum Column { valueColumn, stimulusColumn, responseColumn, correctnessColumn, reactionTimeColumn };
constexpr int nColumns = 5;

/// The lines of a file without their ends, counted.
class Lines {
public:
    explicit Lines(const QByteArray& bytes)
        : m_bytes(bytes)
    {
    }

    /// The next line; false at the file's end and when the line is damaged, which error() tells.
    bool next(QByteArray& line)
    {
        if (m_position >= m_bytes.size()) {
            return false;
        }
        const int end = m_bytes.indexOf('\n', m_position);
        const bool hasEnd = end >= 0;
        const int length = (hasEnd ? end + 1 : m_bytes.size()) - m_position;
        line = m_bytes.mid(m_position, length);
        m_position += length;
        ++m_number;
        if (length > longestLine) {
            m_error = QString("the line is longer than %1 bytes").arg(longestLine);
            return false;
        }
        if (!hasEnd) {
            m_error = "the line has no end: the file is cut short";
            return false;
        }
        return removeEnd(line);
    }

    int number() const { return m_number; }
    QString error() const { return m_error; }

private:
    bool removeEnd(QByteArray& line)
    {
        const bool hasReturn = line.endsWith("\r\n");
        if (m_number == 1) {
            m_firstHasReturn = hasReturn;
        } else if (hasReturn != m_firstHasReturn) {
            m_error = "the line ends otherwise than the first";
            return false;
        }
        line.chop(hasReturn ? 2 : 1);
        return true;
    }

    const QByteArray& m_bytes;
    int m_position = 0;
    int m_number = 0;
    bool m_firstHasReturn = false;
    QString m_error;
};

// Every line is compared to both: they are made once.
int parameterOfHeader(const QByteArray& line)
{
    static const QByteArray ofFrequencies = resultsHeader(carrierFrequencyParameter).toLatin1();
    static const QByteArray ofDepths = resultsHeader(modulationDepthParameter).toLatin1();
    if (line == ofFrequencies) {
        return carrierFrequencyParameter;
    }
    return line == ofDepths ? modulationDepthParameter : -1;
}

int parameterOfTexts(const QByteArray& line, const QByteArray& separator)
{
    return parameterOfHeader(QByteArray(line).replace(separator, "\t"));
}

// What an editor, a spreadsheet or a transfer made of the header.
QString changeOfHeader(const QByteArray& line)
{
    if (line.startsWith(utf8Mark)) {
        return "the file begins with a byte order mark: an editor saved it as UTF-8 with BOM";
    }
    if (isUtf16(line)) {
        return "the file is in UTF-16: an editor saved it in another encoding";
    }
    if (parameterOfHeader(line.left(line.indexOf('\r'))) >= 0) {
        return "the lines end in CR alone: an old editor changed the file";
    }
    if (parameterOfTexts(line, ",") >= 0 || parameterOfTexts(line, ";") >= 0) {
        return "the columns are parted by commas or semicolons, not by tabs: a spreadsheet changed "
               "the file";
    }
    const QByteArray simple = line.simplified();
    for (const int parameter : {carrierFrequencyParameter, modulationDepthParameter}) {
        if (simple == resultsHeader(parameter).toLatin1().simplified()) {
            return "there are blanks in the place of tabs: an editor changed the file";
        }
    }
    return "not a results file: the first line is no header of one";
}

// A damaged field may hold anything: a few characters of it are shown.
QString quotedField(const QByteArray& field)
{
    constexpr int mostCharacters = 30;
    const QString text = QString::fromUtf8(field.left(mostCharacters));
    return '"' + text + (field.size() > mostCharacters ? "...\"" : "\"");
}

QString readValue(const QByteArray& field, double& value)
{
    value = field.toDouble();
    // A value that rounds to 0 from below is written with its sign and read without digits.
    const bool isNegativeZero = field == '-' + resultsNumber(0.0).toLatin1();
    if (isNegativeZero || resultsNumber(value).toLatin1() == field) {
        return {};
    }
    if (resultsNumber(QByteArray(field).replace(',', '.').toDouble()).replace('.', ',').toLatin1()
        == field) {
        return quotedField(field)
            + " has a decimal comma: a spreadsheet or an editor changed the file";
    }
    return quotedField(field) + " is not a value with 6 decimals";
}

QString readPosition(const QByteArray& field, int& position)
{
    constexpr int nIntervals = 4;
    position = field.size() == 1 ? field[0] - '0' : 0;
    return position >= 1 && position <= nIntervals
        ? QString()
        : quotedField(field) + " is not a position from 1 to 4";
}

QString readCorrectness(const QByteArray& field, bool& correctness)
{
    correctness = field == "1";
    return correctness || field == "0" ? QString()
                                       : quotedField(field) + " is not a correctness, 0 or 1";
}

QString readReactionTime(const QByteArray& field, double& reactionTime)
{
    constexpr int significantDigits = 6;
    reactionTime = field.toDouble();
    const bool isTime = std::isfinite(reactionTime) && reactionTime >= 0.0;
    return isTime && QByteArray::number(reactionTime, 'g', significantDigits) == field
        ? QString()
        : quotedField(field) + " is not a reaction time in ms";
}

QString readRecord(const QByteArray& line, Record& record)
{
    const QList<QByteArray> fields = line.split('\t');
    if (fields.size() != nColumns) {
        const bool hasBlanks = fields.size() == 1 && line.simplified().count(' ') == nColumns - 1;
        return hasBlanks
            ? "there are blanks in the place of tabs: an editor changed the line"
            : QString("%1 columns are needed, not %2").arg(nColumns).arg(fields.size());
    }
    for (const QString& error : {readValue(fields[valueColumn], record.value),
             readPosition(fields[stimulusColumn], record.stimulusPosition),
             readPosition(fields[responseColumn], record.responsePosition),
             readCorrectness(fields[correctnessColumn], record.correctness),
             readReactionTime(fields[reactionTimeColumn], record.reactionTime)}) {
        if (!error.isEmpty()) {
            return error;
        }
    }
    return {};
}

QString readRecords(Lines& lines, ResultsReading& reading)
{
    QByteArray line;
    while (lines.next(line)) {
        const int parameter = parameterOfHeader(line);
        if (parameter == reading.mainParameter) {
            if (reading.secondHeader.text.isEmpty()) {
                reading.secondHeader = {lines.number(), secondHeaderText};
            }
            continue;
        }
        if (parameter >= 0) {
            return secondHeaderText;
        }
        Record record;
        QString error = reading.records.size() < mostTrials
            ? readRecord(line, record)
            : QString("there are more than %1 trials").arg(mostTrials);
        if (!error.isEmpty()) {
            return error;
        }
        reading.records.append(record);
        reading.lines.append(lines.number());
    }
    return reading.records.isEmpty() && lines.error().isEmpty() ? "there are no trials"
                                                                : lines.error();
}

} // namespace

ResultsReading readResults(const QByteArray& bytes)
{
    ResultsReading reading;
    Lines lines(bytes);
    QByteArray header;
    if (!lines.next(header) && lines.number() == 0) {
        reading.complaint = {1, "the file is empty"};
        return reading;
    }
    reading.mainParameter = parameterOfHeader(header);
    if (reading.mainParameter < 0) {
        reading.complaint = {1, changeOfHeader(header)};
        return reading;
    }
    const QString error = lines.error().isEmpty() ? readRecords(lines, reading) : lines.error();
    if (!error.isEmpty()) {
        reading.complaint = {lines.number(), error};
    }
    return reading;
}
