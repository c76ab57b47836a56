// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QTest>

constexpr int percent = 100;

/// A number as the guide writes it.
inline QString decimals(double number, int count)
{
    return QString::number(number, 'f', count);
}

/// The text of the user guide with every stretch of white space as one blank and without the marks
/// of bold, code and quotation. Ends the test program when the guide cannot be read.
inline QString userGuide()
{
    QFile file(USER_GUIDE);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("the guide cannot be read: %s", USER_GUIDE);
    }
    return QString::fromUtf8(file.readAll())
        .replace("\n> ", "\n")
        .remove('*')
        .remove('`')
        .simplified();
}

/// Fails the running test unless the guide has the text, which is printed if it has not.
#define GUIDE_SAYS(text) QVERIFY2(userGuide().contains(text), qPrintable(QString(text)))
