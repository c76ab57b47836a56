// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers of the guide's paragraphs to paste are those of the program as it opens.
#include "documents/Guide.h"
#include "procedure/StaircaseRule.h"
#include "signal/SignalToolkit.h"
#include "signal/Stimulus.h"
#include "support/WindowTest.h"

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

constexpr int msPerSecond = 1000;

QString whole(double number)
{
    return decimals(number, 0);
}

/// The next step after an answer, dB.
int stepDb(bool isCorrect, int nReversals)
{
    Data data;
    data.stepFactor = isCorrect ? data.stepFactorCorrect : data.stepFactorIncorrect;
    data.reversalCount = nReversals;
    return nextStepDb(data);
}

/// The factor of the next step, as the guide writes it.
QString stepFactor(bool isCorrect, int nReversals)
{
    constexpr double noCeiling = std::numeric_limits<double>::infinity();
    return decimals(steppedValue(1.0, stepDb(isCorrect, nReversals), noCeiling), 3);
}

double levelOfTone(double depth)
{
    Data data;
    data.md[deviant] = depth;
    QVector<double> sound;
    synthesise(sound, data, deviant);
    return 20.0 * std::log10(rms(sound));
}

} // namespace

class TestMethodsSection : public WindowTest {
    Q_OBJECT

private slots:
    void init() override
    {
        WindowTest::init();
        m_text = userGuide().section("## The methods section", 1).section("## Planning", 0, 0);
        QVERIFY(!m_text.isEmpty());
    }

    void steps_areThose_ofTheRule()
    {
        QCOMPARE(occurrences(QString("multiplied by %1 after each right and by %2 after each wrong "
                                     "answer (%3 and +%4 dB")
                                 .arg(stepFactor(true, 0), stepFactor(false, 0))
                                 .arg(stepDb(true, 0))
                                 .arg(stepDb(false, 0))),
            2);
        // The second reversal is the first to have the small steps after it.
        QVERIFY(stepDb(true, 1) == stepDb(true, 0) && stepDb(false, 1) == stepDb(false, 0));
        QCOMPARE(occurrences(QString("from the second reversal on by %1 and %2 (%3 and +%4 dB)")
                                 .arg(stepFactor(true, 2), stepFactor(false, 2))
                                 .arg(stepDb(true, 2))
                                 .arg(stepDb(false, 2))),
            2);
        QCOMPARE(stepDb(true, 14), stepDb(true, 2));
        QCOMPARE(stepDb(false, 14), stepDb(false, 2));
        const double up = stepDb(false, 2);
        QCOMPARE(occurrences(QString("Steps down and up balance at %1 % correct.")
                                 .arg(decimals(up / (up - stepDb(true, 2)) * percent, 1))),
            2);
    }

    void run_hasThisEnd()
    {
        MainWindow window;
        const Data& data = Probe::data(window);
        QCOMPARE(
            occurrences(QString("A run ended with the %1th reversal").arg(data.nReversals)), 2);
        QCOMPARE(occurrences(QString("at the last %1.").arg(data.nReversalsToCalculate)), 2);
        QCOMPARE(occurrences(QString("at the last %1 of %2 reversals")
                                 .arg(data.nReversalsToCalculate)
                                 .arg(data.nReversals)),
            2);
    }

    void sounds_areThose_ofTheStart()
    {
        MainWindow window;
        const Data& data = Probe::data(window);
        for (const char* sound : {"Tones", "Noises"}) {
            QCOMPARE(occurrences(QString("%1 lasted %2 ms, began and ended without ramps, and were "
                                         "separated by %3 ms of silence; they were synthesised at "
                                         "%4 Hz")
                                     .arg(QString(sound), whole(data.dur[standard] * msPerSecond),
                                         whole(data.silentInterval * msPerSecond), whole(data.fs))),
                1);
        }
        QCOMPARE(data.dur[deviant], data.dur[standard]);
        QCOMPARE(
            occurrences(QString("amplitude-modulated at %1 Hz").arg(whole(data.mf[deviant]))), 1);
        QCOMPARE(occurrences(QString("white up to %1 Hz").arg(whole(data.fs / 2))), 1);
    }

    void frequency_startsSo()
    {
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        const Data& data = Probe::data(window);
        QCOMPARE(data.md, QVector<double>({0.0, 0.0}));
        QVERIFY(data.cf[deviant] < data.cf[standard]);
        QCOMPARE(occurrences(QString("The difference started at %1 Hz (%2 % of the standard's "
                                     "frequency)")
                                 .arg(whole(data.fd[deviant] * data.cf[standard]),
                                     whole(data.fd[deviant] * percent))),
            1);
        QCOMPARE(occurrences(
                     QString("the other three, which were at %1 Hz").arg(whole(data.cf[standard]))),
            1);
        Data wide = data;
        wide.fd[deviant] = 2.0;
        stepDeviant(wide);
        QCOMPARE(occurrences(QString("up to %1 Hz; lower values")
                                 .arg(decimals(wide.fd[deviant] * wide.cf[standard], 1))),
            1);
    }

    void depth_startsSo()
    {
        MainWindow window;
        const Data& data = Probe::data(window);
        const double depth = data.md[deviant];
        QCOMPARE(data.md[standard], 0.0);
        QCOMPARE(occurrences(QString("The depth started at %1 % (%2 dB, 20 log10 m)")
                                 .arg(whole(depth * percent), decimals(20 * std::log10(depth), 1))),
            1);
        constexpr double small = 0.05;
        QCOMPARE(occurrences(QString("at the starting depth by %1 dB at a depth of 5 %")
                                 .arg(decimals(levelOfTone(small) - levelOfTone(depth), 1))),
            1);
        Data deep = data;
        deep.md[deviant] = 2.0;
        stepDeviant(deep);
        QCOMPARE(
            occurrences(QString("up to at most %1 %").arg(whole(deep.md[deviant] * percent))), 1);
    }

    void calibrationTable_isThat_ofTheSounds()
    {
        for (const int depth : {5, 10, 20, 50, 100}) {
            const double level = levelOfTone(static_cast<double>(depth) / percent);
            GUIDE_SAYS(QString("| %1 | L - %2 dB |")
                           .arg(depth)
                           .arg(decimals(levelOfTone(0.0) - level, 2)));
        }
    }

private:
    int occurrences(const QString& words) const
    {
        const int count = m_text.count(words);
        if (count == 0) {
            qInfo("not in the guide: %s", qUtf8Printable(words));
        }
        return count;
    }

    QString m_text;
};

QUORIN_TEST(TestMethodsSection);
#include "tst_methods_section.moc"
