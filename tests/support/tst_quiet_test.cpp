// SPDX-License-Identifier: GPL-3.0-or-later
// Which messages fail a QuietTest.
#include "support/QuietTest.h"

#include <thread>

namespace {

Q_LOGGING_CATEGORY(lcSample, "sample")

struct Outcome {
    int failures;
    QString output;
};

// Runs one test of a sample class below in a process of its own.
Outcome outcomeOf(const QString& sampleClass, const QString& function)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(), {sampleClass, function});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

} // namespace

// Tests that are run in a child process only: some of them must fail.
class Sample : public QuietTest {
    Q_OBJECT

private slots:
    void plain() { QCOMPARE(messages(), QStringList()); }
    void warns() { qWarning("something is wrong"); }
    void platformWarns() { qWarning("This plugin does not support raise()"); }
    void frameUnderTheMouseVanishes()
    {
        qWarning("QXcbConnection: XCB error: 3 (BadWindow), sequence: 1270, resource id: 2098700, "
                 "major code: 40 (TranslateCoords), minor code: 0");
    }
    void ourWindowVanishes()
    {
        qWarning("QXcbConnection: XCB error: 3 (BadWindow), sequence: 1270, resource id: 2098700, "
                 "major code: 12 (ConfigureWindow), minor code: 0");
    }
    void isCritical() { qCritical("something is very wrong"); }
    void warnsInAThread()
    {
        std::thread([] { qWarning("wrong elsewhere"); }).join();
    }

    void warnsInADeferredDeletion()
    {
        auto* object = new QObject;
        connect(object, &QObject::destroyed, [] { qWarning("wrong at the end"); });
        object->deleteLater();
    }

    void announced()
    {
        announceWarning(QString("a (b) [c]"));
        announceWarning(QRegularExpression("^number \\d+$"));
        qWarning("number 17");
        qCritical("a (b) [c]");
    }

    void announcedOnceButCameTwice()
    {
        announceWarning(QString("again"));
        qWarning("again");
        qWarning("again");
    }

    void announcedOnlyInPart()
    {
        announceWarning(QString("a part"));
        qWarning("a part of it");
    }

    void announcedButDidNotCome() { announceWarning(QString("expected text")); }

    void announcedAfterwards()
    {
        qWarning("too early");
        announceWarning(QString("too early"));
    }

    void tolerated()
    {
        tolerateWarning(QRegularExpression("^once a process"));
        tolerateWarning(QRegularExpression("^never comes"));
        qWarning("once a process, the first");
        qWarning("once a process, the second");
    }
};

class SampleWithInit : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override
    {
        QuietTest::init();
        QVERIFY2(m_initCalls++ > 0 || qstrcmp(QTest::currentTestFunction(), "failsInInit") != 0,
            "the first init fails");
    }
    void cleanup() override
    {
        qWarning("said in cleanup");
        QuietTest::cleanup();
    }

private slots:
    void announces() { announceWarning(QString("said in cleanup")); }
    void announcesNothing() { }
    void failsInInit() { }

private:
    int m_initCalls = 0;
};

class TestQuietTest : public QuietTest {
    Q_OBJECT

private slots:
    void outcome_isThis_whenASampleTestIsRun_data()
    {
        addColumns<QString, QString, int, QString>("sampleClass", "function", "failures", "line");
        const auto row = [](const char* function, int failures, const char* line) {
            QTest::newRow(function) << "Sample" << function << failures << line;
        };
        row("plain", 0, "PASS   : Sample::plain()");
        row("warns", 1, "unannounced warning: something is wrong");
        row("platformWarns", 0, "PASS   : Sample::platformWarns()");
        row("frameUnderTheMouseVanishes", 0, "PASS   : Sample::frameUnderTheMouseVanishes()");
        row("ourWindowVanishes", 1, "major code: 12 (ConfigureWindow), minor code: 0");
        row("isCritical", 1, "unannounced warning: something is very wrong");
        row("warnsInAThread", 1, "unannounced warning: wrong elsewhere");
        row("warnsInADeferredDeletion", 1, "unannounced warning: wrong at the end");
        row("announced", 0, "QWARN  : Sample::announced() number 17");
        row("announcedOnceButCameTwice", 1, "unannounced warning: again");
        row("announcedOnlyInPart", 1, "unannounced warning: a part of it");
        row("announcedAfterwards", 1, "unannounced warning: too early");
        row("announcedButDidNotCome", 1, "announced warning that did not come");
        row("tolerated", 0, "PASS   : Sample::tolerated()");
        addRow("own cleanup, announced", "SampleWithInit", "announces", 0, "PASS");
        addRow("own cleanup, not announced", "SampleWithInit", "announcesNothing", 1,
            "unannounced warning: said in cleanup");
        addRow("own init fails", "SampleWithInit", "failsInInit", 1, "the first init fails");
    }

    void outcome_isThis_whenASampleTestIsRun()
    {
        QFETCH(QString, sampleClass);
        QFETCH(QString, function);
        QFETCH(QString, line);
        const Outcome outcome = outcomeOf(sampleClass, function);
        QTEST(outcome.failures, "failures");
        QVERIFY2(outcome.output.contains(line), qUtf8Printable(outcome.output));
    }

    void messages_keepTheirOrder_whenTheTypesAreMixed()
    {
        announceWarning(QString("second"));
        qDebug() << "first: " << 2;
        qWarning("second");
        qInfo("third");
        qCDebug(lcSample) << "fourth";
        QCOMPARE(messages(), QStringList({"first:  2", "second", "third", "fourth"}));
        QCOMPARE(debugLines(), QStringList({"first:  2"}));
    }

    void messages_areForgotten_whenTheNextTestBegins()
    {
        QCOMPARE(messages(), QStringList());
        QCOMPARE(debugLines(), QStringList());
    }
};

static const RegisteredTest sample("Sample", &runTest<QCoreApplication, Sample>);
static const RegisteredTest sampleWithInit(
    "SampleWithInit", &runTest<QCoreApplication, SampleWithInit>);
QUORIN_GUILESS_TEST(TestQuietTest);
#include "tst_quiet_test.moc"
