// SPDX-License-Identifier: GPL-3.0-or-later
// The runs of a protocol in their orders, and which of them are left.
#include "protocol/ProtocolReader.h"
#include "protocol/RunOrder.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

#include <map>
#include <set>
#include <utility>

namespace {

// Runs as "row.repeat", counted from 1, each break as the text in brackets before its run.
QString asText(const QVector<ProtocolRun>& runs)
{
    QStringList texts;
    for (const ProtocolRun& run : runs) {
        const QString breakText = run.breakText.isEmpty() ? "" : '[' + run.breakText + ']';
        texts.append(QString("%1%2.%3").arg(breakText).arg(run.row + 1).arg(run.repeat));
    }
    return texts.join(' ');
}

// With practice in the second row, three repeats of the others, and breaks.
Protocol study()
{
    return readProtocol("session,practice,repeat,break\n"
                        "1,,3,\n"
                        "2,yes,2,practice\n"
                        "3,,3,half\n"
                        "4,,3,\n");
}

QString ordered(RunOrder order, int subjectNumber, std::uint32_t seed = 0)
{
    return asText(orderedRuns(study(), order, subjectNumber, seed));
}

std::vector<std::vector<int>> williamsSquare(int n)
{
    std::vector<std::vector<int>> square(static_cast<size_t>(williamsOrders(n)));
    int order = 0;
    for (std::vector<int>& row : square) {
        row = williamsOrder(n, order++);
    }
    return square;
}

Protocol conditions(int n)
{
    return readProtocol("session\n" + QByteArray("1\n").repeated(n));
}

} // namespace

class TestRunOrder : public QuietTest {
    Q_OBJECT

private slots:
    void runs_followEachOther_asWritten()
    {
        QCOMPARE(ordered(RunOrder::asWritten, 5, 7),
            QString("1.1 1.2 1.3 [practice]2.1 2.2 [half]3.1 3.2 3.3 4.1 4.2 4.3"));
    }

    void runs_haveIdentifiers()
    {
        const QVector<ProtocolRun> runs = orderedRuns(study(), RunOrder::asWritten, 1, 1);
        QCOMPARE(runs[0].id, QString("row 1, repeat 1"));
        QCOMPARE(runs[4].id, QString("row 2, repeat 2"));
        QCOMPARE(runs[4].row, 1);
        QCOMPARE(runs[4].repeat, 2);
    }

