// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/OutputFileName.h"

#include "session/Data.h"

#include <QStandardPaths>

QString composedFileName(const Data& data)
{
    constexpr int sessionDigits = 3;
    return data.subCode + "_" + data.sesTypes.value(data.sesType)
        + QString::number(data.sesNum).rightJustified(sessionDigits, '0', false) + "_"
        + data.soundTypes.value(data.soundType) + "_"
        + data.mainParameters.value(data.mainParameter) + ".txt";
}

QString desktopFolder()
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QString("%1").arg(desktop, 0, QLatin1Char(' '));
}
