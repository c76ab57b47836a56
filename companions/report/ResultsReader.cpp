// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ResultsReader.h"

#include "procedure/ResultsFormat.h"
#include "session/Data.h"

#include <QIODevice>
#include <QList>

#include <cmath>

namespace {

constexpr int longestLine = 4096; // the longest that can be written has some 350 bytes
constexpr int mostTrials = 100000;

enum Column { valueColumn, stimulusColumn, responseColumn, correctnessColumn, reactionTimeColumn };
constexpr int nColumns = 5;

/// The lines of a file without their ends, counted.
class Lines {
public:
    explicit Lines(QIODevice& device)
        : m_device(device)
    {
    }

    /// The next line; false at the file's end and when the line is damaged, which error() tells.
    bool next(QByteArray& line)
    {
        line = m_device.readLine(longestLine + 2);
        if (line.isEmpty()) {
            return false;
        }
        ++m_number;
        if (line.size() > longestLine) {
            m_error = QString("the line is longer than %1 bytes").arg(longestLine);
            return false;
        }
        if (!line.endsWith('\n')) {
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

    QIODevice& m_device;
    int m_number = 0;
    bool m_firstHasReturn = false;
    QString m_error;
};

int parameterOfHeader(const QByteArray& line)
{
    for (const int parameter : {carrierFrequencyParameter, modulationDepthParameter}) {
        if (line == resultsHeader(parameter).toLatin1()) {
            return parameter;
        }
    }
    return -1;
}

// What stands in a damaged field may be anything: a few characters of it will do.
QString quoted(const QByteArray& field)
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
    return quoted(field) + " is not a value with 6 decimals";
}

QString readPosition(const QByteArray& field, int& position)
{
    constexpr int nIntervals = 4;
    position = field.size() == 1 ? field[0] - '0' : 0;
    return position >= 1 && position <= nIntervals
        ? QString()
        : quoted(field) + " is not a position from 1 to 4";
}

QString readCorrectness(const QByteArray& field, Record& record)
{
    record.correctness = record.stimulusPosition == record.responsePosition;
    if (field != "0" && field != "1") {
        return quoted(field) + " is not a correctness, 0 or 1";
    }
    return (field == "1") == record.correctness ? QString()
                                                : "the correctness contradicts the positions";
}

QString readReactionTime(const QByteArray& field, double& reactionTime)
{
    constexpr int significantDigits = 6;
    reactionTime = field.toDouble();
    const bool isTime = std::isfinite(reactionTime) && reactionTime >= 0.0;
    return isTime && QByteArray::number(reactionTime, 'g', significantDigits) == field
        ? QString()
        : quoted(field) + " is not a reaction time in ms";
}

QString readRecord(const QByteArray& line, Record& record)
{
    if (parameterOfHeader(line) >= 0) {
        return "a second header: there is more than one run in the file";
    }
    const QList<QByteArray> fields = line.split('\t');
    if (fields.size() != nColumns) {
        return QString("%1 columns are needed, not %2").arg(nColumns).arg(fields.size());
    }
    for (const QString& error : {readValue(fields[valueColumn], record.value),
             readPosition(fields[stimulusColumn], record.stimulusPosition),
             readPosition(fields[responseColumn], record.responsePosition),
             readCorrectness(fields[correctnessColumn], record),
             readReactionTime(fields[reactionTimeColumn], record.reactionTime)}) {
        if (!error.isEmpty()) {
            return error;
        }
    }
    return {};
}

QString readRecords(Lines& lines, QVector<Record>& records)
{
    QByteArray line;
    while (lines.next(line)) {
        Record record;
        QString error = records.size() < mostTrials
            ? readRecord(line, record)
            : QString("there are more than %1 trials").arg(mostTrials);
        if (!error.isEmpty()) {
            return error;
        }
        records.append(record);
    }
    return records.isEmpty() && lines.error().isEmpty() ? "there are no trials" : lines.error();
}

} // namespace

ResultsReading readResults(QIODevice& device)
{
    ResultsReading reading;
    Lines lines(device);
    QByteArray header;
    if (!lines.next(header) && lines.number() == 0) {
        reading.complaint = {1, "the file is empty"};
        return reading;
    }
    reading.mainParameter = parameterOfHeader(header);
    if (reading.mainParameter < 0) {
        reading.complaint = {1, "not a results file: the first line is no header of one"};
        return reading;
    }
    const QString error
        = lines.error().isEmpty() ? readRecords(lines, reading.records) : lines.error();
    if (!error.isEmpty()) {
        reading.complaint = {lines.number(), error};
    }
    return reading;
}
