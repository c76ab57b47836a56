// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/Modulator.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <QTest>

#include <cmath>

namespace {

QVector<double> cosines(double frequency, double fs, double phase, int n)
{
    QVector<double> samples;
    for (int k = 0; k < n; ++k) {
        samples.append(std::cos(k * (frequency * 6.283185307179586) / fs + phase));
    }
    return samples;
}

} // namespace

class TestModulator : public QObject {
    Q_OBJECT

private slots:
    void samples_areCosines_whateverWasHeldBefore_data()
    {
        QTest::addColumn<double>("frequency");
        QTest::addColumn<double>("fs");
        QTest::addColumn<double>("phase");
        QTest::addColumn<int>("n");
        QTest::newRow("the same") << 10.0 << 40000.0 << 3.0 << 500;
        QTest::newRow("another frequency") << 11.0 << 40000.0 << 3.0 << 500;
        QTest::newRow("another rate") << 10.0 << 44100.0 << 3.0 << 500;
        QTest::newRow("another phase") << 10.0 << 40000.0 << 0.5 << 500;
        QTest::newRow("longer") << 10.0 << 40000.0 << 3.0 << 600;
        QTest::newRow("shorter") << 10.0 << 40000.0 << 3.0 << 400;
        QTest::newRow("none") << 10.0 << 40000.0 << 3.0 << 0;
        QTest::newRow("not a number") << qQNaN() << 40000.0 << 3.0 << 500;
        QTest::newRow("no rate") << 10.0 << 0.0 << 3.0 << 500;
    }

    void samples_areCosines_whateverWasHeldBefore()
    {
        QFETCH(double, frequency);
        QFETCH(double, fs);
        QFETCH(double, phase);
        QFETCH(int, n);
        Modulator modulator;
        QCOMPARE(modulator.samples({10.0, 40000.0, 3.0}, 500).size(), 500);
        const QVector<double> samples = modulator.samples({frequency, fs, phase}, n);
        QCOMPARE(firstDifference(samples, cosines(frequency, fs, phase, n)), -1);
    }
};

QUORIN_APPLESS_TEST(TestModulator);
#include "tst_modulator.moc"