    void shuffledNumbers_areThoseOfTheStatedAlgorithm_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<std::vector<int>>("numbers");
        using Numbers = std::vector<int>;
        // Computed by another implementation of the generator.
        QTest::newRow("seed 0") << 8 << 0U << Numbers {2, 1, 7, 6, 0, 5, 3, 4};
        QTest::newRow("seed 1") << 8 << 1U << Numbers {7, 2, 1, 4, 6, 0, 3, 5};
        QTest::newRow("seed 2") << 8 << 2U << Numbers {1, 6, 7, 2, 4, 5, 3, 0};
        QTest::newRow("last seed") << 8 << 4294967295U << Numbers {6, 7, 1, 0, 4, 2, 5, 3};
        QTest::newRow("six") << 6 << 5U << Numbers {1, 2, 0, 3, 4, 5};
        QTest::newRow("one") << 1 << 5U << Numbers {0};
        QTest::newRow("none") << 0 << 5U << Numbers {};
    }

    void shuffledNumbers_areThoseOfTheStatedAlgorithm()
    {
        QFETCH(int, n);
        QFETCH(quint32, seed);
        QFETCH(std::vector<int>, numbers);
        QVERIFY(shuffledNumbers(n, seed) == numbers);
    }

    void shuffledRuns_keepPracticeAndBreaks()
    {
        const Protocol protocol = readProtocol("session,practice,repeat,break\n"
                                               "1,,4,\n"
                                               "1,yes,1,practice\n"
                                               "1,,2,half\n");
        QCOMPARE(asText(orderedRuns(protocol, RunOrder::shuffled, 0, 5)),
            QString("[practice]2.1 1.2 1.3 1.1 1.4 [half]3.1 3.2"));
        QCOMPARE(asText(orderedRuns(protocol, RunOrder::shuffled, 0, 6)),
            QString("[practice]2.1 3.1 1.1 3.2 1.4 [half]1.2 1.3"));
    }

    void shuffledRuns_differBetweenSubjects_ofOneSeed()
    {
        const Protocol protocol = conditions(6);
        QCOMPARE(asText(orderedRuns(protocol, RunOrder::shuffled, 1, 5)),
            QString("5.1 1.1 6.1 4.1 2.1 3.1")); // seed 6
        QCOMPARE(asText(orderedRuns(protocol, RunOrder::shuffled, 1, 4294967295U)),
            QString("6.1 4.1 1.1 2.1 5.1 3.1")); // seed 0
    }

    void williamsSquare_hasTheseRows()
    {
        using Square = std::vector<std::vector<int>>;
        QVERIFY(williamsSquare(2) == Square({{0, 1}, {1, 0}}));
        QVERIFY(williamsSquare(3)
            == Square({{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}, {0, 2, 1}, {1, 0, 2}}));
        QVERIFY(
            williamsSquare(4) == Square({{0, 1, 3, 2}, {1, 2, 0, 3}, {2, 3, 1, 0}, {3, 0, 2, 1}}));
        QVERIFY(williamsSquare(1) == Square({{0}, {0}}));
    }

    void williamsSquare_isBalanced_data()
    {
        addIntegers("n", {2, 3, 4, 5, 6, 7, 8, 9, 12, 31, 32});
    }

    void williamsSquare_isBalanced()
    {
        QFETCH(int, n);
        const std::vector<std::vector<int>> square = williamsSquare(n);
        const int each = n % 2 == 0 ? 1 : 2;
        QCOMPARE(int(square.size()), n * each);
        std::map<std::pair<size_t, int>, int> atPlace;
        std::map<std::pair<int, int>, int> oneAfterAnother;
        for (const std::vector<int>& order : square) {
            QCOMPARE(int(std::set<int>(order.begin(), order.end()).size()), n);
            for (size_t place = 0; place < order.size(); ++place) {
                ++atPlace[std::make_pair(place, order[place])];
                if (place > 0) {
                    ++oneAfterAnother[{order[place - 1], order[place]}];
                }
            }
        }
        QCOMPARE(int(atPlace.size()), n * n);
        QCOMPARE(int(oneAfterAnother.size()), n * (n - 1));
        for (const auto& count : atPlace) {
            QCOMPARE(count.second, each);
        }
        for (const auto& count : oneAfterAnother) {
            QCOMPARE(count.second, each);
        }
    }

    void latinSquare_ordersRounds_data()
    {
        QTest::addColumn<int>("subject");
        QTest::addColumn<QString>("runs");
        // The conditions are rows 1, 3 and 4; the break stays before the fourth run after practice.
        const QString practice = "[practice]2.1 2.2 ";
        const QString first = practice + "1.1 3.1 4.1 [half]3.2 4.2 1.2 4.3 1.3 3.3";
        const QString last = practice + "3.1 1.1 4.1 [half]1.2 3.2 4.2 3.3 4.3 1.3";
        QTest::newRow("first") << 1 << first;
        QTest::newRow("second") << 2 << practice + "3.1 4.1 1.1 [half]4.2 1.2 3.2 4.3 3.3 1.3";
        QTest::newRow("sixth") << 6 << last;
        QTest::newRow("seventh, as the first") << 7 << first;
        QTest::newRow("none, as the sixth") << 0 << last;
    }

    void latinSquare_ordersRounds()
    {
        QFETCH(int, subject);
        QTEST(ordered(RunOrder::latinSquare, subject), "runs");
    }

    void latinSquare_takesTheLargestSubject()
    {
        // 2147483647 is 7 more than a multiple of 8.
        QCOMPARE(asText(orderedRuns(
                     conditions(8), RunOrder::latinSquare, std::numeric_limits<int>::max(), 0)),
            asText(orderedRuns(conditions(8), RunOrder::latinSquare, 7, 0)));
    }

    void latinSquare_needsEqualRepeats()
    {
        const Protocol protocol = readProtocol("practice,repeat\nyes,5\nno,2\nno,2\n\nno,3\n");
        QCOMPARE(orderObstacle(protocol, RunOrder::latinSquare),
            QString("line 6, column \"repeat\": in a Latin square all rows but those of practice "
                    "have the same repeat: 2, not 3"));
        QCOMPARE(orderedRuns(protocol, RunOrder::latinSquare, 1, 1).size(), 0);
        QCOMPARE(orderObstacle(protocol, RunOrder::shuffled), QString());
        QCOMPARE(orderObstacle(protocol, RunOrder::asWritten), QString());
        QCOMPARE(orderObstacle(study(), RunOrder::latinSquare), QString());
        QCOMPARE(orderedRuns(protocol, RunOrder::shuffled, 1, 1).size(), 12);
    }

    void practiceAlone_isAsWritten_inEveryOrder()
    {
        const Protocol protocol = readProtocol("practice,repeat\nyes,2\nyes,1\n");
        for (const RunOrder order :
            {RunOrder::asWritten, RunOrder::shuffled, RunOrder::latinSquare}) {
            QCOMPARE(asText(orderedRuns(protocol, order, 1, 1)), QString("1.1 1.2 2.1"));
        }
    }

    void nothing_hasNoRuns()
    {
        for (const RunOrder order :
            {RunOrder::asWritten, RunOrder::shuffled, RunOrder::latinSquare}) {
            QCOMPARE(orderedRuns(Protocol(), order, 1, 1).size(), 0);
        }
    }

    void subjectNumber_isTheCodesEnd_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<int>("number");
        QTest::newRow("S07") << "S07" << 7;
        QTest::newRow("SUB001") << "SUB001" << 1;
        QTest::newRow("number") << "12" << 12;
        QTest::newRow("zero") << "S0" << 0;
        QTest::newRow("last of two") << "lab2-S31" << 31;
        QTest::newRow("largest") << "S2147483647" << 2147483647;
        QTest::newRow("too large") << "S2147483648" << -1;
        QTest::newRow("not at the end") << "07S" << -1;
        QTest::newRow("none") << "Ada" << -1;
        QTest::newRow("empty") << "" << -1;
        QTest::newRow("line break at the end") << "S07\n" << -1;
    }

    void subjectNumber_isTheCodesEnd()
    {
        QFETCH(QString, code);
        QTEST(subjectNumber(code).value_or(-1), "number");
    }

    void runsLeft_areThoseNotCompleted()
    {
        const QVector<ProtocolRun> runs = orderedRuns(study(), RunOrder::latinSquare, 1, 0);
        QCOMPARE(asText(runsLeft(runs, {})), asText(runs));
        QCOMPARE(asText(runsLeft(runs,
                     {"row 2, repeat 1", "row 3, repeat 2", "row 2, repeat 2", "row 1, repeat 1",
                         "row 1, repeat 1", "row 9, repeat 1"})),
            QString("3.1 4.1 4.2 1.2 4.3 1.3 3.3"));
        QStringList all;
        for (const ProtocolRun& run : runs) {
            all.append(run.id);
        }
        QCOMPARE(runsLeft(runs, all).size(), 0);
    }

    void names_standForOrders()
    {
        QCOMPARE(orderName(RunOrder::asWritten), QString("as-written"));
        QCOMPARE(orderName(RunOrder::shuffled), QString("shuffled"));
        QCOMPARE(orderName(RunOrder::latinSquare), QString("latin"));
        for (const RunOrder order :
            {RunOrder::asWritten, RunOrder::shuffled, RunOrder::latinSquare})
            QVERIFY(orderOfName(orderName(order)) == order);
        for (const char* const name : {"", "Latin", "as written"})
            QVERIFY(!orderOfName(name).has_value());
    }
};

QUORIN_APPLESS_TEST(TestRunOrder);
#include "tst_run_order.moc"
