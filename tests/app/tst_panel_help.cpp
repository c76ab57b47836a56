// SPDX-License-Identifier: GPL-3.0-or-later
// Tool tips, accessible names and the order of the Tab key.
#include "support/WindowTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>

namespace {

// Everything of a window that can be typed into, chosen from or pressed.
QVector<QWidget*> controls(const QWidget& window)
{
    QVector<QWidget*> found;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QLineEdit*>(widget) != nullptr
            || qobject_cast<QComboBox*>(widget) != nullptr
            || qobject_cast<QAbstractButton*>(widget) != nullptr;
        if (isControl)
            found.append(widget);
    }
    return found;
}

// What a screen reader says of a control. A combo box's own name is its choice.
QString accessibleName(QWidget* widget)
{
    const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
    const auto labels = accessible->relations(QAccessible::Label);
    return (labels.isEmpty() ? accessible : labels.constFirst().first)->text(QAccessible::Name);
}

// Whether a reader comes to the second rectangle after the first: below it, or right of it in its
// row.
bool isReadInOrder(const QRect& first, const QRect& second)
{
    return second.top() > first.bottom()
        || (second.bottom() >= first.top() && second.left() > first.right());
}

void addName(const char* widget, const char* name)
{
    QTest::newRow(widget) << QString(name);
}

} // namespace

class TestPanelHelp : public WindowTest {
    Q_OBJECT

private slots:
    void tabKey_readsThePanel_whenGoIsEnabled()
    {
        MainWindow window;
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        buttonOf(window, "pushButtonView")->click();
        comboBoxOf(window, "comboBoxSesType")->setFocus();

        QVector<QWidget*> visited;
        do {
            visited.append(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (!visited.contains(QApplication::focusWidget()));

        QCOMPARE(QApplication::focusWidget(), visited.constFirst());
        for (int i = 1; i < visited.size(); ++i) {
            const bool isInOrder
                = isReadInOrder(visited[i - 1]->geometry(), visited[i]->geometry());
            QVERIFY2(isInOrder, qPrintable(visited[i]->objectName()));
        }
        // All controls but the name of the file, which is only shown.
        QCOMPARE(visited.size(), 25);
        for (QWidget* control : controls(window))
            QCOMPARE(visited.contains(control), control->isEnabled());
    }

    void everyControl_hasANameAndAToolTip_unlessItIsAnInterval()
    {
        const MainWindow mainWindow;
        const SubjectWindow subjectWindow(nullptr);
        QCOMPARE(controls(mainWindow).size(), 26);
        QCOMPARE(controls(subjectWindow).size(), 6);
        for (QWidget* control : controls(mainWindow) + controls(subjectWindow)) {
            QVERIFY2(!accessibleName(control).isEmpty(), qPrintable(control->objectName()));
            const bool isInterval = control->objectName().startsWith("pushButtonChoice");
            QVERIFY2(control->toolTip().isEmpty() == isInterval, qPrintable(control->objectName()));
        }
    }

    void toolTips_areDifferent()
    {
        const MainWindow window;
        QStringList toolTips;
        for (const QWidget* control : controls(window))
            toolTips.append(control->toolTip());
        QCOMPARE(toolTips.removeDuplicates(), 0);
    }

    void toolTip_namesTheUnit_ofANumber_data()
    {
        QTest::addColumn<QString>("unit");
        const auto row
            = [](const char* widget, const char* unit) { QTest::newRow(widget) << QString(unit); };
        for (const char* widget : {"lineEditStdCarrierFreq", "lineEditDevCarrierFreq",
                 "lineEditStdModFreq", "lineEditDevModFreq", "lineEditStdFreqDiff",
                 "lineEditDevFreqDiff", "lineEditSamplingRate"})
            row(widget, "in Hz");
        for (const char* widget : {"lineEditStdModDepth", "lineEditDevModDepth"})
            row(widget, "in %");
        for (const char* widget :
            {"lineEditStdDuration", "lineEditDevDuration", "lineEditSilentInterval"})
            row(widget, "in ms");
        for (const char* widget :
            {"lineEditNReversals", "lineEditNReversalsToCalc", "lineEditSesNum"})
            row(widget, "Number of");
    }

    void toolTip_namesTheUnit_ofANumber()
    {
        QFETCH(QString, unit);
        const MainWindow window;
        const QString toolTip = widgetOf<QLineEdit>(window, QTest::currentDataTag())->toolTip();
        QVERIFY2(toolTip.contains(unit, Qt::CaseInsensitive), qPrintable(toolTip));
    }

    void accessibleName_isThatOfTheLabels_data()
    {
        QTest::addColumn<QString>("name");
        addName("comboBoxSesType", "Session type");
        addName("comboBoxSoundType", "Sound type");
        addName("comboBoxMainParameter", "Main parameter");
        addName("lineEditStdCarrierFreq", "Standard: Carrier frequency (Hz)");
        addName("lineEditDevCarrierFreq", "Deviant: Carrier frequency (Hz)");
        addName("lineEditStdModFreq", "Standard: Modulation frequency (Hz)");
        addName("lineEditDevModFreq", "Deviant: Modulation frequency (Hz)");
        addName("lineEditStdModDepth", "Standard: Modulation depth (%)");
        addName("lineEditDevModDepth", "Deviant: Modulation depth (%)");
        addName("lineEditStdFreqDiff", "Standard: Frequency difference (Hz)");
        addName("lineEditDevFreqDiff", "Deviant: Frequency difference (Hz)");
        addName("lineEditStdDuration", "Standard: Duration (ms)");
        addName("lineEditDevDuration", "Deviant: Duration (ms)");
        addName("lineEditNReversals", "Number of reversals");
        addName("lineEditNReversalsToCalc", "Reversals to calculate");
        addName("lineEditSilentInterval", "Silent interval (ms)");
        addName("lineEditSamplingRate", "Sampling rate");
        addName("lineEditSubCode", "Subject code");
        addName("lineEditSesNum", "Session");
        addName("lineEditFilePath", "Filepath");
        addName("lineEditFileName", "Filename");
        addName("pushButtonView", "View");
        addName("pushButtonGo", "Go");
        addName("pushButtonQuit", "Quit");
        addName("checkBoxSaveData", "Save data to file");
        addName("checkBoxResetMdFd", "Reset md/fd");
    }

    void accessibleName_isThatOfTheLabels()
    {
        const MainWindow window;
        auto* const control = widgetOf<QWidget>(window, QTest::currentDataTag());
        QTEST(accessibleName(control), "name");
    }

    void charts_areNamedByTheirTitles()
    {
        const MainWindow window;
        const auto views = window.findChildren<QtCharts::QChartView*>();
        QCOMPARE(views.size(), 5);
        for (QtCharts::QChartView* view : views)
            QCOMPARE(accessibleName(view), view->chart()->title());
    }
};

QUORIN_TEST(TestPanelHelp);
#include "tst_panel_help.moc"
