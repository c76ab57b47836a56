// SPDX-License-Identifier: GPL-3.0-or-later
// A window that got bad input works as a new one when it gets good input again.
#include "hostile/HostileWindow.h"
#include "hostile/ProcessUse.h"
#include "support/AudioWarnings.h"
#include "support/WindowTest.h"

#include <algorithm>

namespace {

// A user takes more for a hang.
constexpr double longestStepSeconds = 2.0 * timeAllowance;
constexpr qint64 mostMemory = (qint64(1) << 30) * memoryAllowance;

constexpr int usualTransform = 32768;
constexpr int shortTransform = 1024; // View then takes half the time
constexpr uint combinationsPerWindow = 50;

struct GoodStates {
    WindowState mended;
    WindowState afterATrial;
};

uint setting(const char* name, uint otherwise)
{
    bool isSet = false;
    const int value = qEnvironmentVariableIntValue(name, &isSet);
    return isSet ? static_cast<uint>(value) : otherwise;
}

uint seed()
{
    return setting("QUORIN_HOSTILE_SEED", 1);
}

// In the working folder.
void keepForCrashes(const QString& description)
{
    QFile file("last-combination.txt");
    if (!file.open(QIODevice::WriteOnly) || file.write(description.toUtf8()) < 0)
        qFatal("the combination cannot be kept");
}

// Of a window in which nothing else was done before.
const GoodStates& statesOfNew(int transformLength)
{
    static QHash<int, GoodStates> states;
    if (!states.contains(transformLength)) {
        states[transformLength] = {HostileWindow(false, transformLength).stateWhenMended(),
            HostileWindow(false, transformLength).stateAfterATrial()};
    }
    return *states.constFind(transformLength);
}

QString faultOf(const HostileWindow& window)
{
    if (window.longestStep() > longestStepSeconds)
        return QString("%1 took %2 s").arg(window.longestStepName()).arg(window.longestStep());
    if (peakMemory() > mostMemory)
        return QString("%1 bytes of memory in use").arg(peakMemory());
    return {};
}

} // namespace

class TestHostileFields : public WindowTest {
    Q_OBJECT

protected slots:
    void init() override
    {
        WindowTest::init();
        tolerateUndefinedChartValues();
        tolerateWarning(QRegularExpression("^Broken filename passed to function$"));
        tolerateWarning(QRegularExpression("^QFSFileEngine::open: No file name specified$"));
        tolerateWarning(anyStopped); // some sounds fail
    }

private slots:
    void window_worksAsNew_afterOneHostileField_data()
    {
        QTest::addColumn<int>("field");
        for (int i = 0; i < panelFields().size(); ++i)
            QTest::newRow(panelFields()[i].name) << i;
    }

    void window_worksAsNew_afterOneHostileField()
    {
        QFETCH(int, field);
        const WindowState& asNew = statesOfNew(usualTransform).mended;
        HostileWindow window(true, usualTransform);
        for (const HostileText& text : hostileTexts()) {
            window.type(panelFields()[field], text);
            const QString changed = difference(window.stateWhenMended(), asNew);
            QVERIFY2(changed.isEmpty(), qUtf8Printable(QString(text.name) + ": " + changed));
            const QString fault = faultOf(window);
            QVERIFY2(fault.isEmpty(), qUtf8Printable(QString(text.name) + ": " + fault));
        }
    }

    void window_worksAsNew_afterCombinations_data()
    {
        addColumns<uint, uint>("first", "end");
        const uint start = setting("QUORIN_HOSTILE_FIRST", 0);
        const uint end = start + setting("QUORIN_HOSTILE_COMBINATIONS", 500);
        for (uint first = start; first < end; first += combinationsPerWindow) {
            const uint next = std::min(first + combinationsPerWindow, end);
            QTest::addRow("%u to %u", first, next - 1) << first << next;
        }
    }

    void window_worksAsNew_afterCombinations()
    {
        QFETCH(uint, first);
        QFETCH(uint, end);
        // One window in ten has the spectra of usual length, and its charts are painted.
        const bool isUsual = (first / combinationsPerWindow) % 10 == 0;
        const int transformLength = isUsual ? usualTransform : shortTransform;
        const GoodStates& asNew = statesOfNew(transformLength);
        HostileWindow window(isUsual, transformLength);
        QString description;
        for (uint number = first; number < end; ++number) {
            const Combination hostile = combination(seed(), number);
            description = QString("seed %1, combination %2: ").arg(seed()).arg(number)
                + described(hostile) + ": ";
            keepForCrashes(description);
            window.undergo(hostile);
            const QString changed = difference(window.stateWhenMended(), asNew.mended);
            QVERIFY2(changed.isEmpty(), qUtf8Printable(description + changed));
            const QString fault = faultOf(window);
            QVERIFY2(fault.isEmpty(), qUtf8Printable(description + fault));
        }
        const QString changed = difference(window.stateAfterATrial(), asNew.afterATrial);
        QVERIFY2(changed.isEmpty(), qUtf8Printable(description + "then a trial: " + changed));
    }
};

QUORIN_TEST(TestHostileFields);
#include "tst_hostile_fields.moc"
