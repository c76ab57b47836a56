// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the parameter panel on a screen of the size QUORIN_SCREEN, at the scale or the
// resolution of Qt's own variables. QUORIN_PANEL tells what is to come of it: "as ever", "closer"
// or "too high".
#include "support/WindowTest.h"
#include "system/ManagedScreen.h"

#include <QGridLayout>
#include <QScreen>

namespace {

// What a grid has by itself.
int styleSpacing()
{
    QWidget parent;
    const QGridLayout grid(&parent);
    return grid.verticalSpacing();
}

} // namespace

class TestPanelHeight : public WindowTest {
    Q_OBJECT

private:
    // The place of the panel's last row on the screen.
    static int panelEnd(const MainWindow& window)
    {
        const auto* grid = widgetOf<QGridLayout>(window, "gridLayoutParameters");
        return window.mapToGlobal(QPoint(0, grid->geometry().bottom())).y();
    }

    static void verifyRows(const MainWindow& window)
    {
        const auto* grid = widgetOf<QGridLayout>(window, "gridLayoutParameters");
        int above = -1;
        for (int row = 0; row < grid->rowCount(); ++row) {
            QVERIFY2(grid->cellRect(row, 0).top() > above, qPrintable(QString::number(row)));
            above = grid->cellRect(row, 0).bottom();
        }
        for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
            QVERIFY2(
                field->height() >= field->sizeHint().height(), qPrintable(field->objectName()));
        }
    }

private slots:
    void panel_isThis_onTheScreen()
    {
        const QString expected = qEnvironmentVariable("QUORIN_PANEL", "as ever");
        if (expected == "too high") {
            announceWarning(
                QRegularExpression("^The screen is too low for the main window by \\d+ pixels$"));
        }
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(window.size(), window.size().expandedTo(window.minimumSizeHint()));
        const int spacing
            = widgetOf<QGridLayout>(window, "gridLayoutParameters")->verticalSpacing();
        if (expected == "as ever") {
            QCOMPARE(spacing, styleSpacing());
        } else if (expected == "closer") {
            QVERIFY(spacing >= 0 && spacing < styleSpacing());
        } else {
            QCOMPARE(spacing, 0);
        }
        verifyRows(window);
        const int screenEnd = QGuiApplication::primaryScreen()->geometry().bottom();
        QCOMPARE(panelEnd(window) <= screenEnd, expected != "too high");
    }
};

static int runOnAScreen(int argc, char** argv)
{
    ManagedScreen screen;
    if (!screen.start(qEnvironmentVariable("QUORIN_SCREEN", "1366x768"))) {
        qCritical("no screen with a window manager: %s", qUtf8Printable(screen.whatFailed()));
        return EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    TestPanelHeight test;
    return QTest::qExec(&test, argc, argv);
}

static const RegisteredTest panelHeight(__FILE__, &runOnAScreen);
#include "tst_panel_height.moc"
