// SPDX-License-Identifier: GPL-3.0-or-later
// Levels of sounds, against closed forms, and sounds as WAV files.
#include "SoundProgram.h"
#include "sound/SoundFigures.h"
#include "sound/WavFile.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double rate = 40000.0;
constexpr double singlePrecision = 1e-7; // of samples up to 1

QVector<float> tone(int n, double hertz, double amplitude)
{
    constexpr double twoPi = 6.283185307179586;
    QVector<float> samples(n);
    for (int k = 0; k < n; ++k) {
        samples[k] = static_cast<float>(amplitude * std::sin(twoPi * hertz * k / rate));
    }
    return samples;
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) <= singlePrecision;
}

} // namespace

class TestSoundFigures : public QuietTest {
    Q_OBJECT

private slots:
    void levels_ofATone_areThoseOfItsAmplitude()
    {
        const SoundFigures figures = soundFigures(tone(4000, 1000.0, 0.5), rate);
        QVERIFY(isNear(figures.rms, 0.5 / std::sqrt(2.0)));
        QCOMPARE(figures.peak, 0.5);
        QVERIFY(std::abs(figures.rmsDb() + 9.0309) < 1e-4);
        QVERIFY(std::abs(figures.crestDb() - 3.0103) < 1e-4);
        // A millisecond is a whole period: its mean square is that of the whole tone.
        QVERIFY(std::abs(figures.beginDb()) < 1e-5);
        QVERIFY(std::abs(figures.endDb()) < 1e-5);
        QCOMPARE(figures.firstSample, 0.0);
        QVERIFY(isNear(figures.lastSample, 0.5 * std::sin(2.0 * M_PI / 40.0)));
    }

    void jumps_areTheOuterSamples_whateverTheirSign()
    {
        QVector<float> samples(400, 0.25F);
        samples.first() = -0.75F;
        samples.last() = -0.5F;
        const SoundFigures figures = soundFigures(samples, rate);
        QCOMPARE(figures.firstSample, 0.75);
        QCOMPARE(figures.lastSample, 0.5);
        QCOMPARE(figures.peak, 0.75);
    }

    void edges_tellHowASoundBeginsAndEnds()
    {
        QVector<float> samples(400, 1.0F); // 10 ms
        std::fill_n(samples.begin(), 40, 0.0F);
        std::fill_n(samples.end() - 40, 40, 0.5F);
        const SoundFigures figures = soundFigures(samples, rate);
        const double meanSquare = (320.0 + 40.0 * 0.25) / 400.0;
        QCOMPARE(figures.beginShare, 0.0);
        QCOMPARE(figures.beginDb(), -std::numeric_limits<double>::infinity());
        QCOMPARE(figures.endShare, 0.25 / meanSquare);
    }

    void millisecond_isRoundedUp()
    {
        QVector<float> samples(450, 0.0F);
        samples[44] = 1.0F; // the 45th sample at 44100 Hz: within the first millisecond and a bit
        QCOMPARE(soundFigures(samples, 44100.0).beginShare, 10.0);
        QCOMPARE(soundFigures(samples, 44000.0).beginShare, 0.0);
    }

    void shortSound_isItsOwnEdges()
    {
        const SoundFigures figures = soundFigures(QVector<float>(8, 0.5F), rate);
        QCOMPARE(figures.beginShare, 1.0);
        QCOMPARE(figures.endShare, 1.0);
    }

    void levels_areUndefined_withoutSamples()
    {
        const SoundFigures figures = soundFigures({}, rate);
        QVERIFY(std::isnan(figures.rms));
        QVERIFY(std::isnan(figures.beginDb()));
        QCOMPARE(figures.peak, 0.0);
    }

    void wavFile_holdsEverySample_beyondFullScaleToo()
    {
        const QVector<float> samples {0.0F, 1.0F, -1.5F, 1e-30F, 0.1F};
        const QByteArray wav = wavFile(samples, 44100);
        const auto* const bytes = reinterpret_cast<const char*>(samples.constData());
        QCOMPARE(wavChunk(wav, "data"), QByteArray(bytes, 4 * samples.size()));
        const QByteArray format = wavChunk(wav, "fmt ");
        QCOMPARE(qFromLittleEndian<quint16>(format.constData()), quint16(3)); // IEEE float
        QCOMPARE(qFromLittleEndian<quint16>(format.constData() + 2), quint16(1));
        QCOMPARE(qFromLittleEndian<quint32>(format.constData() + 4), 44100U);
        QCOMPARE(qFromLittleEndian<quint16>(format.constData() + 14), quint16(32));
        QCOMPARE(wavChunk(wav, "PEAK"), QByteArray()); // it would hold the time of writing
        QCOMPARE(wavFile(samples, 44100), wav);
    }
};

QUORIN_GUILESS_TEST(TestSoundFigures);
#include "tst_sound_figures.moc"
