// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of protocols in the main window itself.
#include "ProtocolTexts.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/ProtocolRow.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"
#include "support/WindowWidgets.h"

#include <QTest>

using namespace quorin;

namespace {

void set(const MainWindow& window, const PanelSetting& setting)
{
    if (setting.widget.startsWith("comboBox")) {
        comboBoxOf(window, setting.widget)->setCurrentText(setting.text);
    } else if (setting.widget.startsWith("checkBox")) {
        checkBoxOf(window, setting.widget)->setChecked(setting.text == "yes");
    } else {
        type(window, setting.widget, setting.text);
    }
}

QString shownIn(const MainWindow& window, const QString& widget)
{
    if (widget.startsWith("comboBox")) {
        return comboBoxOf(window, widget)->currentText();
    }
    if (widget.startsWith("checkBox")) {
        return checkBoxOf(window, widget)->isChecked() ? "yes" : "no";
    }
    return textOf(window, widget);
}

// The fields that do not hold what the row says.
QStringList differences(const MainWindow& window, const ProtocolRow& row)
{
    QStringList fields;
    for (int column = 0; column < nProtocolColumns; ++column) {
        const char* const widget = protocolColumn(column).widget;
        if (widget != nullptr && shownIn(window, widget) != row.texts[column]) {
            fields.append(QString(widget) + ' ' + shownIn(window, widget));
        }
    }
    return fields;
}

} // namespace

class TestProtocolWindow : public WindowTest {
    Q_OBJECT

private slots:
    void emptyCells_areTheWindowAsItOpens()
    {
        const MainWindow window;
        QCOMPARE(differences(window, readProtocol("repeat\n1\n").rows.value(0)), QStringList());
    }

    void settings_areTaken_whateverWasBefore()
    {
        const QByteArray headings
            = "main parameter,sound type,reset md/fd,standard carrier frequency (Hz),"
              "deviant frequency difference (Hz),deviant modulation depth (%),session,"
              "number of reversals,save data to file\n";
        const Protocol protocol = readProtocol(headings
            + "carrier frequency,sinusoid,no,2000,20.5000,,3,6,yes\n"
              "modulation depth,noise,,,,,,,\n"
              "carrier frequency,sinusoid,,4000,,,,,\n"
              "modulation depth,sinusoid,no,500,,30,2,,\n"
              "carrier frequency,sinusoid,,,,,,,\n"
              "modulation depth,noise,no,,,12.5,,,\n");
        QCOMPARE(protocol.complaints.size(), 0);
        const ModalBoxes boxes;
        MainWindow window;
        for (const ProtocolRow& row : protocol.rows) {
            for (const PanelSetting& setting : panelSettings(row)) {
                set(window, setting);
            }
            QCOMPARE(differences(window, row), QStringList());
            buttonOf(window, "pushButtonView")->click();
            QCOMPARE(differences(window, row), QStringList());
        }
        QCOMPARE(boxes.messages().size(), 0);
    }

    void settings_reachTheRecord()
    {
        const Protocol protocol
            = readProtocol("main parameter,sound type,reset md/fd,standard carrier frequency (Hz),"
                           "deviant frequency difference (Hz),standard duration (ms),practice\n"
                           "carrier frequency,sinusoid,no,2e3,25,250,yes\n");
        QCOMPARE(protocol.complaints.size(), 0);
        MainWindow window;
        for (const PanelSetting& setting : panelSettings(protocol.rows[0])) {
            set(window, setting);
        }
        buttonOf(window, "pushButtonView")->click();
        const Data& data = Probe::data(window);
        QCOMPARE(data.sesType, 0);
        QCOMPARE(data.soundType, sinusoidCarrier);
        QCOMPARE(data.mainParameter, carrierFrequencyParameter);
        QCOMPARE(data.cf, QVector<double>({2000.0, 1975.0}));
        QCOMPARE(data.fd[deviant], 0.0125);
        QCOMPARE(data.md, QVector<double>({0.0, 0.0}));
        QCOMPARE(data.dur, QVector<double>({0.25, 0.6}));
        QCOMPARE(data.resetMdFd, false);
        QCOMPARE(data.fileName, QString("SUB001_practice001_sinusoid_carrier frequency.txt"));
    }
};

QUORIN_TEST(TestProtocolWindow);
#include "tst_protocol_window.moc"
