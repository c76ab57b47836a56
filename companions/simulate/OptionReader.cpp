// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/OptionReader.h"

#include <QCommandLineParser>

#include <cmath>

OptionReader::OptionReader(const QCommandLineParser& parser)
    : m_parser(parser)
{
}

double OptionReader::number(const QString& option, double min, double max, double fallback)
{
    if (!m_parser.isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const double value = m_parser.value(option).toDouble(&isNumber);
    if (!isNumber || !(value >= min && value <= max)) {
        refuse(option, "number", min, max);
        return fallback;
    }
    return value;
}

double OptionReader::positiveNumber(const QString& option, double max, double fallback)
{
    const double value = number(option, 0.0, max, fallback);
    if (value > 0.0) {
        return value;
    }
    fail(QString("--%1 must be above 0").arg(option));
    return fallback;
}

int OptionReader::count(const QString& option, int min, int max, int fallback)
{
    if (!m_parser.isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const int value = m_parser.value(option).toInt(&isNumber);
    if (!isNumber || value < min || value > max) {
        refuse(option, "whole number", min, max);
        return fallback;
    }
    return value;
}

quint64 OptionReader::seed(const QString& option, quint64 fallback)
{
    if (!m_parser.isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const quint64 value = m_parser.value(option).toULongLong(&isNumber);
    if (!isNumber) {
        fail(QString("--%1 must be a whole number from 0 to 2^64 - 1, not \"%2\"")
                 .arg(option, m_parser.value(option)));
        return fallback;
    }
    return value;
}

void OptionReader::refuse(const QString& option, const QString& kind, double min, double max)
{
    constexpr int everyDigitOfAnInt = 10;
    fail(QString("--%1 must be a %2 from %3 to %4, not \"%5\"")
             .arg(option, kind)
             .arg(min, 0, 'g', everyDigitOfAnInt)
             .arg(max, 0, 'g', everyDigitOfAnInt)
             .arg(m_parser.value(option)));
}

void OptionReader::fail(const QString& errorText)
{
    if (m_errorText.isEmpty()) {
        m_errorText = errorText;
    }
}
