// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MainWindowProbe.h"
#include "support/WindowTest.h"

#include <QPushButton>
#include <QtTest>

using Probe = MainWindowProbe;

class TestMainWindow : public WindowTest {
    Q_OBJECT

private slots:
    void go_isDisabled_whenTheWindowOpens()
    {
        MainWindow window;
        QVERIFY(Probe::pushButtonView(window)->isEnabled());
        QVERIFY(!Probe::pushButtonGo(window)->isEnabled());
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_main_window.moc"
