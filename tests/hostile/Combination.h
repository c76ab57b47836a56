// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hostile/PanelFields.h"

#include <QPair>
#include <QString>
#include <QVector>

/// What one combination types into the panel, chooses and then does with the windows.
struct Combination {
    QVector<QPair<PanelField, HostileText>> texts;
    int sesType;
    int soundType;
    int mainParameter;
    bool resetsDeviant;
    bool saves;
    /// One letter a step:
    /// V View, G Go, R "I am ready", t a tick, i the sound is idle, s its output stops,
    /// 2 and 3 the answers, E pending events, N and C the subject window is closed, by No and Yes
    QString steps;
};

/// The combination of this number, always the same for the same seed.
Combination combination(uint seed, uint number);

/// Everything about it, in a line.
QString described(const Combination& combination);
