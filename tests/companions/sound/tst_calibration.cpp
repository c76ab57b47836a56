// SPDX-License-Identifier: GPL-3.0-or-later
// The sound of a calibration, its questions, and the levels that follow from an answer.
#include "companions/record/SampleNote.h"
#include "sound/CalibrationDialogue.h"
#include "sound/CalibrationSound.h"
#include "sound/PressureTable.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr int rampSamples = 2000; // 50 ms at 40000 Hz

double steadyLevelDb(const QVector<double>& samples)
{
    double sum = 0.0;
    for (int i = rampSamples; i < samples.size() - rampSamples; ++i) {
        sum += samples[i] * samples[i];
    }
    return 10.0 * std::log10(sum / (samples.size() - 2 * rampSamples));
}

double peakOf(const QVector<double>& samples)
{
    const auto extremes = std::minmax_element(samples.cbegin(), samples.cend());
    return std::max(-*extremes.first, *extremes.second);
}

QVector<float> floatsOf(const QByteArray& frames)
{
    QVector<float> samples(frames.size() / int(sizeof(float)));
    std::memcpy(samples.data(), frames.constData(), size_t(frames.size()));
    return samples;
}

/// A dialogue whose answers are known, and what came of it.
struct Conversation {
    QVector<double> playedDb;
    std::optional<LevelReading> reading;
    QString said;
    QString rest; ///< of the input

    explicit Conversation(QString input, const LevelCourse& course = {-30.0, 3.0, -3.0},
        const QString& fault = {}, int failing = 0)
    {
        QTextStream in(&input);
        QTextStream out(&said);
        CalibrationDialogue dialogue([&in] { return in.readLine(); }, out,
            [&](double levelDb) {
                playedDb.append(levelDb);
                return playedDb.size() == failing ? fault : QString();
            });
        reading = dialogue.lead(course);
        rest = in.readAll();
    }
};

} // namespace

class TestCalibration : public QuietTest {
    Q_OBJECT

private slots:
    void level_isThatBetweenTheRamps_data()
    {
        QTest::addColumn<bool>("isNoise");
        QTest::addColumn<double>("levelDb");
        QTest::addColumn<double>("toleranceDb");
        constexpr double rounding = 1e-9; // dB; of whole periods
        constexpr double sixDeviations = 0.04; // dB, of the RMS of 396000 uniform numbers
        QTest::newRow("tone") << false << -30.0 << rounding;
        QTest::newRow("loud tone") << false << -10.0 * std::log10(2.0) << rounding;
        QTest::newRow("noise") << true << -30.0 << sixDeviations;
        QTest::newRow("loud noise") << true << -10.0 * std::log10(3.0) << sixDeviations;
    }

    void level_isThatBetweenTheRamps()
    {
        QFETCH(bool, isNoise);
        QFETCH(double, levelDb);
        QFETCH(double, toleranceDb);
        const CalibrationSound sound {isNoise, 1000.0, 40000, 10000.0};
        const QVector<double> samples = calibrationSamples(sound, levelDb);
        QCOMPARE(samples.size(), 400000);
        QVERIFY(std::abs(steadyLevelDb(samples) - levelDb) < toleranceDb);
        constexpr double rounding = 1e-12;
        QVERIFY(
            peakOf(samples) <= std::pow(10.0, (levelDb - highestLevelDb(sound)) / 20.0) + rounding);
        QCOMPARE(calibrationSamples(sound, levelDb), samples);
    }

    void ramps_areRaisedCosinesOf50Ms()
    {
        const CalibrationSound sound {false, 10000.0, 40000, 200.0}; // 1, 0, -1, 0 under the ramps
        const QVector<double> samples = calibrationSamples(sound, highestLevelDb(sound));
        QCOMPARE(samples.size(), 8000);
        constexpr double rounding = 1e-9; // of sines at angles of up to 12600
        for (int i = 0; i < rampSamples; ++i) {
            const double gain = (1.0 - std::cos(M_PI * i / rampSamples)) / 2.0;
            const double shaped = i % 2 == 1 ? samples[i] : samples[samples.size() - 1 - i];
            QVERIFY(std::abs(std::abs(shaped) - gain) < rounding);
        }
        for (int i = rampSamples + 1; i < samples.size() - rampSamples; i += 2) {
            QVERIFY(std::abs(std::abs(samples[i]) - 1.0) < rounding);
        }
        QCOMPARE(samples.first(), 0.0);
        QCOMPARE(samples.last(), 0.0);
    }

