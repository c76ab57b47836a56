// SPDX-License-Identifier: GPL-3.0-or-later
// The two parameters that can be adapted, and their units.
#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "session/Units.h"
#include "support/ExactVectors.h"
#include "support/QuietTest.h"

using namespace quorin;

using Values = QVector<double>;

class TestAdaptedParameter : public QuietTest {
    Q_OBJECT

private slots:
    void parameters_areTwo()
    {
        QVERIFY(adaptedParameter(carrierFrequencyParameter) != nullptr);
        QVERIFY(adaptedParameter(modulationDepthParameter) != nullptr);
        QVERIFY(adaptedParameter(-1) == nullptr);
        QVERIFY(adaptedParameter(2) == nullptr);
        QCOMPARE(adaptedParameterNames(), QStringList({"carrier frequency", "modulation depth"}));
    }

    void parameters_startBelowTheirCeilings()
    {
        const AdaptedParameter& difference = *adaptedParameter(carrierFrequencyParameter);
        QUORIN_COMPARE_EXACT(difference.start, 0.05);
        QUORIN_COMPARE_EXACT(difference.ceiling, 0.9999);
        const AdaptedParameter& depth = *adaptedParameter(modulationDepthParameter);
        QUORIN_COMPARE_EXACT(depth.start, 0.5);
        QUORIN_COMPARE_EXACT(depth.ceiling, 1.0);
    }

    void depth_isShownInPercent()
    {
        const AdaptedParameter& depth = *adaptedParameter(modulationDepthParameter);
        QUORIN_COMPARE_EXACT(depth.shown(0.07, 1234.5), 0.07 * 100.0);
        QCOMPARE(QString(depth.unit), QString("%"));
    }

    void difference_isShownInHertz()
    {
        const AdaptedParameter& difference = *adaptedParameter(carrierFrequencyParameter);
        QUORIN_COMPARE_EXACT(difference.shown(0.07, 1234.5), 0.07 * 1234.5);
        QCOMPARE(QString(difference.unit), QString("Hz"));
    }

    void adaptedValue_isTheDeviants()
    {
        Data data;
        data.md = {0.1, 0.2};
        data.fd = {0.3, 0.4};
        data.mainParameter = modulationDepthParameter;
        QCOMPARE(adaptedValue(data), 0.2);
        data.mainParameter = carrierFrequencyParameter;
        QCOMPARE(adaptedValue(data), 0.4);
        data.mainParameter = 2;
        QCOMPARE(adaptedValue(data), 0.0);
    }

    void setAdaptedValue_setsTheDeviantsAlone_data()
    {
        addColumns<int, double, double, double>("mainParameter", "md", "fd", "cf");
        QTest::newRow("difference, and its carrier") << 0 << 0.5 << 0.25 << 1500.0;
        QTest::newRow("depth") << 1 << 0.25 << 0.125 << 1800.0;
        QTest::newRow("other: nothing") << 2 << 0.5 << 0.125 << 1800.0;
    }

    void setAdaptedValue_setsTheDeviantsAlone()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, md);
        QFETCH(double, fd);
        QFETCH(double, cf);
        Data data;
        data.mainParameter = mainParameter;
        data.md = {0.75, 0.5};
        data.fd = {0.0625, 0.125};
        data.cf = {2000.0, 1800.0};
        setAdaptedValue(data, 0.25);
        QCOMPARE(data.md, (Values {0.75, md}));
        QCOMPARE(data.fd, (Values {0.0625, fd}));
        QCOMPARE(data.cf, (Values {2000.0, cf}));
    }

    void units_areThoseOfTheScreen()
    {
        QUORIN_COMPARE_EXACT(inPercent(0.07), 0.07 * 100.0);
        QUORIN_COMPARE_EXACT(fromPercent(7.0), 7.0 / 100.0);
        QUORIN_COMPARE_EXACT(inMs(0.6), 0.6 * 1000.0);
        QUORIN_COMPARE_EXACT(fromMs(734.0), 734.0 / 1000.0);
    }
};

QUORIN_GUILESS_TEST(TestAdaptedParameter);
#include "tst_adapted_parameter.moc"
