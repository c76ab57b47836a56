// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/ProtocolReader.h"

#include <QStringList>

/// The complaints about a protocol, as lines of text.
inline QString complaintsOf(const QByteArray& file)
{
    QStringList texts;
    for (const ProtocolComplaint& complaint : readProtocol(file).complaints) {
        texts.append(complaintText(complaint));
    }
    return texts.join('\n');
}
