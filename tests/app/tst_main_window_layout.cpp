// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's texts, grids, sizes and alignments.
#include "app/ObjectNames.h"
#include "support/WindowTest.h"

#include <QGridLayout>

namespace {

QString shownText(QWidget* widget)
{
    if (const auto* field = qobject_cast<QLineEdit*>(widget))
        return field->text();
    if (const auto* label = qobject_cast<QLabel*>(widget))
        return label->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(widget))
        return button->text();
    if (const auto* box = qobject_cast<QComboBox*>(widget))
        return QString("%1 items").arg(box->count());
    return {};
}

// Keeps the texts that named widgets have when the layout gives them their parent: those of their
// making, the panel is filled later.
class ParentingWatcher : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const widget = qobject_cast<QWidget*>(object);
        if (widget == nullptr || widget->objectName().isEmpty())
            return false;
        if (event->type() == QEvent::ParentChange && !texts.contains(widget->objectName()))
            texts.insert(widget->objectName(), shownText(widget));
        return false;
    }

    QMap<QString, QString> texts;
};

QRect placeOf(const QGridLayout* grid, int index)
{
    int row = 0;
    int column = 0;
    int rowSpan = 0;
    int columnSpan = 0;
    grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
    return {column, row, columnSpan, rowSpan};
}

QRect placeOf(const QGridLayout* grid, const QWidget& window, const char* layout)
{
    return placeOf(grid, grid->indexOf(widgetOf<QLayout>(window, layout)));
}

QStringList namesIn(const QLayout* layout)
{
    QStringList names;
    for (int i = 0; i < layout->count(); ++i)
        names.append(layout->itemAt(i)->widget()->objectName());
    return names;
}

void addPlace(const char* name, const char* text, int row, int column, int columnSpan = 1)
{
    QTest::newRow(name) << text << row << column << columnSpan;
}

void verifyNames(const QWidget& window, const QStringList& names)
{
    for (const QString& name : names)
        QVERIFY2(window.findChildren<QObject*>(name).size() == 1, qPrintable(name));
}

} // namespace

class TestMainWindowLayout : public WindowTest {
    Q_OBJECT

private slots:
    void widget_hasItsTextAndPlace_whenMade_data()
    {
        addColumns<QString, int, int, int>("text", "row", "column", "columnSpan");
        addPlace("labelSesType", "Session type", 0, 0);
        addPlace("labelSoundType", "Sound type", 1, 0);
        addPlace("labelMainParameter", "Main parameter", 2, 0);
        addPlace("labelStandard", "Standard", 3, 1);
        addPlace("labelDeviant", "Deviant", 3, 2);
        addPlace("labelCarrierFreq", "Carrier frequency (Hz)", 4, 0);
        addPlace("labelModFreq", "Modulation frequency (Hz)", 5, 0);
        addPlace("labelModDepth", "Modulation depth (%)", 6, 0);
        addPlace("labelFreqDiff", "Frequency difference (Hz)", 7, 0);
        addPlace("labelDuration", "Duration (ms)", 8, 0);
        addPlace("labelNReversals", "Number of reversals", 9, 0);
        addPlace("labelNReversalsToCalc", "Reversals to calculate", 10, 0);
        addPlace("labelSilentInterval", "Silent interval (ms)", 11, 0);
        addPlace("labelSamplingRate", "Sampling rate", 13, 0);
        addPlace("labelSubCode", "Subject code", 14, 0);
        addPlace("labelSesNum", "Session", 15, 0);
        addPlace("comboBoxSesType", "0 items", 0, 1, 2);
        addPlace("comboBoxSoundType", "0 items", 1, 1, 2);
        addPlace("comboBoxMainParameter", "0 items", 2, 1, 2);
        addPlace("lineEditStdCarrierFreq", "1000.00", 4, 1);
        addPlace("lineEditStdModFreq", "40.00", 5, 1);
        addPlace("lineEditStdModDepth", "0.0000", 6, 1);
        addPlace("lineEditStdFreqDiff", "0.0000", 7, 1);
        addPlace("lineEditStdDuration", "600.00", 8, 1);
        addPlace("lineEditDevCarrierFreq", "1000.00", 4, 2);
        addPlace("lineEditDevModFreq", "40.00", 5, 2);
        addPlace("lineEditDevModDepth", "0.0000", 6, 2);
        addPlace("lineEditDevFreqDiff", "0.2000", 7, 2);
        addPlace("lineEditDevDuration", "600.00", 8, 2);
        addPlace("lineEditNReversals", "14", 9, 1);
        addPlace("lineEditNReversalsToCalc", "8", 10, 1);
        addPlace("lineEditSilentInterval", "1000.00", 11, 1);
        addPlace("lineEditSamplingRate", "40000", 13, 1);
        addPlace("lineEditSubCode", "SUB001", 14, 1);
        addPlace("lineEditSesNum", "1", 15, 1, 2);
        addPlace("checkBoxSaveData", "Save data to file", 13, 2);
        addPlace("checkBoxResetMdFd", "Reset md/fd", 14, 2);
    }

    void widget_hasItsTextAndPlace_whenMade()
    {
        ParentingWatcher watcher;
        qApp->installEventFilter(&watcher);
        MainWindow window;
        const QString name(QTest::currentDataTag());
        QTEST(watcher.texts.value(name, "(made with a parent)"), "text");
        const auto* grid = widgetOf<QGridLayout>(window, "gridLayoutParameters");
        const int index = grid->indexOf(widgetOf<QWidget>(window, name));
        QVERIFY(index >= 0);
        QFETCH(int, row);
        QFETCH(int, column);
        QFETCH(int, columnSpan);
        QCOMPARE(placeOf(grid, index), QRect(column, row, columnSpan, 1));
    }

