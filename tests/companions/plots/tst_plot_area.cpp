// SPDX-License-Identifier: GPL-3.0-or-later
// Where values are drawn in a plot.
#include "plots/PlotArea.h"
#include "support/QuietTest.h"

#include <QImage>
#include <QPainter>
#include <QPen>

#include <cmath>
#include <functional>

namespace {

using Drawn = std::function<void(PlotArea&)>;

// 300 x 200 pixels; the inside is 210 x 118 from (72, 34), and is worth 210 by 118.
QImage drawnImage(const Drawn& draw)
{
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PlotArea plot(painter, QRectF(0, 0, 300, 200), Axis("", Axis::Scale::linear, 0, 210),
        Axis("", Axis::Scale::linear, 0, 118));
    draw(plot);
    return image;
}

QRect boundsOfInk(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != Qt::white) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

} // namespace

class TestPlotArea : public QuietTest {
    Q_OBJECT

private slots:
    void values_areDrawnWhereTheAxesSay()
    {
        drawnImage([](const PlotArea& plot) {
            QCOMPARE(plot.inside(), QRectF(72, 34, 210, 118));
            QCOMPARE(plot.at({0, 0}), QPointF(72, 152));
            QCOMPARE(plot.at({210, 118}), QPointF(282, 34));
        });
        const QImage image = drawnImage([](PlotArea& plot) {
            plot.drawMarks({{100, 50}}, PlotArea::Mark::dot, Qt::black);
        });
        QCOMPARE(image.pixelColor(172, 102), QColor(Qt::black));
        QVERIFY(QRect(167, 97, 11, 11).contains(boundsOfInk(image)));
    }

    void curves_areClippedToTheInside()
    {
        const QImage image = drawnImage([](PlotArea& plot) {
            plot.drawLine({{-1000, -1000}, {1000, 1000}}, QPen(Qt::black, 3));
            plot.drawBar(-50, 20, 500, Qt::black);
            plot.drawMarks({{0, 0}, {500, 20}}, PlotArea::Mark::ring, Qt::black);
        });
        QCOMPARE(boundsOfInk(image).topLeft(), QPoint(72, 34));
        QVERIFY(QRect(72, 34, 210, 118).contains(boundsOfInk(image)));
    }

    void line_isBroken_whereAPointCannotBeShown()
    {
        const QImage image = drawnImage([](PlotArea& plot) {
            plot.drawLine(
                {{0, 50}, {50, 50}, {std::nan(""), 50}, {100, 50}, {150, 50}}, QPen(Qt::black, 3));
        });
        QCOMPARE(image.pixelColor(72 + 25, 102), QColor(Qt::black));
        QCOMPARE(image.pixelColor(72 + 75, 102), QColor(Qt::white));
        QCOMPARE(image.pixelColor(72 + 125, 102), QColor(Qt::black));
    }

    void linesAcross_reachBothEnds()
    {
        const QRect upright = boundsOfInk(
            drawnImage([](PlotArea& plot) { plot.drawLineAtX(100, QPen(Qt::black, 1)); }));
        QCOMPARE(upright.top(), 34);
        QCOMPARE(upright.bottom(), 151);
        QVERIFY(upright.width() <= 2);
        const QRect level = boundsOfInk(
            drawnImage([](PlotArea& plot) { plot.drawLineAtY(50, QPen(Qt::black, 1)); }));
        QCOMPARE(level.left(), 72);
        QCOMPARE(level.right(), 281);
        QVERIFY(level.height() <= 2);
    }

    void frame_hasLabelsOutside()
    {
        const QRect ink = boundsOfInk(drawnImage([](PlotArea& plot) { plot.drawFrame("title"); }));
        QVERIFY(ink.left() > 15 && ink.left() < 65);
        QVERIFY(ink.top() < 30);
        QVERIFY(ink.bottom() > 158);
    }
};

QUORIN_TEST(TestPlotArea);
#include "tst_plot_area.moc"
