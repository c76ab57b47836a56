// SPDX-License-Identifier: GPL-3.0-or-later
// How the main window is closed, refuses to close during a run, and is destroyed.
#include "app/ObjectNames.h"
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

// The platform's window gets what the title bar's button sends.
void closeByTitleBar(QWidget& window)
{
    QCloseEvent event;
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

void startRun(MainWindow& window)
{
    buttonOf(window, "pushButtonView")->click();
    buttonOf(window, "pushButtonGo")->click();
}

using NamedObject = QPair<const char*, QObject*>;

QVector<NamedObject> chartsAndTimer(MainWindow& window)
{
    return {
        {"standard wave series", Probe::waveCharts(window)[standard].line.series},
        {"standard wave axis x", Probe::waveCharts(window)[standard].line.axisX},
        {"standard wave axis y", Probe::waveCharts(window)[standard].line.axisY},
        {"standard wave chart", Probe::waveCharts(window)[standard].chart},
        {"standard wave view", Probe::waveCharts(window)[standard].view},
        {"deviant wave series", Probe::waveCharts(window)[deviant].line.series},
        {"deviant wave axis x", Probe::waveCharts(window)[deviant].line.axisX},
        {"deviant wave axis y", Probe::waveCharts(window)[deviant].line.axisY},
        {"deviant wave chart", Probe::waveCharts(window)[deviant].chart},
        {"deviant wave view", Probe::waveCharts(window)[deviant].view},
        {"standard spectrum series", Probe::spectrumCharts(window)[standard].line.series},
        {"standard spectrum axis x", Probe::spectrumCharts(window)[standard].line.axisX},
        {"standard spectrum axis y", Probe::spectrumCharts(window)[standard].line.axisY},
        {"standard spectrum chart", Probe::spectrumCharts(window)[standard].chart},
        {"standard spectrum view", Probe::spectrumCharts(window)[standard].view},
        {"deviant spectrum series", Probe::spectrumCharts(window)[deviant].line.series},
        {"deviant spectrum axis x", Probe::spectrumCharts(window)[deviant].line.axisX},
        {"deviant spectrum axis y", Probe::spectrumCharts(window)[deviant].line.axisY},
        {"deviant spectrum chart", Probe::spectrumCharts(window)[deviant].chart},
        {"deviant spectrum view", Probe::spectrumCharts(window)[deviant].view},
        {"trend series", Probe::trendSeries(window)},
        {"trend axis x", Probe::trendAxisX(window)},
        {"trend axis y", Probe::trendAxisY(window)},
        {"trend chart", Probe::trendChart(window)},
        {"trend view", Probe::trendView(window)},
        {"timerPlay", Probe::timerPlay(window)},
    };
}

QStringList namesOf(const QVector<NamedObject>& objects)
{
    QStringList names;
    for (const NamedObject& object : objects)
        names.append(object.first);
    return names;
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
        QStringList deleted;
        auto window = std::make_unique<MainWindow>();
        const QStringList expected = namesOf(chartsAndTimer(*window)) + panelInOrderOfDeletion();
        const auto note = [&deleted, this](QObject* object, const QString& name) {
            connect(object, &QObject::destroyed, this, [&deleted, name] { deleted.append(name); });
        };
        for (const NamedObject& object : chartsAndTimer(*window))
            note(object.second, object.first);
        for (const QString& name : panelNames())
            note(widgetOf<QObject>(*window, name), name);
        window.reset();
        QCOMPARE(deleted, expected);
    }

    void noBoxOpens_whenTheWindowIsDestroyedDuringARun()
    {
        ModalBoxes boxes;
        QPointer<SubjectWindow> subject;
        {
            MainWindow window;
            window.show();
            startRun(window);
            subject = Probe::subjectWindow(window);
            window.updateMainwindow(0);
            window.playOneSound();
        }
        QVERIFY(subject.isNull());
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
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