    void texts_areThese_whenOutsideTheGrid()
    {
        ParentingWatcher watcher;
        qApp->installEventFilter(&watcher);
        const MainWindow window;
        const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
        const QMap<QString, QString> expected
            = {{"labelFilePath", "Filepath"}, {"labelFileName", "Filename"},
                {"lineEditFilePath", desktop}, {"lineEditFileName", "SUB001.dat"},
                {"pushButtonView", "View"}, {"pushButtonGo", "Go"}, {"pushButtonQuit", "Quit"}};
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(watcher.texts.value(it.key(), "(made with a parent)"), it.value());
    }

    void filePath_isTheDesktop_whenMade()
    {
        MainWindow window;
        QCOMPARE(Probe::filePath(window),
            QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
    }

    void rowLayouts_holdTheseWidgets_whenMade()
    {
        MainWindow window;
        QCOMPARE(namesIn(widgetOf<QHBoxLayout>(window, "hBoxLayoutButtons")),
            QStringList({"pushButtonView", "pushButtonGo", "pushButtonQuit"}));
        QCOMPARE(namesIn(widgetOf<QHBoxLayout>(window, "hBoxLayoutFilePath")),
            QStringList({"labelFilePath", "lineEditFilePath"}));
        QCOMPARE(namesIn(widgetOf<QHBoxLayout>(window, "hBoxLayoutFileName")),
            QStringList({"labelFileName", "lineEditFileName"}));
    }

    void layouts_areInTheirPlaces_whenMade()
    {
        MainWindow window;
        const auto* grid = widgetOf<QGridLayout>(window, "gridLayoutParameters");
        QCOMPARE(placeOf(grid, window, "hBoxLayoutButtons"), QRect(0, 12, 3, 1));
        QCOMPARE(placeOf(grid, window, "hBoxLayoutFilePath"), QRect(0, 16, 3, 1));
        QCOMPARE(placeOf(grid, window, "hBoxLayoutFileName"), QRect(0, 17, 3, 1));
        QCOMPARE(grid->count(), 40);
        QCOMPARE(grid->rowCount(), 18);
        QCOMPARE(grid->columnCount(), 3);
    }

    void mainGrid_givesTheChartsTwoThirds_whenMade()
    {
        MainWindow window;
        const auto* grid = widgetOf<QGridLayout>(window, "gridLayoutMain");
        QCOMPARE(grid->count(), 2);
        QCOMPARE(placeOf(grid, window, "gridLayoutParameters"), QRect(0, 0, 1, 1));
        QCOMPARE(placeOf(grid, window, "gridLayoutCharts"), QRect(1, 0, 1, 1));
        QCOMPARE(grid->columnStretch(0), 1);
        QCOMPARE(grid->columnStretch(1), 2);
        QCOMPARE(widgetOf<QWidget>(window, "centralWidget")->layout(),
            static_cast<const QLayout*>(grid));
        QCOMPARE(window.QMainWindow::centralWidget(), widgetOf<QWidget>(window, "centralWidget"));
    }

    void values_areCentred_whenTheyAreTheThirteen()
    {
        const MainWindow window;
        QStringList centred({"lineEditStdCarrierFreq", "lineEditStdModFreq", "lineEditStdModDepth",
            "lineEditStdFreqDiff", "lineEditStdDuration", "lineEditDevCarrierFreq",
            "lineEditDevModFreq", "lineEditDevModDepth", "lineEditDevFreqDiff",
            "lineEditDevDuration", "lineEditNReversals", "lineEditNReversalsToCalc",
            "lineEditSilentInterval"});
        QStringList found;
        for (const QLineEdit* field : window.findChildren<QLineEdit*>()) {
            if (field->alignment().testFlag(Qt::AlignHCenter))
                found.append(field->objectName());
        }
        found.sort();
        centred.sort();
        QCOMPARE(found, centred);
    }

    void headings_areCentredAndWide_whenMade()
    {
        MainWindow window;
        for (const QLabel* heading :
            {labelOf(window, "labelStandard"), labelOf(window, "labelDeviant")}) {
            QCOMPARE(
                heading->alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignHCenter));
            QCOMPARE(heading->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
            QCOMPARE(heading->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
            QCOMPARE(heading->minimumWidth(), 100);
        }
        QCOMPARE(labelOf(window, "labelSesType")->minimumWidth(), 0);
        QVERIFY(!labelOf(window, "labelSesType")->alignment().testFlag(Qt::AlignHCenter));
    }

    void titles_areThese_whenMade()
    {
        const QString start(
            "Quorin Lab | Frequency Discrimination and Modulation Detection (v062)");
        const MainWindow mainWindow;
        const SubjectWindow subjectWindow(nullptr);
        QCOMPARE(mainWindow.windowTitle(), start + " | Main Window");
        QCOMPARE(subjectWindow.windowTitle(), start + " | Subject Window");
    }

    void objects_haveTheirMembersNames_whenMade()
    {
        const MainWindow mainWindow;
        const SubjectWindow subjectWindow(nullptr);
        QCOMPARE(panelNames().size(), 51);
        verifyNames(mainWindow, panelNames());
        verifyNames(mainWindow,
            {"standardWaveView", "deviantWaveView", "standardSpectrumView", "deviantSpectrumView",
                "trendView"});
        verifyNames(subjectWindow,
            {"pushButtonChoice1", "pushButtonChoice2", "pushButtonChoice3", "pushButtonChoice4",
                "pushButtonIAmReady", "pushButtonDone", "labelThreshold", "gridLayout",
                "centralWidget"});
    }
};

QUORIN_TEST(TestMainWindowLayout);
#include "tst_main_window_layout.moc"
