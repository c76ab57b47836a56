// SPDX-License-Identifier: GPL-3.0-or-later
// Figures of a record as texts.
#include "record/FigureTexts.h"

#include <QLocale>

QString textOf(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString textOf(int number)
{
    return QString::number(number);
}

QString textOf(bool truth)
{
    return truth ? "yes" : "no";
}

QString textOf(const QString& text)
{
    return text;
}

QString textOf(const std::optional<double>& number)
{
    return number ? textOf(*number) : "none";
}
