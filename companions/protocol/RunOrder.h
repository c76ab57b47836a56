// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/Protocol.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdint>
#include <optional>
#include <vector>

/// In which order the runs of a protocol come.
enum class RunOrder { asWritten, shuffled, latinSquare };

/// What an order is called on command lines and in records: as-written, shuffled, latin.
QString orderName(RunOrder order);

/// The order of a name; nothing if no order has it.
std::optional<RunOrder> orderOfName(const QString& name);

/// A run of a session.
struct ProtocolRun {
    QString id; ///< the same in every order: "row 2, repeat 1"
    int row = 0; ///< index into the protocol's rows
    int repeat = 0; ///< which of the row's runs it is, from 1 on
    QString breakText; ///< what the listener reads in the break before it; empty: there is none
};

/// The identifier of a run.
/// @param row, repeat counted from 1
QString runId(int row, int repeat);

/// What keeps the rows from being ordered so; empty: nothing. In a Latin square all rows that are
/// no practice need the same number of repeats.
QString orderObstacle(const Protocol& protocol, RunOrder order);

/// The runs of a protocol in their order; none where orderObstacle tells an obstacle.
///
/// As written, the runs of a row follow each other. In both other orders the rows of practice come
/// first, as written; the other runs are shuffled, or follow in rounds, each with one run of every
/// row, ordered by a row of the Williams square: for subject s and round r, both counted from 1,
/// the row s + r - 1, counted from 1 and round again. Breaks stay where they are: before the run
/// that has the number of the one that they were written for, practice first.
/// @param subjectNumber for both other orders; 0 or more
/// @param seed          for the shuffled order; subjects of one seed have different orders
QVector<ProtocolRun> orderedRuns(
    const Protocol& protocol, RunOrder order, int subjectNumber, std::uint32_t seed);

/// How many orders williamsOrder has: n for an even n, 2n for an odd one.
int williamsOrders(int n);

/// A row of a Latin square balanced for the effects of one run on the next: in all rows together,
/// every condition is equally often at each place, and equally often directly after each other one.
/// For an odd n the second half of the rows is the first backwards.
/// Williams (1949), Aust. J. Sci. Res. A 2, 149-168; Bradley (1958), J. Am. Stat. Assoc. 53,
/// 525-528.
/// @param n     conditions, 1 or more
/// @param order 0 to williamsOrders(n) - 1
/// @return indices of conditions, 0 to n - 1
std::vector<int> williamsOrder(int n, int order);

/// The numbers 0 to n - 1 in random order: from the last place to the second, the number at place
/// i, counted from 0, changes with that at place x mod (i + 1), where x is the next number of
/// std::mt19937(seed) that is below the largest multiple of i + 1 up to 2^32.
std::vector<int> shuffledNumbers(int n, std::uint32_t seed);

/// The number at the end of a subject's code: 7 for S07; nothing without one, or beyond int.
std::optional<int> subjectNumber(const QString& code);

/// The runs that were not completed, in their order. A break before a completed run falls away.
/// @param completed identifiers
QVector<ProtocolRun> runsLeft(const QVector<ProtocolRun>& runs, const QStringList& completed);
