// SPDX-License-Identifier: GPL-3.0-or-later
// Comma-separated values that R and pandas read without an option.
#include "report/Csv.h"

#include <cmath>

namespace {

QString quoted(QString field)
{
    const bool isPlain = !field.contains(',') && !field.contains('"') && !field.contains('\n')
        && !field.contains('\r');
    return isPlain ? field : '"' + field.replace("\"", "\"\"") + '"';
}

} // namespace

QString csvLine(const QStringList& fields)
{
    QStringList all;
    for (const QString& field : fields) {
        all.append(quoted(field));
    }
    return all.join(',') + '\n';
}

QString csvNumber(double number)
{
    constexpr int significantDigits = 10;
    return std::isnan(number) ? QString() : QString::number(number, 'g', significantDigits);
}
