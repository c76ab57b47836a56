// SPDX-License-Identifier: GPL-3.0-or-later
// Reads protocols; where an editor or a spreadsheet changed one, the message names the cause.
#include "protocol/ProtocolReader.h"

#include "input/TextEncoding.h"
#include "protocol/CsvParser.h"
#include "protocol/ProtocolCells.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/ProtocolRow.h"

#include <QTextCodec>

#include <algorithm>

using namespace quorin;

namespace {

// Where a line is found not to be UTF-8, a byte or a few behind the first wrong one; -1: nowhere.
int wrongUtf8Position(const QByteArray& line)
{
    const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState whole(QTextCodec::IgnoreHeader);
    codec->toUnicode(line.constData(), line.size(), &whole);
    if (whole.invalidChars == 0) {
        return whole.remainingChars == 0 ? -1 : line.size();
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    int position = 0;
    while (state.invalidChars == 0) {
        codec->toUnicode(line.constData() + position, 1, &state);
        ++position;
    }
    return position - 1;
}

QByteArray withoutMark(const QByteArray& bytes)
{
    return bytes.startsWith(utf8Mark) ? bytes.mid(static_cast<int>(qstrlen(utf8Mark))) : bytes;
}

// The number of the cell in which a text that is cut off ends. Where the text is damaged before,
// nobody can know; then it is empty.
QString numberOfLastCell(const QByteArray& text)
{
    CsvParser parser(QString::fromLatin1(text.constData(), text.size()) + 'x');
    QVector<CsvCell> cells;
    while (!parser.isAtEnd() && parser.error().isEmpty()) {
        parser.next(cells);
    }
    return parser.isAtEnd() ? QString::number(cells.size()) : QString();
}

ProtocolComplaint wrongByte(const QByteArray& text)
{
    int number = 0;
    int start = 0;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray& line : lines) {
        ++number;
        const int position = wrongUtf8Position(line);
        if (position >= 0) {
            return {number, numberOfLastCell(text.left(start + position)),
                "there are bytes that are not UTF-8: save the file as CSV in UTF-8"};
        }
        const int zero = line.indexOf('\0');
        if (zero >= 0) {
            return {number, numberOfLastCell(text.left(start + zero)),
                "there is a zero byte: this is not a text file"};
        }
        start += line.size() + 1;
    }
    return {};
}

ProtocolComplaint fileComplaint(const QByteArray& bytes)
{
    if (bytes.size() > mostProtocolBytes) {
        return {0, {}, QString("the file is larger than %1 bytes").arg(mostProtocolBytes)};
    }
    if (isUtf16(bytes)) {
        return {0, {}, "the file is in UTF-16: save it as CSV in UTF-8"};
    }
    return wrongByte(withoutMark(bytes));
}

// What a spreadsheet or an editor made of the line of headings.
QString separatorComplaint(const QString& heading)
{
    if (heading.contains(';')) {
        return "the columns are parted by semicolons, not by commas: a spreadsheet saved the file "
               "so";
    }
    if (heading.contains('\t')) {
        return "the columns are parted by tabs, not by commas: a spreadsheet saved the file so";
    }
    for (int column = 0; column < nProtocolColumns; ++column) {
        const QString start = QString(protocolColumn(column).name) + ' ';
        if (heading.startsWith(start, Qt::CaseInsensitive)) {
            return "there are blanks in the place of commas: an editor changed the file";
        }
    }
    return {};
}

QString unknownColumn(const QString& heading)
{
    const QString lower = heading.toLower();
    if (lower == "subject code") {
        return "one protocol is for all subjects: the subject is given at the start of the session";
    }
    if (lower == "filepath" || lower == "filename") {
        return "the session chooses where its files go";
    }
    for (int column = 0; column < nProtocolColumns; ++column) {
        const QString name = protocolColumn(column).name;
        if (name.startsWith(lower + " (")) {
            return "there is no such column: it is called \"" + name + '"';
        }
    }
    return "there is no such column";
}

/// The headings and the rows below them.
class ProtocolFile {
public:
    explicit ProtocolFile(const QString& text)
        : m_parser(text)
    {
    }

    Protocol read()
    {
        readHeadings();
        if (m_protocol.complaints.isEmpty()) {
            readRows();
        }
        if (m_protocol.complaints.isEmpty()) {
            checkNumberOfRuns();
        }
        if (!m_protocol.complaints.isEmpty()) {
            m_protocol.rows.clear();
        }
        return m_protocol;
    }

private:
    void complain(int line, const QString& column, const QString& text)
    {
        m_protocol.complaints.append({line, column, text});
    }

