// SPDX-License-Identifier: GPL-3.0-or-later
// Tables of a page.
#include "report/HtmlTable.h"

namespace {

QByteArray rowOf(const QStringList& row, const char* cell, int nLeft, int nLeftAtEnd)
{
    QByteArray cells;
    for (int column = 0; column < row.size(); ++column) {
        const bool isText = column < nLeft || column >= row.size() - nLeftAtEnd;
        cells += QByteArray("<") + cell + (isText ? ">" : " class=\"number\">")
            + row[column].toHtmlEscaped().toUtf8() + "</" + cell + '>';
    }
    return "<tr>" + cells + "</tr>\n";
}

} // namespace

QByteArray htmlTable(const QVector<QStringList>& rows, int nLeft, int nLeftAtEnd)
{
    QByteArray table = "<div class=\"scroll\" tabindex=\"0\">\n<table>\n<thead>"
        + rowOf(rows.constFirst(), "th", nLeft, nLeftAtEnd) + "</thead>\n<tbody>\n";
    for (int i = 1; i < rows.size(); ++i) {
        table += rowOf(rows[i], "td", nLeft, nLeftAtEnd);
    }
    return table + "</tbody>\n</table>\n</div>\n";
}
