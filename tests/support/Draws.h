// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>
#include <QtGlobal>

#include <algorithm>

/// The first draws of Qt's generator after qsrand(seed). Leaves the generator freshly seeded.
inline QVector<int> drawsAfter(uint seed, int count)
{
    QVector<int> draws(count);
    qsrand(seed);
    std::generate(draws.begin(), draws.end(), qrand);
    qsrand(seed);
    return draws;
}

/// How many draws were made since draws[0] came next: the place of the next draw among them, -1
/// when it is none of them. Draws once. The generator does not repeat itself within 2^31 draws.
inline int drawsMade(const QVector<int>& draws)
{
    return draws.indexOf(qrand());
}
