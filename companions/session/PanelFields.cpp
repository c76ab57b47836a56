// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's panel, by the object names of its fields.
#include "session/PanelFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

void fillPanel(const QWidget& window, const QVector<PanelSetting>& settings)
{
    for (const PanelSetting& setting : settings) {
        auto* const widget = window.findChild<QWidget*>(setting.widget);
        if (auto* const choice = qobject_cast<QComboBox*>(widget)) {
            choice->setCurrentText(setting.text);
        } else if (auto* const box = qobject_cast<QCheckBox*>(widget)) {
            box->setChecked(setting.text == "yes");
        } else if (auto* const field = qobject_cast<QLineEdit*>(widget)) {
            field->setText(setting.text);
        }
    }
}

QStringList panelTexts(const QWidget& window)
{
    QStringList texts;
    const QList<QComboBox*> choices = window.findChildren<QComboBox*>();
    for (const QComboBox* choice : choices) {
        texts.append(choice->currentText());
    }
    const QList<QLineEdit*> fields = window.findChildren<QLineEdit*>();
    for (const QLineEdit* field : fields) {
        texts.append(field->text());
    }
    const QList<QCheckBox*> boxes = window.findChildren<QCheckBox*>();
    for (const QCheckBox* box : boxes) {
        texts.append(box->isChecked() ? "yes" : "no");
    }
    return texts;
}
