// SPDX-License-Identifier: GPL-3.0-or-later
// Raised-cosine, squared and linear ramps.
#include "signal/SignalToolkit.h"
#include "support/ExactVectors.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

namespace {

using ByValue = QVector<double> (*)(QVector<double>, int);
using InPlace = void (*)(QVector<double>*, int);
using Gain = double (*)(double i, double n);

struct Ramp {
    ByValue byValue;
    InPlace inPlace;
    Gain gain;
};

double halfCosine(double i, double n)
{
    return (1 - std::cos(i / n * M_PI)) * 0.5;
}

double squaredHalfCosine(double i, double n)
{
    return halfCosine(i, n) * halfCosine(i, n);
}

double line(double i, double n)
{
    return i / n;
}

const Ramp cosine = {cosRamp, cosRamp, halfCosine};
const Ramp cosineSquared = {cos2Ramp, cos2Ramp, squaredHalfCosine};
const Ramp linear = {linearRamp, linearRamp, line};

// No two samples are the same, so that a swapped one shows.
QVector<double> counting(int size)
{
    QVector<double> samples(size);
    for (int i = 0; i < size; ++i) {
        samples[i] = i + 1.1;
    }
    return samples;
}

QVector<double> shaped(QVector<double> samples, int nPoints, Gain gain)
{
    for (int i = 0; i < nPoints && i < samples.size(); ++i) {
        samples[i] *= gain(i, nPoints);
        samples[samples.size() - 1 - i] *= gain(i, nPoints);
    }
    return samples;
}

} // namespace

Q_DECLARE_METATYPE(Ramp)

class TestRamps : public QuietTest {
    Q_OBJECT

private slots:
    void ramp_shapesBothEndsBitForBit_data()
    {
        addColumns<Ramp, int, int, int>("ramp", "size", "nPoints", "boxes");
        const QVector<QPair<QByteArray, Ramp>> ramps
            = {{"cosine", cosine}, {"cosine squared", cosineSquared}, {"linear", linear}};
        for (const auto& entry : ramps) {
            const Ramp& ramp = entry.second;
            const auto row = [&entry](const char* what) -> QTestData& {
                return QTest::newRow(entry.first + what);
            };
            row(", room between") << ramp << 100 << 7 << 0;
            row(", ends that touch") << ramp << 10 << 5 << 0;
            row(", overlap of one") << ramp << 9 << 5 << 1;
            row(", overlap") << ramp << 10 << 6 << 1;
            row(", as long as the vector") << ramp << 10 << 10 << 1;
            row(", longer than the vector") << ramp << 10 << 11 << 1;
            row(", twice the length beyond int") << ramp << 10 << (1 << 30) + 1 << 1;
            row(", the longest") << ramp << 10 << std::numeric_limits<int>::max() << 1;
            row(", none") << ramp << 10 << 0 << 0;
            row(", negative") << ramp << 10 << -3 << 0;
            row(", the most negative") << ramp << 10 << std::numeric_limits<int>::min() << 0;
            row(", of nothing") << ramp << 0 << 1 << 1;
            row(", none of nothing") << ramp << 0 << 0 << 0;
        }
    }

    void ramp_shapesBothEndsBitForBit()
    {
        QFETCH(Ramp, ramp);
        QFETCH(int, size);
        QFETCH(int, nPoints);
        QFETCH(int, boxes);
        const QVector<double> expected = shaped(counting(size), nPoints, ramp.gain);

        ModalBoxes shown;
        const QVector<double> original = counting(size);
        QCOMPARE(firstDifference(ramp.byValue(original, nPoints), expected), -1);
        QCOMPARE(original, counting(size));
        QCOMPARE(shown.messages().size(), boxes);

        QVector<double> samples = counting(size);
        ramp.inPlace(&samples, nPoints);
        QCOMPARE(firstDifference(samples, expected), -1);
        QCOMPARE(shown.messages().size(), 2 * boxes);
    }

    void cosRamp_risesOverHalfACosine_whenItHasTwoPoints()
    {
        const QVector<double> expected({0, 0.5, 1, 1, 1, 1, 1, 1, 0.5, 0});
        const QVector<double> samples = cosRamp(QVector<double>(10, 1.0), 2);
        QCOMPARE(samples.size(), expected.size());
        for (int i = 0; i < samples.size(); ++i) {
            QCOMPARE(samples[i], expected[i]);
        }
    }

    void cos2Ramp_squaresThatGain_whenItHasTwoPoints()
    {
        const QVector<double> samples = cos2Ramp(QVector<double>(4, 1.0), 2);
        QCOMPARE(samples[0], 0.0);
        QCOMPARE(samples[1], 0.25);
        QCOMPARE(samples[2], 0.25);
        QCOMPARE(samples[3], 0.0);
    }

    void linearRamp_risesInEqualSteps_whenItHasFourPoints()
    {
        QCOMPARE(linearRamp(QVector<double>(10, 1.0), 4),
            QVector<double>({0, 0.25, 0.5, 0.75, 1, 1, 0.75, 0.5, 0.25, 0}));
    }

    void ramp_appliesTwoGainsInTheMiddle_whenTheRampsOverlap()
    {
        ModalBoxes boxes;
        const QVector<double> samples = linearRamp(QVector<double>(10, 1.0), 6);
        QCOMPARE(samples[3], 3.0 / 6);
        QCOMPARE(samples[4], 4.0 / 6 * (5.0 / 6));
        QCOMPARE(samples[5], 4.0 / 6 * (5.0 / 6));
        QCOMPARE(samples[6], 3.0 / 6);
    }

    void ramp_warnsWithOneBox_whenTheVectorIsShorterThanTwoRamps()
    {
        ModalBoxes boxes;
        cosRamp(QVector<double>(10, 1.0), 6);
        verifyOneWarning(boxes, "Vector size must be at least twice of nPoints");
    }
};

QUORIN_TEST(TestRamps);
#include "tst_ramps.moc"
