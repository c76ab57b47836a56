// SPDX-License-Identifier: GPL-3.0-or-later
// Whether everything in both windows can be seen and read, in light and in dark styles.
#include "app/WindowParts.h"
#include "support/WindowTest.h"

#include <QStyleFactory>
#include <QtCharts/QChartView>

#include <algorithm>
#include <cmath>

namespace {

// What a dark desktop style gives its programs.
QPalette darkPalette()
{
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Base, QColor(27, 30, 32));
    return palette;
}

// Relative luminance and contrast: WCAG 2.1, https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color))
        + 0.0722 * linear(qBlue(color));
}

// The contrast of the darkest to the lightest pixel of a part of a window.
double contrast(QWidget& window, const QRect& part)
{
    const QImage image = window.grab(part).toImage();
    double least = 1.0;
    double most = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double value = luminance(image.pixel(x, y));
            least = std::min(least, value);
            most = std::max(most, value);
        }
    }
    return (most + 0.05) / (least + 0.05);
}

QRect placeIn(const QWidget& window, const QWidget* widget)
{
    return {widget->mapTo(&window, QPoint(0, 0)), widget->size()};
}

// Where a widget's text stands, without its frame.
QRect textPlace(const QWidget& window, const QWidget* widget)
{
    constexpr int frame = 5;
    constexpr int indicator = 20;
    const bool isBox = widget->inherits("QCheckBox");
    const bool isLabel = widget->inherits("QLabel");
    const int side = isLabel ? 0 : frame;
    return placeIn(window, widget).adjusted(isBox ? indicator : side, side, -side, -side);
}

// The parts of a window that the user sees, each an item of one of its layouts.
QVector<QWidget*> shownWidgets(QWidget* centralWidget)
{
    QVector<QWidget*> shown;
    for (QWidget* child :
        centralWidget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible())
            shown.append(child);
    }
    return shown;
}

// The path and the name of the results file scroll in their fields.
bool mayBeWider(const QWidget* widget)
{
    return widget->objectName() == "lineEditFilePath" || widget->objectName() == "lineEditFileName";
}

bool showsItsWholeText(const QWidget* widget)
{
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        constexpr int margins = 10;
        const int textWidth = field->fontMetrics().horizontalAdvance(field->text());
        return mayBeWider(field) || textWidth + margins <= field->width();
    }
    const QSize least
        = widget->inherits("QtCharts::QChartView") ? widget->minimumSizeHint() : widget->sizeHint();
    return widget->width() >= least.width() && widget->height() >= least.height();
}

void compareLayout(QWidget* centralWidget)
{
    const QVector<QWidget*> shown = shownWidgets(centralWidget);
    for (int i = 0; i < shown.size(); ++i) {
        const char* const name = qPrintable(shown[i]->objectName());
        QVERIFY2(centralWidget->rect().contains(shown[i]->geometry()), name);
        QVERIFY2(showsItsWholeText(shown[i]), name);
        for (int j = 0; j < i; ++j)
            QVERIFY2(!shown[i]->geometry().intersects(shown[j]->geometry()), name);
    }
}

} // namespace

class TestWindowLooks : public WindowTest {
    Q_OBJECT

private:
    // Large text, as that of a button or a label is, wants 3; strokes of one pixel do not reach the
    // full colour of the text.
    static constexpr double readable = 3.0;

    static void addScreens()
    {
        QTest::addColumn<QSize>("screen");
        QTest::newRow("1366 x 768") << QSize(1366, 768);
        QTest::newRow("1920 x 1080") << QSize(1920, 1080);
    }

