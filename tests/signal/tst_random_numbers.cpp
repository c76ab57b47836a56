// SPDX-License-Identifier: GPL-3.0-or-later
// White noise and random integers.
#include "signal/SignalToolkit.h"
#include "support/Draws.h"
#include "support/ExactVectors.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// Repeats the action until no second began while it ran, and returns that second.
template <typename Action> uint secondOf(Action action)
{
    std::time_t before = 0;
    do {
        before = std::time(nullptr);
        action();
    } while (std::time(nullptr) != before);
    return static_cast<uint>(before);
}

} // namespace

class TestRandomNumbers : public QuietTest {
    Q_OBJECT

private slots:
    void init() override
    {
        QuietTest::init();
        qsrand(1);
    }

    void whiteNoise_isTheDrawsOverTheLargestDraw_seededWithTheSecond()
    {
        QVector<double> noise;
        QVector<double> again;
        int next = 0;
        const uint second = secondOf([&] {
            again = whiteNoise(1000);
            noise = whiteNoise(1000);
            next = qrand();
        });
        QCOMPARE(noise, again);
        const QVector<int> draws = drawsAfter(second, 1001);
        QVector<double> expected;
        for (int k = 0; k < 1000; ++k) {
            expected.append(draws[k] / 2147483647.0);
        }
        QCOMPARE(firstDifference(noise, expected), -1);
        QCOMPARE(next, draws[1000]);
    }

    void whiteNoise_isOneSided_whateverTheSecond()
    {
        const QVector<double> noise = whiteNoise(1000);
        QVERIFY(*std::min_element(noise.begin(), noise.end()) >= 0.0);
        QVERIFY(*std::max_element(noise.begin(), noise.end()) <= 1.0);
    }

    void whiteNoise_hasOneSample_whenOneIsAskedFor() { QCOMPARE(whiteNoise(1).size(), 1); }

    void randomInteger_isMinPlusTheRemainderOfOneDraw_data()
    {
        addColumns<int, int>("min", "max");
        QTest::newRow("2 or 3") << 2 << 3;
        QTest::newRow("a die") << 1 << 6;
        QTest::newRow("negative") << -100 << -90;
        QTest::newRow("across 0") << -1000 << 1000;
        QTest::newRow("one value") << 3 << 3;
        QTest::newRow("every draw") << 0 << highest;
    }

    void randomInteger_isMinPlusTheRemainderOfOneDraw()
    {
        QFETCH(int, min);
        QFETCH(int, max);
        const QVector<int> draws = drawsAfter(1, 101);
        for (int i = 0; i < 100; ++i) {
            const qint64 range = static_cast<qint64>(max) - min + 1;
            QCOMPARE(randomInteger(min, max), static_cast<int>(min + draws[i] % range));
        }
        QCOMPARE(drawsMade(draws), 100);
    }

    void randomInteger_warnsAndGoesOn_whenTheRangeIsReversed_data()
    {
        addColumns<int, int, int>("min", "max", "range");
        QTest::newRow("range 0 gives min") << 4 << 3 << 1;
        QTest::newRow("range 0 at the end of int") << highest << highest - 1 << 1;
        QTest::newRow("range -1 gives min") << 5 << 3 << -1;
        QTest::newRow("range -6") << 10 << 3 << -6;
    }

    void randomInteger_warnsAndGoesOn_whenTheRangeIsReversed()
    {
        QFETCH(int, min);
        QFETCH(int, max);
        QFETCH(int, range);
        const QVector<int> draws = drawsAfter(1, 2);
        ModalBoxes boxes;
        QCOMPARE(randomInteger(min, max), min + draws[0] % range);
        QCOMPARE(drawsMade(draws), 1);
        verifyOneWarning(boxes, "min cannot be larger than max");
    }

    void randomIntegers_areMinPlusTheRemainders_seededWithTheSecond()
    {
        QVector<int> integers;
        int next = 0;
        const uint second = secondOf([&] {
            integers = randomIntegers(100, -3, 6);
            next = qrand();
        });
        const QVector<int> draws = drawsAfter(second, 101);
        QCOMPARE(integers.size(), 100);
        for (int k = 0; k < integers.size(); ++k) {
            QCOMPARE(integers[k], draws[k] % 10 - 3);
        }
        QCOMPARE(next, draws[100]);
    }

    void randomIntegers_areAllTheSame_whenTheRangeIsOneValue()
    {
        const ModalBoxes boxes;
        QCOMPARE(randomIntegers(4, 3, 3), QVector<int>(4, 3));
        QVERIFY(boxes.messages().isEmpty());
    }

    void randomIntegers_areOne_whenOneIsAskedFor()
    {
        QCOMPARE(randomIntegers(1, 3, 3), QVector<int>({3}));
    }

    void randomIntegers_areAllMax_whenMinIsLarger()
    {
        ModalBoxes boxes;
        QCOMPARE(randomIntegers(4, 7, 2), QVector<int>(4, 2));
        verifyOneWarning(boxes, "min cannot be larger than max; force min = max");
    }

    void randomIntegers_warn_whenMinIsLargerAndNoneAreWanted()
    {
        ModalBoxes boxes;
        QVERIFY(randomIntegers(0, 7, 2).isEmpty());
        verifyOneWarning(boxes, "min cannot be larger than max; force min = max");
    }

    void nothing_isMadeButSeeded_whenTheLengthIsBelowOne_data()
    {
        addColumns<int, bool>("length", "isNoise");
        for (const bool isNoise : {true, false}) {
            const char* const what = isNoise ? "noise" : "integers";
            QTest::addRow("no %s", what) << 0 << isNoise;
            QTest::addRow("negative length of %s", what) << -1 << isNoise;
            QTest::addRow("the most negative length of %s", what) << lowest << isNoise;
        }
    }

    void nothing_isMadeButSeeded_whenTheLengthIsBelowOne()
    {
        QFETCH(int, length);
        QFETCH(bool, isNoise);
        int next = 0;
        const uint second = secondOf([&] {
            qsrand(1);
            QVERIFY(
                isNoise ? whiteNoise(length).isEmpty() : randomIntegers(length, 1, 6).isEmpty());
            next = qrand();
        });
        QCOMPARE(next, drawsAfter(second, 1).constFirst());
    }
};

QUORIN_TEST(TestRandomNumbers);
#include "tst_random_numbers.moc"
