// SPDX-License-Identifier: GPL-3.0-or-later
// Levels, images and losses of recordings that are known.
#include "sound/MeasuringSounds.h"
#include "sound/PathFigures.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>

using namespace quorin;

namespace {

constexpr int playedRate = 40000;

// Samples of single precision: 2^-24 of a tone's magnitude is -150 dB.
constexpr double levelTolerance = 1e-5; // dB
constexpr double singlePrecisionDb = -140.0;
// A component between two bins of the padded spectrum.
constexpr double imageToleranceDb = 0.06;

QVector<float> silence(int nSamples)
{
    QVector<float> samples(nSamples, 0.0F);
    return samples;
}

QVector<float> surrounded(const QVector<float>& sound)
{
    return silence(4321) + sound + silence(playedRate / 10);
}

QVector<float> scaled(QVector<float> sound, float factor)
{
    for (float& sample : sound) {
        sample *= factor;
    }
    return sound;
}

/// A tone beside the whole sequence.
QVector<float> withTone(QVector<float> sound, double frequency, double amplitude)
{
    for (int k = 0; k < sound.size(); ++k) {
        sound[k]
            += static_cast<float>(amplitude * std::sin(2.0 * M_PI * frequency * k / playedRate));
    }
    return sound;
}

LostSamples lostOf(const QVector<float>& recording, int nPlayed)
{
    return lostSamples(recording, nPlayed, playedRate, playedRate);
}

} // namespace

class TestPathFigures : public QuietTest {
    Q_OBJECT

private slots:
    void frequencies_areBelowHalfTheRate()
    {
        QCOMPARE(measuredFrequencies(48000).size(), 16);
        QCOMPARE(measuredFrequencies(48000).first(), 100.0);
        QCOMPARE(measuredFrequencies(48000).last(), 19000.0);
        QCOMPARE(measuredFrequencies(32000).last(), 15000.0);
        QCOMPARE(measuredFrequencies(8000).last(), 2000.0);
    }

    void tones_haveTheirLevel_data()
    {
        QTest::addColumn<float>("factor");
        QTest::addColumn<double>("levelDb");
        QTest::newRow("as played") << 1.0F << 0.0;
        QTest::newRow("half") << 0.5F << -20.0 * std::log10(2.0);
        QTest::newRow("double") << 2.0F << 20.0 * std::log10(2.0);
    }

    void tones_haveTheirLevel()
    {
        QFETCH(float, factor);
        QFETCH(double, levelDb);
        const QVector<ToneFigures> tones = toneFigures(
            surrounded(scaled(toneSequence(playedRate), factor)), playedRate, playedRate);
        QCOMPARE(tones.size(), measuredFrequencies(playedRate).size());
        for (const ToneFigures& tone : tones) {
            QVERIFY2(std::abs(tone.levelDb - levelDb) < levelTolerance,
                qPrintable(QString("%1 Hz: %2 dB").arg(tone.frequency).arg(tone.levelDb)));
            QVERIFY2(tone.imageDb < singlePrecisionDb + levelDb,
                qPrintable(QString("%1 Hz: %2 dB").arg(tone.frequency).arg(tone.imageDb)));
        }
        QVERIFY(std::abs(largestLossDb(tones, 16000.0) - std::max(-levelDb, 0.0)) < levelTolerance);
    }

    void loss_countsUpToTheFrequencyOnly()
    {
        const QVector<ToneFigures> tones {
            {1000.0, 0.1, 0.0, 0.0}, {16000.0, -0.5, 0.0, 0.0}, {17000.0, -3.0, 0.0, 0.0}};
        QCOMPARE(largestLossDb(tones, 15000.0), 0.0);
        QCOMPARE(largestLossDb(tones, 16000.0), 0.5);
        QCOMPARE(largestLossDb(tones, 20000.0), 3.0);
        QCOMPARE(largestLossDb({}, 20000.0), 0.0);
    }

    void image_isFound_data()
    {
        QTest::addColumn<double>("frequency");
        QTest::addColumn<double>("levelDb");
        QTest::newRow("strong") << 7000.5 << -20.0;
        QTest::newRow("weak") << 19500.0 << -100.0;
    }

