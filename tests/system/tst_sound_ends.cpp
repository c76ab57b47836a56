// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds end in time on PipeWire as it comes, which tells their end a part of a quantum early.
#include "soundlab/PipeWireServer.h"
#include "support/MainWindowProbe.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"
#include "system/DisturbedTrial.h"

class TestSoundEnds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    // What is left of these after whole quanta of 2048 samples lasts for 31, 37 and 3 ms.
    void end_isNoGap_whenItIsToldEarly_data()
    {
        addColumns<QString>("durationMs");
        for (const auto* const durationMs : {"500", "250", "600"}) {
            QTest::newRow(durationMs) << QString(durationMs);
        }
    }

    void end_isNoGap_whenItIsToldEarly()
    {
        QFETCH(QString, durationMs);
        DisturbedTrial trial;
        typeDurations(trial.window, durationMs);
        type(trial.window, "lineEditSamplingRate", QString::number(m_server.rate()));
        QVERIFY(trial.play());
        QCOMPARE(trial.states(), QVector<int>({1, 2, 3, 4, -1}));
        QCOMPARE(messages().filter("Sound interrupted"), QStringList());
        QCOMPARE(trial.window.trialDisturbances().interruptedSounds, 0);
    }

private:
    PipeWireServer m_server {0};
};

QUORIN_TEST(TestSoundEnds);
#include "tst_sound_ends.moc"
