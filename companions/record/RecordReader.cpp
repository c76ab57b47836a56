// SPDX-License-Identifier: GPL-3.0-or-later
// A record's file read line by line into a run.
#include "record/RecordReader.h"

#include "record/JsonFields.h"

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>

namespace {

/// Puts lines together to a run; each function returns what is wrong with its line.
class RunBuilder {
public:
    explicit RunBuilder(RunRecord& run)
        : m_run(run)
    {
    }

    QString add(const QByteArray& bytes)
    {
        QJsonParseError error {};
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
        if (!document.isObject()) {
            return error.error == QJsonParseError::NoError ? QString("is no JSON object")
                                                           : "is no JSON: " + error.errorString();
        }
        m_object = document.object();
        ++m_run.nLines;
        const QString event = m_object.value("event").toString();
        if (m_hasBegun && !std::holds_alternative<std::monostate>(m_run.end)) {
            return "stands after the end of the run";
        }
        return m_hasBegun ? addEvent(event) : addBegin(event);
    }

private:
    template <typename Line> QString read(Line& line) const
    {
        FieldReader reader(m_object);
        Line::eachField(line, reader);
        return reader.badKey().isEmpty() ? QString()
                                         : QString(R"("%1": "%2" is missing or of a wrong kind)")
                                               .arg(Line::event, reader.badKey());
    }

    QString addBegin(const QString& event)
    {
        if (event != RunBegun::event) {
            return "is not the first line of a record";
        }
        const QJsonValue version = m_object.value("version");
        if (version != QJsonValue(RunBegun::currentVersion)) {
            return "is of another version of the format";
        }
        m_hasBegun = true;
        return read(m_run.begun);
    }

    QString addEvent(const QString& event)
    {
        if (event == TrialBegun::event) {
            return addTrial();
        }
        if (event == SoundStarted::event) {
            return addSound();
        }
        if (event == SoundInterrupted::event) {
            return addOfSound(&RecordedTrial::interruptions, &RecordedTrial::interruptionLines);
        }
        if (event == SoundEnded::event) {
            return addOfSound(&RecordedTrial::ends, &RecordedTrial::endLines);
        }
        if (event == AnswerAllowed::event) {
            return addOnce(&RecordedTrial::allowed, &RecordedTrial::allowedLine);
        }
        if (event == AnswerGiven::event) {
            return addOnce(&RecordedTrial::answer, &RecordedTrial::answerLine);
        }
        return addLast(event);
    }

    QString addLast(const QString& event)
    {
        if (event == RunSaved::event) {
            return finish<RunSaved>();
        }
        if (event == RunUnsaved::event) {
            return finish<RunUnsaved>();
        }
        if (event == RunAbandoned::event) {
            return finish<RunAbandoned>();
        }
        return "is of no known event: \"" + event + '"';
    }

    QString addTrial()
    {
        RecordedTrial trial;
        trial.begunLine = m_run.nLines;
        QString error = read(trial.begun);
        const bool isNext = trial.begun.trial == m_run.trials.size() + 1;
        const bool isDue = m_run.trials.isEmpty() || m_run.trials.constLast().answer;
        if (error.isEmpty() && !(isNext && isDue)) {
            return QString("trial %1 begins out of order").arg(trial.begun.trial);
        }
        if (error.isEmpty()) {
            m_run.trials.append(trial);
        }
        return error;
    }

    template <typename Line> QString readOfLastTrial(Line& line) const
    {
        QString error = read(line);
        return error.isEmpty() && line.trial != m_run.trials.size()
            ? QString("\"%1\": trial %2 is not under way").arg(Line::event).arg(line.trial)
            : error;
    }

    QString addSound()
    {
        SoundStarted line;
        QString error = readOfLastTrial(line);
        if (error.isEmpty()) {
            m_run.trials.last().sounds.append(line);
            m_run.trials.last().soundLines.append(m_run.nLines);
        }
        return error;
    }

    template <typename Line>
    QString addOnce(std::optional<Line> RecordedTrial::*once, int RecordedTrial::*number)
    {
        Line line;
        QString error = readOfLastTrial(line);
        if (!error.isEmpty()) {
            return error;
        }
        std::optional<Line>& place = m_run.trials.last().*once;
        if (place) {
            return QString("\"%1\": stands twice in trial %2").arg(Line::event).arg(line.trial);
        }
        place = line;
        m_run.trials.last().*number = m_run.nLines;
        return {};
    }

    // A sound may run dry, and end, after its trial has ended.
    template <typename Line>
    QString addOfSound(QVector<Line> RecordedTrial::*lines, QVector<int> RecordedTrial::*numbers)
    {
        Line line;
        QString error = read(line);
        if (error.isEmpty() && (line.trial < 1 || line.trial > m_run.trials.size())) {
            return QString("\"%1\": trial %2 has not begun").arg(Line::event).arg(line.trial);
        }
        if (error.isEmpty()) {
            RecordedTrial& trial = m_run.trials[line.trial - 1];
            (trial.*lines).append(line);
            (trial.*numbers).append(m_run.nLines);
        }
        return error;
    }

    template <typename Line> QString finish()
    {
        Line line;
        QString error = read(line);
        if (error.isEmpty()) {
            m_run.end = line;
        }
        return error;
    }

    RunRecord& m_run;
    QJsonObject m_object;
    bool m_hasBegun = false;
};

} // namespace

ReadRecord readRecord(const QByteArray& content)
{
    ReadRecord read;
    RunBuilder builder(read.run);
    int start = 0;
    for (int end = content.indexOf('\n'); end >= 0; end = content.indexOf('\n', start)) {
        ++read.line;
        read.error = builder.add(content.mid(start, end - start));
        if (!read.error.isEmpty()) {
            return read;
        }
        start = end + 1;
    }
    read.run.isCut = start < content.size();
    if (read.line == 0) {
        read.error = content.isEmpty() ? "the file is empty" : "the first line is cut short";
    }
    read.line = 0;
    return read;
}

ReadRecord readRecordFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ReadRecord unread;
        unread.error = "cannot be read: " + file.errorString();
        return unread;
    }
    return readRecord(file.readAll());
}
