// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/ModalBoxes.h"

#include <QTest>

/// Fails the test unless exactly one box was shown, an advisory warning with this text.
inline void verifyOneWarning(const ModalBoxes& boxes, const QString& text)
{
    QCOMPARE(boxes.messages().size(), 1);
    const ModalBoxes::Message& message = boxes.messages().constFirst();
    QCOMPARE(message.title, QString("Warning"));
    QCOMPARE(message.text, text);
    QCOMPARE(message.icon, QMessageBox::Warning);
    QCOMPARE(message.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(message.parent == nullptr);
}
