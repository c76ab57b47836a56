// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/Texts.h"

#include <algorithm>
#include <cmath>

QString shown(double number)
{
    constexpr int significantDigits = 6;
    return std::isnan(number) ? QString("-") : QString::number(number, 'g', significantDigits);
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

QString alignedTable(const QVector<QStringList>& rows, int nLeft)
{
    QVector<int> widths(rows.constFirst().size(), 0);
    for (const QStringList& row : rows) {
        for (int column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    QString table;
    for (const QStringList& row : rows) {
        QStringList cells;
        for (int column = 0; column < row.size(); ++column) {
            cells.append(column < nLeft ? row[column].leftJustified(widths[column])
                                        : row[column].rightJustified(widths[column]));
        }
        table += cells.join("  ") + '\n';
    }
    return table;
}
