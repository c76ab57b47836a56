// SPDX-License-Identifier: GPL-3.0-or-later
// A results file's name, made of the session's choices and read back into them.
#include "session/OutputFileName.h"

#include "session/Data.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace {

QString alternatives(const QStringList& texts)
{
    QStringList escaped;
    for (const QString& text : texts) {
        escaped.append(QRegularExpression::escape(text));
    }
    return '(' + escaped.join('|') + ')';
}

QRegularExpression namePattern(const Data& data)
{
    return QRegularExpression(
        QRegularExpression::anchoredPattern("(.*)_" + alternatives(data.sesTypes)
            + "(0*)(-?[0-9]+)_" + alternatives(data.soundTypes) + '_'
            + alternatives(data.mainParameters) + "\\.txt"),
        QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QString sessionNumber(int sesNum)
{
    constexpr int sessionDigits = 3;
    return QString::number(sesNum).rightJustified(sessionDigits, '0', false);
}

QString composedFileName(const Data& data)
{
    return data.subCode + "_" + data.sesTypes.value(data.sesType) + sessionNumber(data.sesNum) + "_"
        + data.soundTypes.value(data.soundType) + "_"
        + data.mainParameters.value(data.mainParameter) + ".txt";
}

bool readFileName(const QString& name, Data& data)
{
    static const QRegularExpression pattern = namePattern(Data()); // the same for every record
    const QRegularExpressionMatch match = pattern.match(name);
    const int sesNum = match.captured(4).toInt();
    if (!match.hasMatch() || sessionNumber(sesNum) != match.captured(3) + match.captured(4)) {
        return false;
    }
    data.subCode = match.captured(1);
    data.sesType = data.sesTypes.indexOf(match.captured(2));
    data.sesNum = sesNum;
    data.soundType = data.soundTypes.indexOf(match.captured(5));
    data.mainParameter = data.mainParameters.indexOf(match.captured(6));
    return true;
}

QString desktopFolder()
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QString("%1").arg(desktop, 0, QLatin1Char(' '));
}
