// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

class QCommandLineParser;

/// Reads numbers from a parsed command line and keeps the first mistake that it meets.
class OptionReader {
public:
    /// @param swept values of options that a sweep sets, read as if they had been given
    explicit OptionReader(const QCommandLineParser& parser, QMap<QString, QString> swept = {});

    /// Whether an option was given or is swept.
    bool isSet(const QString& option) const;
    bool isSwept(const QString& option) const { return m_swept.contains(option); }
    QString value(const QString& option) const;

    /// A finite number within limits, given or default.
    /// @param fallback for an option that was not given
    double number(const QString& option, double min, double max, double fallback);
    /// The same, 0 excluded.
    double positiveNumber(const QString& option, double max, double fallback);
    /// A whole number within limits.
    int count(const QString& option, int min, int max, int fallback);
    /// A whole number of up to 64 bits.
    quint64 seed(const QString& option, quint64 fallback);

    /// Notes a mistake, unless one was met before.
    void fail(const QString& errorText);
    QString errorText() const { return m_errorText; }

private:
    void refuse(const QString& option, const QString& kind, double min, double max);

    const QCommandLineParser& m_parser;
    QMap<QString, QString> m_swept;
    QString m_errorText;
};