    void readHeadings()
    {
        QVector<CsvCell> cells;
        if (!nextRow(cells)) {
            if (m_parser.error().isEmpty()) {
                complain(0, {}, "the file is empty");
            }
            return;
        }
        const QString cause = cells.size() == 1 ? separatorComplaint(cells[0].text) : QString();
        if (!cause.isEmpty() && protocolColumnIndex(cells[0].text) < 0) {
            complain(cells[0].line, {}, cause);
            return;
        }
        for (const CsvCell& cell : qAsConst(cells)) {
            readHeading(cell);
        }
    }

    void readHeading(const CsvCell& cell)
    {
        const int column = protocolColumnIndex(cell.text);
        if (cell.text.isEmpty()) {
            complain(cell.line, {}, QString("column %1 has no heading").arg(m_columns.size() + 1));
        } else if (column < 0) {
            complain(cell.line, cell.text, unknownColumn(cell.text));
        } else if (m_columns.contains(column)) {
            complain(cell.line, cell.text, "there is a second column of this name");
        }
        m_columns.append(column);
    }

    void readRows()
    {
        QVector<CsvCell> cells;
        while (nextRow(cells)) {
            const int line = cells[0].line;
            if (cells.size() != m_columns.size()) {
                complain(line, columnName(std::min(cells.size(), m_columns.size())),
                    cellCountComplaint(cells.size()));
            } else if (std::all_of(cells.cbegin(), cells.cend(),
                           [](const CsvCell& cell) { return cell.text.isEmpty(); })) {
                complain(line, {}, "all cells are empty: remove the line, or write what is meant");
            } else {
                m_protocol.rows.append(protocolRow(byColumn(cells), line, m_protocol.complaints));
            }
        }
    }

    QString columnName(int place) const
    {
        return place < m_columns.size() ? protocolColumn(m_columns[place]).name
                                        : QString::number(place + 1);
    }

    QString cellCountComplaint(int nCells) const
    {
        const QString count
            = QString("%1 cells are needed, not %2").arg(m_columns.size()).arg(nCells);
        return nCells < m_columns.size() ? count
                                         : count
                + ": there may be a decimal comma, or a comma in a text without quotation marks";
    }

    QVector<CsvCell> byColumn(const QVector<CsvCell>& cells) const
    {
        QVector<CsvCell> all(nProtocolColumns, {QString(), cells[0].line});
        for (int i = 0; i < cells.size(); ++i) {
            all[m_columns[i]] = cells[i];
        }
        return all;
    }

    bool nextRow(QVector<CsvCell>& cells)
    {
        const bool isThere = m_parser.next(cells);
        for (CsvCell& cell : cells) {
            cell.text = cell.text.trimmed();
        }
        if (!m_parser.error().isEmpty()) {
            complain(cells.last().line, columnName(cells.size() - 1), m_parser.error());
        }
        return isThere;
    }

    void checkNumberOfRuns()
    {
        int nRuns = 0;
        for (const ProtocolRow& row : qAsConst(m_protocol.rows)) {
            nRuns += row.repeat;
            if (nRuns > mostProtocolRuns) {
                const bool hasRepeats = m_columns.contains(repeatColumn);
                complain(row.line, hasRepeats ? protocolColumn(repeatColumn).name : QString(),
                    QString("there are more than %1 runs").arg(mostProtocolRuns));
                return;
            }
        }
        if (nRuns == 0) {
            complain(0, {}, "there are no runs");
        }
    }

    CsvParser m_parser;
    QVector<int> m_columns; ///< by their place in the file
    Protocol m_protocol;
};

} // namespace

Protocol readProtocol(const QByteArray& bytes)
{
    const ProtocolComplaint complaint = fileComplaint(bytes);
    if (!complaint.text.isEmpty()) {
        return {{}, {complaint}};
    }
    return ProtocolFile(QString::fromUtf8(withoutMark(bytes))).read();
}

QString complaintText(const ProtocolComplaint& complaint)
{
    if (complaint.line == 0) {
        return complaint.text;
    }
    const QString line = QString("line %1").arg(complaint.line);
    if (complaint.column.isEmpty()) {
        return line + ": " + complaint.text;
    }
    const bool isNumber = std::all_of(complaint.column.begin(), complaint.column.end(),
        [](QChar character) { return character.isDigit(); });
    const QString column = isNumber ? complaint.column : quotedStart(complaint.column);
    return line + ", column " + column + ": " + complaint.text;
}