    void image_isFound()
    {
        QFETCH(double, frequency);
        QFETCH(double, levelDb);
        const double amplitude = measuringAmplitude * std::pow(10.0, levelDb / 20.0);
        const QVector<ToneFigures> tones
            = toneFigures(surrounded(withTone(toneSequence(playedRate), frequency, amplitude)),
                playedRate, playedRate);
        QCOMPARE(tones.size(), measuredFrequencies(playedRate).size());
        for (const ToneFigures& tone : tones) {
            QVERIFY2(std::abs(tone.imageDb - levelDb) < imageToleranceDb,
                qPrintable(QString("%1 Hz: %2 dB").arg(tone.frequency).arg(tone.imageDb)));
            QVERIFY2(std::abs(tone.imageHz - frequency) < 2.5, // a bin
                qPrintable(QString("%1 Hz: at %2").arg(tone.frequency).arg(tone.imageHz)));
        }
    }

    void tone_aboveHalfTheRecordingsRate_cannotArrive()
    {
        QVector<float> everyFourth;
        const QVector<float> sequence = surrounded(toneSequence(playedRate));
        for (int k = 0; k < sequence.size(); k += 4) {
            everyFourth.append(sequence[k]);
        }
        const QVector<ToneFigures> tones = toneFigures(everyFourth, playedRate, playedRate / 4);
        QCOMPARE(tones.size(), measuredFrequencies(playedRate).size());
        QCOMPARE(tones[6].frequency, 6000.0);
        QVERIFY(std::isinf(tones[6].levelDb));
        QVERIFY(std::abs(tones[6].imageHz - 4000.0) < 1.0); // where it is folded to
        QVERIFY(std::abs(tones[6].imageDb) < imageToleranceDb);
    }

    void silentOrShortRecording_hasNoFigures()
    {
        QVERIFY(toneFigures({}, playedRate, playedRate).isEmpty());
        QVERIFY(toneFigures(silence(4 * playedRate), playedRate, playedRate).isEmpty());
        const QVector<float> whole = toneSequence(playedRate);
        QVERIFY(toneFigures(whole.mid(0, whole.size() / 2), playedRate, playedRate).isEmpty());
    }

    void losses_areOfBeginAndEnd_data()
    {
        QTest::addColumn<QVector<float>>("recording");
        QTest::addColumn<double>("atBegin");
        QTest::addColumn<double>("atEnd");
        const QVector<float> sound = steppedSound(1000);
        QTest::newRow("whole") << surrounded(sound) << 0.0 << 0.0;
        QTest::newRow("without silence") << sound << 0.0 << 0.0;
        QTest::newRow("begin cut") << surrounded(sound.mid(37)) << 37.0 << 0.0;
        QTest::newRow("end cut") << surrounded(sound.mid(0, 832)) << 0.0 << 168.0;
        QTest::newRow("pause in the first half")
            << surrounded(sound.mid(0, 100) + silence(64) + sound.mid(100)) << -64.0 << 0.0;
        QTest::newRow("pause in the second half")
            << surrounded(sound.mid(0, 900) + silence(64) + sound.mid(900)) << 0.0 << -64.0;
    }

    void losses_areOfBeginAndEnd()
    {
        QFETCH(QVector<float>, recording);
        const LostSamples lost = lostOf(recording, 1000);
        QVERIFY(!lost.isSilent);
        QTEST(lost.atBegin, "atBegin");
        QTEST(lost.atEnd, "atEnd");
    }

    void losses_countAtTheRecordingsRate()
    {
        QVector<float> doubled;
        const QVector<float> sound = steppedSound(1000).mid(0, 990);
        for (const float sample : sound) {
            doubled.append(sample);
            doubled.append(sample);
        }
        const LostSamples lost = lostSamples(doubled, 1000, playedRate, 2 * playedRate);
        QCOMPARE(lost.atBegin, 0.0);
        QCOMPARE(lost.atEnd, 20.0);
    }

    void lostHalves_areSilence()
    {
        QVERIFY(lostOf({}, 1000).isSilent);
        QVERIFY(lostOf(silence(2000), 1000).isSilent);
        QVERIFY(lostOf(surrounded(steppedSound(1000).mid(0, 500)), 1000).isSilent);
        QVERIFY(lostOf(surrounded(steppedSound(1000).mid(500)), 1000).isSilent);
    }

    void exactness_isOfEverySample()
    {
        const QVector<float> sound = toneSequence(playedRate);
        QVERIFY(holdsExactly(surrounded(sound), sound));
        QVector<float> other = surrounded(sound);
        float& sample = other[other.size() / 2];
        sample = std::nextafter(sample, 1.0F);
        QVERIFY(!holdsExactly(other, sound));
        QVERIFY(!holdsExactly({}, sound));
    }
};

QUORIN_GUILESS_TEST(TestPathFigures);
#include "tst_path_figures.moc"
