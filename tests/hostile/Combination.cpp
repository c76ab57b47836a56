// SPDX-License-Identifier: GPL-3.0-or-later
// Combinations of texts, choices and steps, drawn from a seed.
#include "hostile/Combination.h"

#include <QStringList>

#include <random>

namespace {

/// Small draws that are the same with every standard library.
class Dice {
public:
    Dice(uint seed, uint number)
        : m_sequence({seed, number})
        , m_generator(m_sequence)
    {
    }

    int below(int limit) { return static_cast<int>(m_generator() % static_cast<uint>(limit)); }
    bool oneIn(int times) { return below(times) == 0; }

private:
    std::seed_seq m_sequence;
    std::mt19937 m_generator;
};

// Sounds at the limits take much of the time: few combinations have them.
QVector<QPair<PanelField, HostileText>> someTexts(Dice& dice)
{
    const bool mayBeLong = dice.oneIn(400);
    const int oneFieldIn = 1 + dice.below(panelFields().size());
    QVector<QPair<PanelField, HostileText>> texts;
    for (const PanelField& field : panelFields()) {
        const HostileText& text = hostileTexts()[dice.below(hostileTexts().size())];
        if (dice.oneIn(oneFieldIn) && (mayBeLong || !makesLongSounds(field, text)))
            texts.append({field, text});
    }
    return texts;
}

// The sounds of a trial and its answer; some sounds fail, some ends are not reported, and some
// ticks come late.
QString trialSteps(Dice& dice)
{
    QString steps;
    const int nTicks = dice.oneIn(10) ? dice.below(6) : 4;
    for (int i = 0; i < nTicks; ++i) {
        steps += 't';
        steps += dice.oneIn(10) ? 's' : 'i';
    }
    if (dice.oneIn(10))
        steps.remove(dice.below(steps.size() + 1), 1);
    return steps + (dice.oneIn(2) ? '2' : '3');
}

QString runSteps(Dice& dice)
{
    QString steps("G");
    if (!dice.oneIn(8)) {
        steps += 'R';
        for (int trial = dice.below(3); trial > 0; --trial)
            steps += trialSteps(dice);
    }
    if (dice.oneIn(10))
        steps += 'E';
    if (dice.oneIn(10))
        steps += 'N';
    return steps + 'C';
}

} // namespace

Combination combination(uint seed, uint number)
{
    Dice dice(seed, number);
    Combination result;
    result.texts = someTexts(dice);
    result.sesType = dice.below(2);
    result.soundType = dice.below(2);
    result.mainParameter = dice.oneIn(10) ? dice.below(2) : result.soundType;
    result.resetsDeviant = dice.oneIn(4);
    result.saves = dice.oneIn(10);
    result.steps = dice.oneIn(10) ? "VV" : "V";
    if (dice.oneIn(2))
        result.steps += runSteps(dice);
    return result;
}

QString described(const Combination& combination)
{
    QStringList parts;
    for (const auto& entry : combination.texts)
        parts.append(QString("%1 = <%2>").arg(entry.first.name, entry.second.name));
    parts.append(QString("choices %1 %2 %3")
                     .arg(combination.sesType)
                     .arg(combination.soundType)
                     .arg(combination.mainParameter));
    if (combination.resetsDeviant)
        parts.append("resets the deviant");
    if (combination.saves)
        parts.append("saves");
    parts.append("steps " + combination.steps);
    return parts.join(", ");
}
