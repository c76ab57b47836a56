// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/TestProgram.h"

#include <QObject>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QVector>

/// Base of test classes in which a warning fails the test unless the test announced it.
///
/// From init() to cleanup() every message of every thread is kept and passed on to QtTest. A class
/// with an init() or cleanup() of its own overrides these slots and calls the base: first in
/// init(), last in cleanup(). What the offscreen platform says that it does not support is dropped,
/// and so is the X server's error about another program's window that is gone when Qt asks for it;
/// a sound may be told to be late: that depends on how busy the machine is.
/// Messages of initTestCase() and cleanupTestCase() are not watched, and
/// QTest::ignoreMessage() announces nothing, it only keeps a line out of the log.
class QuietTest : public QObject {
    Q_OBJECT

public:
    explicit QuietTest(QObject* parent = nullptr);
    ~QuietTest() override;

protected slots:
    /// Forgets the earlier test's messages and announcements and begins to watch.
    virtual void init();
    /// Runs pending deleteLater() calls, stops watching, takes back the default locale, and fails
    /// the test for each warning or critical message that was not announced and for each announced
    /// one that did not come.
    virtual void cleanup();

protected:
    /// Demands one warning or critical message with exactly this text, from now on.
    void announceWarning(const QString& text);
    /// Demands one warning or critical message that the pattern matches anywhere, from now on.
    void announceWarning(const QRegularExpression& pattern);
    /// Allows any number, none included, of warnings and critical messages that the pattern matches
    /// anywhere, until the end of the running test. For what Qt reports once a process.
    void tolerateWarning(const QRegularExpression& pattern);

    /// All messages of the running test so far, of every type, in order.
    QStringList messages() const;
    /// Those of them that were logged with plain qDebug(), without a logging category.
    QStringList debugLines() const;

private:
    struct Message {
        QtMsgType type;
        QString text;
        bool hasCategory;
    };

    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);
    void watch();
    void stopWatching();
    void keep(const Message& message);
    bool isExpected(const QString& text);

    QVector<Message> m_messages;
    QStringList m_unexpected;
    QVector<QRegularExpression> m_announced;
    QVector<QRegularExpression> m_tolerated;
};
