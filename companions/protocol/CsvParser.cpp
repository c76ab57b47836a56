// SPDX-License-Identifier: GPL-3.0-or-later
// Comma-separated values, character by character.
#include "protocol/CsvParser.h"

#include <utility>

CsvParser::CsvParser(QString text)
    : m_text(std::move(text))
{
}

bool CsvParser::next(QVector<CsvCell>& row)
{
    row.clear();
    skipEmptyLines();
    if (isAtEnd() || !m_error.isEmpty()) {
        return false;
    }
    while (true) {
        row.append({QString(), m_line});
        readCell(row.last());
        if (!m_error.isEmpty()) {
            return false;
        }
        if (!isAt(",")) {
            break;
        }
        ++m_position;
    }
    passLineEnd();
    return true;
}

void CsvParser::skipEmptyLines()
{
    while (isAtLineEnd()) {
        passLineEnd();
    }
}

void CsvParser::readCell(CsvCell& cell)
{
    if (isAt("\"")) {
        readQuoted(cell);
    } else {
        readPlain(cell);
    }
    if (m_error.isEmpty() && isAt("\r") && !isAtLineEnd()) {
        m_error = "there is a CR without LF: lines must end in LF or CR LF";
    }
}

void CsvParser::readQuoted(CsvCell& cell)
{
    ++m_position;
    while (!isAtEnd()) {
        if (isAt("\"\"")) {
            cell.text += '"';
            m_position += 2;
        } else if (isAt("\"")) {
            ++m_position;
            if (!isAtEnd() && !isAt(",") && !isAt("\r") && !isAt("\n")) {
                m_error = "there is text behind the closing quotation mark: a quotation mark "
                          "inside is written twice";
            }
            return;
        } else if (isAtLineEnd()) {
            cell.text += '\n';
            passLineEnd();
        } else {
            cell.text += m_text[m_position++];
        }
    }
    m_error = "the quotation mark is never closed";
}

void CsvParser::readPlain(CsvCell& cell)
{
    const int first = m_position;
    while (!isAtEnd() && !isAt(",") && !isAt("\r") && !isAt("\n")) {
        if (isAt("\"")) {
            m_error = "there is a quotation mark inside: such a cell stands in quotation marks, "
                      "and the one inside is written twice";
        }
        ++m_position;
    }
    cell.text = m_text.mid(first, m_position - first);
}

bool CsvParser::isAt(const char* what) const
{
    const QLatin1String expected(what);
    return m_text.midRef(m_position, expected.size()) == expected;
}

void CsvParser::passLineEnd()
{
    if (!isAtEnd()) {
        m_position += isAt("\n") ? 1 : 2;
        ++m_line;
    }
}
