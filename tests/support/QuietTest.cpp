// SPDX-License-Identifier: GPL-3.0-or-later
// Tests in which a warning that was not announced is a failure.
#include "support/QuietTest.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QMutex>
#include <QMutexLocker>
#include <QTest>

#include <algorithm>

namespace {

// Messages come from any thread, and the handler is a plain function: this guards the two pointers
// and the state of the watching test.
QMutex mutex;
QuietTest* watching = nullptr;
QtMessageHandler previousHandler = nullptr;

bool matches(const QRegularExpression& pattern, const QString& text)
{
    return pattern.match(text).hasMatch();
}

QRegularExpression exactly(const QString& text)
{
    return QRegularExpression("\\A" + QRegularExpression::escape(text) + "\\z");
}

// The offscreen platform says so of every window with size limits and of every raised one.
bool isPlatformLimit(QtMsgType type, const QString& text)
{
    return type == QtWarningMsg && text.startsWith("This plugin does not support ");
}

// Qt asks the X server for one window after the other to find the one under the mouse. The window
// manager may have destroyed the frame of a closed box in between.
bool isVanishedWindow(QtMsgType type, const QString& text)
{
    return type == QtWarningMsg && text.startsWith("QXcbConnection: XCB error: 3 (BadWindow), ")
        && text.contains(", major code: 40 (TranslateCoords), ");
}

void fail(const QString& text)
{
    QTest::qFail(qUtf8Printable(text), __FILE__, __LINE__);
}

} // namespace

QuietTest::QuietTest(QObject* parent)
    : QObject(parent)
{
}

QuietTest::~QuietTest()
{
    stopWatching();
}

void QuietTest::init()
{
    // QtTest leaves cleanup() out when a derived init() failed.
    stopWatching();
    m_messages.clear();
    m_unexpected.clear();
    m_announced.clear();
    m_tolerated.clear();
    // How late a sound starts depends on the machine.
    tolerateWarning(QRegularExpression("^Sound late: interval [1-4] of trial \\d+, \\d+ ms$"));
    watch();
}

void QuietTest::cleanup()
{
    if (QCoreApplication::instance() != nullptr)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    stopWatching();
    QLocale::setDefault(QLocale::system());
    for (const QString& text : qAsConst(m_unexpected))
        fail("unannounced warning: " + text);
    if (QTest::currentTestFailed())
        return;
    for (const QRegularExpression& pattern : qAsConst(m_announced))
        fail("announced warning that did not come: " + pattern.pattern());
}

void QuietTest::announceWarning(const QString& text)
{
    announceWarning(exactly(text));
}

void QuietTest::announceWarning(const QRegularExpression& pattern)
{
    const QMutexLocker locker(&mutex);
    m_announced.append(pattern);
}

void QuietTest::tolerateWarning(const QRegularExpression& pattern)
{
    const QMutexLocker locker(&mutex);
    m_tolerated.append(pattern);
}

QStringList QuietTest::messages() const
{
    const QMutexLocker locker(&mutex);
    QStringList texts;
    for (const Message& message : m_messages)
        texts.append(message.text);
    return texts;
}

QStringList QuietTest::debugLines() const
{
    const QMutexLocker locker(&mutex);
    QStringList texts;
    for (const Message& message : m_messages) {
        if (message.type == QtDebugMsg && !message.hasCategory)
            texts.append(message.text);
    }
    return texts;
}

void QuietTest::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (isPlatformLimit(type, text) || isVanishedWindow(type, text))
        return;
    QtMessageHandler forward = nullptr;
    {
        const QMutexLocker locker(&mutex);
        forward = previousHandler;
        const bool hasCategory
            = context.category != nullptr && qstrcmp(context.category, "default") != 0;
        if (watching != nullptr)
            watching->keep({type, text, hasCategory});
    }
    if (forward != nullptr)
        forward(type, context, text);
}

void QuietTest::watch()
{
    const QMutexLocker locker(&mutex);
    watching = this;
    previousHandler = qInstallMessageHandler(&QuietTest::handle);
}

void QuietTest::stopWatching()
{
    const QMutexLocker locker(&mutex);
    if (watching != this)
        return;
    watching = nullptr;
    // previousHandler stays: another thread may just be inside handle().
    qInstallMessageHandler(previousHandler);
}

void QuietTest::keep(const Message& message)
{
    m_messages.append(message);
    const bool isWarning = message.type == QtWarningMsg || message.type == QtCriticalMsg;
    if (isWarning && !isExpected(message.text))
        m_unexpected.append(message.text);
}

bool QuietTest::isExpected(const QString& text)
{
    const auto fits = [&text](const QRegularExpression& pattern) { return matches(pattern, text); };
    const auto announced = std::find_if(m_announced.begin(), m_announced.end(), fits);
    if (announced != m_announced.end()) {
        m_announced.erase(announced);
        return true;
    }
    return std::any_of(m_tolerated.cbegin(), m_tolerated.cend(), fits);
}
