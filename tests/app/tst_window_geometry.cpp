// SPDX-License-Identifier: GPL-3.0-or-later
// Size and place of both windows on the screen.
#include "app/WindowParts.h"
#include "support/WindowTest.h"

#include <QScreen>

namespace {

// What the offscreen platform has.
constexpr QSize screen(800, 600);

} // namespace

class TestWindowGeometry : public WindowTest {
    Q_OBJECT

private slots:
    void rectangle_isThis_whenCentred_data()
    {
        addColumns<QSize, double, double, QRect>(
            "available", "widthFraction", "heightFraction", "expected");
        const QSize hd(1920, 1080);
        QTest::newRow("main window") << hd << 0.8 << 0.9 << QRect(192, 54, 1536, 972);
        QTest::newRow("subject window") << hd << 0.55 << 0.3 << QRect(432, 378, 1056, 324);
        QTest::newRow("cut to pixels")
            << QSize(1366, 768) << 0.8 << 0.9 << QRect(137, 38, 1092, 691);
        QTest::newRow("odd rest") << QSize(801, 601) << 0.5 << 0.5 << QRect(200, 150, 400, 300);
        QTest::newRow("all") << hd << 1.0 << 1.0 << QRect(0, 0, 1920, 1080);
        QTest::newRow("more than all") << hd << 1.5 << 7.0 << QRect(0, 0, 1920, 1080);
        QTest::newRow("nothing") << hd << 0.0 << 0.0 << QRect(960, 540, 0, 0);
        QTest::newRow("less than nothing") << hd << -0.5 << -1.0 << QRect(960, 540, 0, 0);
        QTest::newRow("wide and flat") << hd << 1.5 << -0.5 << QRect(0, 540, 1920, 0);
    }

    void rectangle_isThis_whenCentred()
    {
        QFETCH(QSize, available);
        QFETCH(double, widthFraction);
        QFETCH(double, heightFraction);
        for (const QPoint& corner : {QPoint(0, 0), QPoint(300, 200)}) {
            QTEST(windowRectangle(available, corner, true, widthFraction, heightFraction),
                "expected");
        }
    }

    void corner_isThis_whenNotCentred_data()
    {
        addColumns<QPoint, QPoint>("corner", "expected");
        QTest::newRow("inside") << QPoint(300, 200) << QPoint(300, 200);
        QTest::newRow("at the limits") << QPoint(5, 40) << QPoint(5, 40);
        QTest::newRow("too far left") << QPoint(4, 200) << QPoint(5, 200);
        QTest::newRow("too high") << QPoint(300, 39) << QPoint(300, 40);
        QTest::newRow("both") << QPoint(0, 0) << QPoint(5, 40);
        QTest::newRow("off the screen") << QPoint(-100, -100) << QPoint(5, 40);
        QTest::newRow("beyond the screen") << QPoint(5000, 4000) << QPoint(5000, 4000);
    }

    void corner_isThis_whenNotCentred()
    {
        QFETCH(QPoint, corner);
        QFETCH(QPoint, expected);
        QCOMPARE(windowRectangle(QSize(1920, 1080), corner, false, 0.5, 0.25),
            QRect(expected, QSize(960, 270)));
        QCOMPARE(windowRectangle(QSize(1920, 1080), corner, false, 1.5, -1.0),
            QRect(expected, QSize(1920, 0)));
    }

    void spacing_isThis_whenTheRowsLeaveRoom_data()
    {
        addColumns<int, int, int>("room", "nRows", "expected");
        QTest::newRow("too high by far") << -100000 << 18 << 0;
        QTest::newRow("too high") << -17 << 18 << 0;
        QTest::newRow("none") << 0 << 18 << 0;
        QTest::newRow("less than one each") << 16 << 18 << 0;
        QTest::newRow("one each") << 17 << 18 << 1;
        QTest::newRow("nearly two each") << 33 << 18 << 1;
        QTest::newRow("two each") << 34 << 18 << 2;
        QTest::newRow("six each and some") << 110 << 18 << 6;
        QTest::newRow("two rows, too high") << -1 << 2 << 0;
        QTest::newRow("two rows") << 9 << 2 << 9;
    }

    void spacing_isThis_whenTheRowsLeaveRoom()
    {
        QFETCH(int, room);
        QFETCH(int, nRows);
        QTEST(fittingSpacing(room, nRows), "expected");
    }

    void mainWindow_coversItsPart_whenMade()
    {
        MainWindow window;
        QCOMPARE(QGuiApplication::primaryScreen()->availableSize(), screen);
        QCOMPARE(Probe::centerWindow(window), true);
        QCOMPARE(Probe::widthFraction(window), 0.8);
        QCOMPARE(Probe::heightFraction(window), 0.9);
        QCOMPARE(window.geometry(), QRect(80, 30, 640, 540));
    }

    void subjectWindow_coversItsPart_whenMade()
    {
        SubjectWindow window(nullptr);
        QCOMPARE(Probe::centerWindow(window), true);
        QCOMPARE(Probe::widthFraction(window), 0.55);
        QCOMPARE(Probe::heightFraction(window), 0.3);
        QCOMPARE(window.geometry(), QRect(180, 210, 440, 180));
    }

    void mainWindow_isMovedAndSized_whenAskedTo()
    {
        MainWindow window;
        window.setGeometry(1, 2, 650, 550);
        window.centerAndResizeMainWindow(false, 0.75, 0.85);
        QCOMPARE(window.geometry(), QRect(5, 40, 600, 510));
        window.move(100, 120);
        window.centerAndResizeMainWindow(false, 1.5, 1.5);
        QCOMPARE(window.geometry(), QRect(100, 120, 800, 600));
        window.centerAndResizeMainWindow(true, 1.0, 0.9);
        QCOMPARE(window.geometry(), QRect(0, 30, 800, 540));
    }

    void subjectWindow_isMovedAndSized_whenAskedTo()
    {
        SubjectWindow window(nullptr);
        window.setGeometry(300, 2, 400, 300);
        window.centerAndResizeSubjectWindow(false, 0.75, 0.5);
        QCOMPARE(window.geometry(), QRect(300, 40, 600, 300));
        window.centerAndResizeSubjectWindow(true, 0.5, 2.0);
        QCOMPARE(window.geometry(), QRect(200, 0, 400, 600));
    }

    void corner_isThatWithoutTheFrame_whenTheWindowIsShown()
    {
        SubjectWindow window(nullptr);
        window.setGeometry(100, 100, 400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QRect before = window.geometry();
        window.centerAndResizeSubjectWindow(false, 0.5, 0.5);
        QCOMPARE(window.geometry().topLeft(), before.topLeft());
        window.hide();
    }
};

QUORIN_TEST(TestWindowGeometry);
#include "tst_window_geometry.moc"
