// SPDX-License-Identifier: GPL-3.0-or-later
// From the rows of a protocol to the runs of a subject.
#include "protocol/RunOrder.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

// The runs of the rows of one kind, with their breaks; those of a row follow each other.
void appendRuns(QVector<ProtocolRun>& runs, const QVector<ProtocolRow>& rows, int i)
{
    for (int repeat = 1; repeat <= rows[i].repeat; ++repeat) {
        runs.append({runId(i + 1, repeat), i, repeat, repeat == 1 ? rows[i].breakText : QString()});
    }
}

QVector<ProtocolRun> runsOf(const QVector<ProtocolRow>& rows, bool isPractice)
{
    QVector<ProtocolRun> runs;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].isPractice == isPractice) {
            appendRuns(runs, rows, i);
        }
    }
    return runs;
}

QVector<ProtocolRun> writtenRuns(const QVector<ProtocolRow>& rows)
{
    QVector<ProtocolRun> runs;
    for (int i = 0; i < rows.size(); ++i) {
        appendRuns(runs, rows, i);
    }
    return runs;
}

// Places in the written order, in which the runs of a row follow each other.
std::vector<int> placesInRounds(int nRows, int nRepeats, int subjectNumber)
{
    const int nOrders = williamsOrders(nRows);
    const int first = (subjectNumber % nOrders + nOrders - 1) % nOrders;
    std::vector<int> places;
    for (int round = 0; round < nRepeats; ++round) {
        for (const int row : williamsOrder(nRows, (first + round) % nOrders)) {
            places.push_back(row * nRepeats + round);
        }
    }
    return places;
}

// The runs at these places, while the breaks stay where they are.
QVector<ProtocolRun> atPlaces(const QVector<ProtocolRun>& runs, const std::vector<int>& places)
{
    QVector<ProtocolRun> ordered;
    for (const int place : places) {
        ProtocolRun run = runs[place];
        run.breakText = runs[ordered.size()].breakText;
        ordered.append(run);
    }
    return ordered;
}

} // namespace

QString orderName(RunOrder order)
{
    switch (order) {
    case RunOrder::shuffled:
        return "shuffled";
    case RunOrder::latinSquare:
        return "latin";
    default:
        return "as-written";
    }
}

std::optional<RunOrder> orderOfName(const QString& name)
{
    for (const RunOrder order : {RunOrder::asWritten, RunOrder::shuffled, RunOrder::latinSquare}) {
        if (orderName(order) == name) {
            return order;
        }
    }
    return std::nullopt;
}

QString runId(int row, int repeat)
{
    return QString("row %1, repeat %2").arg(row).arg(repeat);
}

QString orderObstacle(const Protocol& protocol, RunOrder order)
{
    if (order != RunOrder::latinSquare) {
        return {};
    }
    const ProtocolRow* first = nullptr;
    for (const ProtocolRow& row : protocol.rows) {
        if (row.isPractice) {
            continue;
        }
        first = first == nullptr ? &row : first;
        if (row.repeat != first->repeat) {
            return QString("line %1, column \"repeat\": in a Latin square all rows but those of "
                           "practice have the same repeat: %2, not %3")
                .arg(row.line)
                .arg(first->repeat)
                .arg(row.repeat);
        }
    }
    return {};
}

QVector<ProtocolRun> orderedRuns(
    const Protocol& protocol, RunOrder order, int subjectNumber, std::uint32_t seed)
{
    if (!orderObstacle(protocol, order).isEmpty()) {
        return {};
    }
    if (order == RunOrder::asWritten) {
        return writtenRuns(protocol.rows);
    }
    const QVector<ProtocolRun> practice = runsOf(protocol.rows, true);
    const QVector<ProtocolRun> others = runsOf(protocol.rows, false);
    if (others.isEmpty()) {
        return practice;
    }
    if (order == RunOrder::shuffled) {
        const std::uint32_t ownSeed = seed + static_cast<std::uint32_t>(subjectNumber);
        return practice + atPlaces(others, shuffledNumbers(others.size(), ownSeed));
    }
    const int nRepeats = protocol.rows[others[0].row].repeat;
    return practice
        + atPlaces(others, placesInRounds(others.size() / nRepeats, nRepeats, subjectNumber));
}

int williamsOrders(int n)
{
    return n % 2 == 0 ? n : 2 * n;
}

std::vector<int> williamsOrder(int n, int order)
{
    std::vector<int> conditions(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        const int ofFirst = i % 2 == 0 ? n - i / 2 : (i + 1) / 2; // 0, 1, n - 1, 2, n - 2, ...
        conditions[static_cast<size_t>(i)] = (ofFirst + order) % n;
    }
    if (order >= n) {
        std::reverse(conditions.begin(), conditions.end());
    }
    return conditions;
}

std::vector<int> shuffledNumbers(int n, std::uint32_t seed)
{
    constexpr std::uint64_t nDraws = std::uint64_t(1) << 32U;
    std::mt19937 generator(seed);
    std::vector<int> numbers(static_cast<size_t>(n));
    std::iota(numbers.begin(), numbers.end(), 0);
    for (size_t i = numbers.size(); i-- > 1;) {
        const std::uint64_t limit = nDraws - nDraws % (i + 1);
        std::uint64_t draw = generator();
        while (draw >= limit) {
            draw = generator();
        }
        std::swap(numbers[i], numbers[draw % (i + 1)]);
    }
    return numbers;
}

std::optional<int> subjectNumber(const QString& code)
{
    static const QRegularExpression digitsAtEnd("([0-9]+)\\z");
    bool isNumber = false;
    const int number = digitsAtEnd.match(code).captured(1).toInt(&isNumber, 10);
    return isNumber ? std::optional<int>(number) : std::nullopt;
}

QVector<ProtocolRun> runsLeft(const QVector<ProtocolRun>& runs, const QStringList& completed)
{
    const QSet<QString> done(completed.cbegin(), completed.cend());
    QVector<ProtocolRun> left;
    std::copy_if(runs.cbegin(), runs.cend(), std::back_inserter(left),
        [&done](const ProtocolRun& run) { return !done.contains(run.id); });
    return left;
}