    static void addStyles()
    {
        QTest::addColumn<bool>("isDark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    static void setStyle(bool isDark)
    {
        QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
    }

private slots:
    void initTestCase() { QApplication::setStyle(QStyleFactory::create("Fusion")); }

    // Windows are resized here; the offscreen platform's own screen is too low for one at scale 2.
    void init() override
    {
        WindowTest::init();
        if (qApp->devicePixelRatio() > 1.0) {
            tolerateWarning(
                QRegularExpression("^The screen is too low for the main window by \\d+ pixels$"));
        }
    }

    void cleanup() override
    {
        setStyle(false);
        WindowTest::cleanup();
    }

    void mainWindow_showsAll_data() { addScreens(); }

    void mainWindow_showsAll()
    {
        QFETCH(QSize, screen);
        MainWindow window;
        window.show();
        buttonOf(window, "pushButtonView")->click();
        const QSize size = windowRectangle(screen, {}, true, 0.8, 0.9).size();
        window.resize(size);
        QTRY_COMPARE(window.size(), size);
        compareLayout(widgetOf<QWidget>(window, "centralWidget"));
    }

    void subjectWindow_showsAll_data() { addScreens(); }

    void subjectWindow_showsAll()
    {
        QFETCH(QSize, screen);
        SubjectWindow window(nullptr);
        window.show();
        const QSize size = windowRectangle(screen, {}, true, 0.55, 0.3).size();
        window.resize(size);
        QTRY_COMPARE(window.size(), size);
        compareLayout(widgetOf<QWidget>(window, "centralWidget"));
        buttonOf(window, "pushButtonIAmReady")->click();
        compareLayout(widgetOf<QWidget>(window, "centralWidget"));
        window.finishExperiment(0.123456, 1234.56, 1, 1000.0);
        compareLayout(widgetOf<QWidget>(window, "centralWidget"));
    }

    void mainWindow_isReadable_data() { addStyles(); }

    void mainWindow_isReadable()
    {
        QFETCH(bool, isDark);
        setStyle(isDark);
        MainWindow window;
        window.show();
        buttonOf(window, "pushButtonView")->click();
        for (const QWidget* widget : shownWidgets(widgetOf<QWidget>(window, "centralWidget"))) {
            if (!widget->isEnabled() || widget->inherits("QtCharts::QChartView"))
                continue;
            const double found = contrast(window, textPlace(window, widget));
            QVERIFY2(found >= readable, qPrintable(widget->objectName()));
        }
    }

    void charts_lookTheSame_inEachStyle()
    {
        setStyle(false);
        MainWindow light;
        light.show();
        setStyle(true);
        MainWindow dark;
        dark.show();
        const QImage lightTrend = Probe::trendView(light)->grab().toImage();
        QCOMPARE(Probe::trendView(dark)->grab().toImage(), lightTrend);
    }

    void intervalNumbers_areReadable_inEveryState_data() { addStyles(); }

    void intervalNumbers_areReadable_inEveryState()
    {
        QFETCH(bool, isDark);
        setStyle(isDark);
        SubjectWindow window(nullptr);
        window.show();
        buttonOf(window, "pushButtonIAmReady")->click();
        for (const int state : {0, 1, 2, 3, 4, -1, 1}) {
            window.updateSubjectWindow(state);
            for (const QPushButton* button : choiceButtons(window)) {
                const double found = contrast(window, textPlace(window, button));
                QVERIFY2(found >= readable,
                    qPrintable(QString("%1 in state %2").arg(button->text()).arg(state)));
            }
        }
    }

    void result_isReadable_data() { addStyles(); }

    void result_isReadable()
    {
        QFETCH(bool, isDark);
        setStyle(isDark);
        SubjectWindow window(nullptr);
        window.show();
        window.finishExperiment(0.123456, 1234.56, 1, 1000.0);
        for (const QWidget* widget : shownWidgets(widgetOf<QWidget>(window, "centralWidget")))
            QVERIFY(contrast(window, textPlace(window, widget)) >= readable);
    }

    // Exactly the pixels of a button without the focus, in each of its colours.
    void focus_hidesNoColour()
    {
        SubjectWindow window(nullptr);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        buttonOf(window, "pushButtonIAmReady")->click();
        QPushButton* const button = buttonOf(window, "pushButtonChoice2");
        const QVector<QPair<int, QColor>> colors
            = {{2, QColor(0, 255, 0)}, {3, QColor(240, 240, 240)}};
        for (const auto& [state, color] : colors) {
            window.updateSubjectWindow(state);
            window.setEnabled(true);
            button->setEnabled(true);
            button->clearFocus();
            const QImage without = button->grab().toImage();
            button->setFocus();
            QVERIFY(button->hasFocus());
            QCOMPARE(button->grab().toImage(), without);
            QCOMPARE(without.pixelColor(button->width() / 4, button->height() / 2), color);
        }
    }
};

QUORIN_TEST(TestWindowLooks);
#include "tst_window_looks.moc"
