// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers, names and tables as they are printed.
#include "report/Texts.h"

#include <algorithm>
#include <cmath>

QString shown(double number)
{
    constexpr int significantDigits = 6;
    return std::isnan(number) ? QString("-") : QString::number(number, 'g', significantDigits);
}

QString shownTime(double ms)
{
    return std::isnan(ms) ? QString("-") : QString::number(ms, 'f', 0);
}

QString onOneLine(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = '?';
        }
    }
    return text;
}

QString alignedTable(const QVector<QStringList>& rows, int nLeft, int nLeftAtEnd)
{
    const int nColumns = rows.constFirst().size();
    QVector<int> widths(nColumns, 0);
    for (const QStringList& row : rows) {
        for (int column = 0; column < nColumns; ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    QString table;
    for (const QStringList& row : rows) {
        QString line;
        for (int column = 0; column < nColumns; ++column) {
            const bool isLeft = column < nLeft || column >= nColumns - nLeftAtEnd;
            line += column == 0 ? "" : "  ";
            line += isLeft ? row[column].leftJustified(widths[column])
                           : row[column].rightJustified(widths[column]);
        }
        while (line.endsWith(' ')) {
            line.chop(1);
        }
        table += line + '\n';
    }
    return table;
}