    void frames_playTheEarThatWasAskedFor()
    {
        const QVector<double> samples(100, 0.25);
        QVector<float> mono(4100, 0.0F); // a tenth of a second of silence behind the sound
        std::fill_n(mono.begin(), 100, 0.25F);
        QCOMPARE(floatsOf(calibrationFrames(samples, Ear::both, 40000)), mono);
        for (const Ear ear : {Ear::left, Ear::right}) {
            QVector<float> stereo(8200, 0.0F);
            for (int i = 0; i < 100; ++i) {
                stereo[2 * i + (ear == Ear::right ? 1 : 0)] = 0.25F;
            }
            QCOMPARE(floatsOf(calibrationFrames(samples, ear, 40000)), stereo);
            QCOMPARE(channelsOf(ear), 2);
        }
        QCOMPARE(channelsOf(Ear::both), 1);
    }

    void raising_stopsAtTheHighestLevel()
    {
        QCOMPARE(raisedLevelDb(-30.0, 3.0, -3.0), -27.0);
        QCOMPARE(raisedLevelDb(-4.0, 3.0, -3.0), -3.0);
        QCOMPARE(raisedLevelDb(-3.0, 3.0, -3.0), -3.0);
    }

    void reading_isANumberThatAMeterMayShow_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isReading");
        for (const char* const good : {"20", "120", "74.3", " 74.3 ", "7e1"}) {
            QTest::newRow(good) << good << true;
        }
        for (const char* const bad : {"", "19.9", "120.1", "-74", "74,3", "74 dB", "nan", "inf"}) {
            QTest::newRow(bad) << bad << false;
        }
    }

    void reading_isANumberThatAMeterMayShow()
    {
        QFETCH(QString, text);
        QFETCH(bool, isReading);
        QCOMPARE(meterReading(text).has_value(), isReading);
    }

    void return_playsAndRaises_aNumberIsTheReading()
    {
        const Conversation talk("\n\n\nr\n74.5\nthe rest\n");
        QCOMPARE(talk.playedDb, QVector<double>({-30.0, -27.0, -24.0, -24.0}));
        QVERIFY(talk.reading.has_value());
        QCOMPARE(talk.reading->levelDb, -24.0);
        QCOMPARE(talk.reading->readingDb, 74.5);
        QCOMPARE(talk.rest, QString("the rest\n"));
        QVERIFY2(talk.said.startsWith("-30.0 dB: Return plays it, q ends: -30.0 dB: the meter's "
                                      "reading in dB SPL; Return plays -27.0 dB, r plays it again, "
                                      "q ends: "),
            qPrintable(talk.said));
    }

    void nothing_isPlayed_beforeReturn()
    {
        const Conversation talk("74.5\nr\nq\n");
        QCOMPARE(talk.playedDb, QVector<double>());
        QVERIFY(!talk.reading.has_value());
        QCOMPARE(talk.said.count("nothing has been played yet\n"), 2);
    }

    void unreasonableReading_isAskedForAgain()
    {
        const Conversation talk("\n745\n74,5\n74.5\n");
        QVERIFY(talk.said.contains("\"745\" is no reading: 20 to 120 dB SPL\n"));
        QVERIFY(talk.said.contains("\"74,5\" is no reading: 20 to 120 dB SPL\n"));
        QCOMPARE(talk.playedDb, QVector<double>({-30.0}));
        QCOMPARE(talk.reading->readingDb, 74.5);
    }

    void highestLevel_isNotRaised()
    {
        const Conversation talk("\n\n\n\n90\n", {-8.0, 3.0, -3.0});
        QCOMPARE(talk.playedDb, QVector<double>({-8.0, -5.0, -3.0}));
        QVERIFY(talk.said.contains("dB SPL; it is the highest, r plays it again"));
        QCOMPARE(talk.reading->levelDb, -3.0);
    }

    void answersThatAreNotTyped_raiseNoLevel()
    {
        const LevelCourse course {-30.0, 3.0, -3.0, false};
        const Conversation talk("\n\n\n74.5\n", course);
        QCOMPARE(talk.playedDb, QVector<double>({-30.0}));
        QVERIFY(!talk.reading.has_value());
        QVERIFY2(talk.said.endsWith("-30.0 dB: the meter's reading in dB SPL; r plays it again, q "
                                    "ends: Return raises the level only on a terminal\n"),
            qPrintable(talk.said));
        QCOMPARE(talk.rest, QString("\n74.5\n"));
        const Conversation good("\nr\n74.5\n", course);
        QCOMPARE(good.playedDb, QVector<double>({-30.0, -30.0}));
        QCOMPARE(good.reading->readingDb, 74.5);
    }

    void answersThatAreNotTyped_endWhereOneIsNotUnderstood()
    {
        const LevelCourse course {-30.0, 3.0, -3.0, false};
        QCOMPARE(Conversation("74.5\n\n74.5\n", course).playedDb, QVector<double>());
        QCOMPARE(Conversation("\nabc\n74.5\n", course).rest, QString("74.5\n"));
        const Conversation lost("\n\n\n", course, "lost", 1);
        QCOMPARE(lost.playedDb, QVector<double>({-30.0}));
        QCOMPARE(lost.rest, QString("\n\n"));
    }

    void endOfInput_endsWithoutAReading()
    {
        QVERIFY(!Conversation("").reading.has_value());
        QVERIFY(!Conversation("\n\n").reading.has_value());
        QVERIFY(!Conversation("\nq\n").reading.has_value());
    }

    void soundThatFailed_hasNoReading()
    {
        const Conversation talk("\n\n70\n\n70\n", {-30.0, 3.0, -3.0}, "lost", 2);
        QCOMPARE(talk.playedDb, QVector<double>({-30.0, -27.0, -27.0}));
        QVERIFY(talk.said.contains("lost\n-27.0 dB: Return plays it, q ends: nothing has been"));
        QCOMPARE(talk.reading->levelDb, -27.0);
    }

    void remark_mayBeEmpty()
    {
        QString input(" coupler 3 \n\n");
        QString said;
        QTextStream in(&input);
        QTextStream out(&said);
        CalibrationDialogue dialogue([&in] { return in.readLine(); }, out, {});
        QCOMPARE(dialogue.remark(), QString("coupler 3"));
        QCOMPARE(dialogue.remark(), QString(""));
        QCOMPARE(dialogue.remark(), QString());
    }

    // A tone of 50 % depth lies 10 log10((1 + 1/8) / 2.25) = -3.01 dB below its carrier.
    void table_hasTheLevelsOfTheWindowsStart_asTheGuideSays()
    {
        CalibrationNote note = sampleNote();
        note.readingDb = 58.0;
        const PressureTable table = pressureTable(note);
        const QStringList lines = table.text.split('\n');
        QCOMPARE(lines.mid(0, 4),
            QStringList({"dB SPL                      standard   deviant   highest    per Hz",
                "noise, modulation depth         80.2      80.2      83.2      36.4",
                "tone, modulation depth          82.0      82.0      85.0         -",
                "tone, carrier frequency         85.0      85.0      85.0         -"}));
        QFile guide(DOCUMENTS "/user-guide.md");
        QVERIFY(guide.open(QIODevice::ReadOnly));
        QVERIFY(guide.readAll().contains("    " + lines.mid(0, 4).join("\n    ").toUtf8() + '\n'));
        QVERIFY(std::abs(table.highestDb - (58.0 + 30.0 - 10.0 * std::log10(2.0))) < 1e-6);
        QVERIFY(!table.text.contains("weighted"));
        note.weighting = "A";
        QVERIFY(pressureTable(note).text.contains("The meter weighted by A: "));
    }
};

QUORIN_GUILESS_TEST(TestCalibration);
#include "tst_calibration.moc"
