// SPDX-License-Identifier: GPL-3.0-or-later
// How the main window is closed, refuses to close during a run, and is destroyed.
#include "app/ObjectNames.h"
#include "charts/ChartObjects.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QCloseEvent>
#include <QWindow>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <memory>

using namespace quorin;

namespace {

void startRun(MainWindow& window)
{
    buttonOf(window, "pushButtonView")->click();
    buttonOf(window, "pushButtonGo")->click();
}

// The objects of the five charts in the order of their deletion, and the timer after them.
QVector<QObject*> chartsAndTimer(MainWindow& window)
{
    QVector<QObject*> objects;
    for (const ChartObjects& chart : allCharts(window))
        objects += chart.objects();
    return objects << Probe::timerPlay(window);
}

// The panel's members as they are declared, but the three choices' boxes right after their labels
// and the charts' grid before the panel's.
QStringList panelInOrderOfDeletion()
{
    QStringList names = panelNames();
    for (const char* box : {"comboBoxMainParameter", "comboBoxSoundType", "comboBoxSesType"}) {
        names.removeOne(box);
        names.insert(3, box);
    }
    names.move(names.indexOf("gridLayoutCharts"), names.indexOf("gridLayoutParameters"));
    return names;
}

} // namespace

class TestMainWindowEnd : public WindowTest {
    Q_OBJECT

private slots:
    void titleBar_closesTheWindow_whenNoRunIsOn()
    {
        MainWindow window;
        window.show();
        closeByTitleBar(window);
        QVERIFY(!window.isVisible());
    }

    void titleBar_isIgnored_whenARunIsOn()
    {
        ModalBoxes boxes;
        MainWindow window;
        window.show();
        startRun(window);
        closeByTitleBar(window);
        QVERIFY(window.isVisible());
        QVERIFY(Probe::subjectWindow(window)->isVisible());
        QVERIFY(boxes.messages().isEmpty());
        Probe::subjectWindow(window)->close();
        closeByTitleBar(window);
        QVERIFY(!window.isVisible());
    }

    void close_closesTheWindow_whenCalledDuringARun()
    {
        ModalBoxes boxes;
        MainWindow window;
        window.show();
        startRun(window);
        QVERIFY(window.close());
        QVERIFY(!window.isVisible());
        QVERIFY(boxes.messages().isEmpty());
    }

    void quit_endsTheEventLoop_whenClicked()
    {
        MainWindow window;
        window.show();
        const QSignalSpy lastClosed(qApp, SIGNAL(lastWindowClosed()));
        QTimer::singleShot(0, buttonOf(window, "pushButtonQuit"), SLOT(click()));
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(lastClosed.count(), 1);
        QVERIFY(!window.isVisible());
    }

    void members_areDeletedInOrder_whenTheWindowIsDestroyed()
    {
        QVector<QObject*> deleted;
        auto window = std::make_unique<MainWindow>();
        QVector<QObject*> expected = chartsAndTimer(*window);
        for (const QString& name : panelInOrderOfDeletion())
            expected += widgetOf<QObject>(*window, name);
        for (QObject* object : qAsConst(expected)) {
            connect(object, &QObject::destroyed, this,
                [&deleted](QObject* gone) { deleted.append(gone); });
        }
        window.reset();
        QCOMPARE(deleted, expected);
    }

    void noSlotRuns_whenTheWindowIsDestroyed()
    {
        QStringList texts;
        auto window = std::make_unique<MainWindow>();
        startRun(*window);
        lineEditOf(*window, "lineEditSubCode")->setFocus();
        auto* const fileName = lineEditOf(*window, "lineEditFileName");
        connect(fileName, &QLineEdit::textChanged, this,
            [&texts](const QString& text) { texts.append(text); });
        auto* const sesType = comboBoxOf(*window, "comboBoxSesType");
        connect(labelOf(*window, "labelSesType"), &QObject::destroyed, this,
            [sesType] { sesType->setCurrentIndex(0); });
        window.reset();
        QVERIFY(texts.isEmpty());
    }

    void window_canBeDestroyed_whenItHasAParent()
    {
        auto parent = std::make_unique<QWidget>();
        const QPointer<MainWindow> window = new MainWindow(parent.get());
        QCOMPARE(window->parentWidget(), parent.get());
        parent.reset();
        QVERIFY(window.isNull());
    }
};

QUORIN_TEST(TestMainWindowEnd);
#include "tst_main_window_end.moc"
