// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/Protocol.h"

#include <QStringList>
#include <QVector>

class QWidget;

/// Enters the settings into the panel of a main window, in their order.
void fillPanel(const QWidget& window, const QVector<PanelSetting>& settings);

/// What the fields and choices of the panel hold, in an order that does not change.
QStringList panelTexts(const QWidget& window);
