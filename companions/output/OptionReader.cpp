// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of the command line, each within its limits.
#include "output/OptionReader.h"

#include <QCommandLineParser>

#include <utility>

namespace {

constexpr int everyDigitOfAnInt = 10;

} // namespace

OptionReader::OptionReader(const QCommandLineParser& parser, QMap<QString, QString> swept)
    : m_parser(parser)
    , m_swept(std::move(swept))
{
}

bool OptionReader::isSet(const QString& option) const
{
    return isSwept(option) || m_parser.isSet(option);
}

QString OptionReader::value(const QString& option) const
{
    return isSwept(option) ? m_swept.value(option) : m_parser.value(option);
}

double OptionReader::number(const QString& option, double min, double max, double fallback)
{
    if (!isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const double given = value(option).toDouble(&isNumber);
    if (!isNumber || !(given >= min && given <= max)) {
        refuse(option, "number", min, max);
        return fallback;
    }
    return given;
}

double OptionReader::positiveNumber(const QString& option, double max, double fallback)
{
    if (!isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const double given = value(option).toDouble(&isNumber);
    if (!isNumber || !(given > 0.0 && given <= max)) {
        fail(QString("--%1 must be a number above 0, at most %2, not \"%3\"")
                 .arg(option, QString::number(max, 'g', everyDigitOfAnInt), value(option)));
        return fallback;
    }
    return given;
}

int OptionReader::count(const QString& option, int min, int max, int fallback)
{
    if (!isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const int given = value(option).toInt(&isNumber);
    if (!isNumber || given < min || given > max) {
        refuse(option, "whole number", min, max);
        return fallback;
    }
    return given;
}

quint64 OptionReader::seed(const QString& option, quint64 fallback)
{
    if (!isSet(option)) {
        return fallback;
    }
    bool isNumber = false;
    const quint64 given = value(option).toULongLong(&isNumber);
    if (!isNumber) {
        fail(QString("--%1 must be a whole number from 0 to 2^64 - 1, not \"%2\"")
                 .arg(option, value(option)));
        return fallback;
    }
    return given;
}

void OptionReader::refuse(const QString& option, const QString& kind, double min, double max)
{
    fail(QString("--%1 must be a %2 from %3 to %4, not \"%5\"")
             .arg(option, kind)
             .arg(min, 0, 'g', everyDigitOfAnInt)
             .arg(max, 0, 'g', everyDigitOfAnInt)
             .arg(value(option)));
}

void OptionReader::fail(const QString& errorText)
{
    if (m_errorText.isEmpty()) {
        m_errorText = errorText;
    }
}
