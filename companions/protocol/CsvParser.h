// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

/// A cell of a CSV file.
struct CsvCell {
    QString text; ///< without its quotation marks; line breaks in it are LF
    int line = 0; ///< that it begins in, from 1 on
};

/// Splits comma-separated values as RFC 4180 has them, with lines that end in CR LF or LF. Empty
/// lines are skipped, and the last line may have no end.
class CsvParser {
public:
    explicit CsvParser(QString text);

    /// The cells of the next row; false at the end and where the text is damaged, which error()
    /// tells. The damaged cell is then the last one.
    bool next(QVector<CsvCell>& row);

    /// What is wrong; empty: nothing.
    QString error() const { return m_error; }

    /// Whether the whole text has been read.
    bool isAtEnd() const { return m_position >= m_text.size(); }

private:
    void skipEmptyLines();
    void readCell(CsvCell& cell);
    void readQuoted(CsvCell& cell);
    void readPlain(CsvCell& cell);
    bool isAt(const char* what) const;
    bool isAtLineEnd() const { return isAt("\n") || isAt("\r\n"); }
    void passLineEnd();

    const QString m_text;
    int m_position = 0;
    int m_line = 1;
    QString m_error;
};
