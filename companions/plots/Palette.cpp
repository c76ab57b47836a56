// SPDX-License-Identifier: GPL-3.0-or-later
// Reduces an image to a palette: plots have few colours, and shades only at the edges of lines.
#include "plots/Palette.h"

#include <QHash>
#include <QVector>

#include <algorithm>
#include <limits>

namespace {

constexpr int mostColors = 256;

const QRgb* lineOf(const QImage& image, int y)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

QHash<QRgb, int> countsOf(const QImage& image)
{
    QHash<QRgb, int> counts;
    const int width = image.width(); // a call for each pixel would cost as much as the rest
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* line = lineOf(image, y);
        for (int begin = 0; begin < width;) {
            int end = begin + 1;
            while (end < width && line[end] == line[begin]) {
                ++end;
            }
            counts[line[begin]] += end - begin;
            begin = end;
        }
    }
    return counts;
}

QVector<QRgb> mostFrequent(const QHash<QRgb, int>& counts)
{
    QVector<QRgb> colors(counts.keyBegin(), counts.keyEnd());
    std::sort(colors.begin(), colors.end(), [&counts](QRgb a, QRgb b) {
        const int countA = counts.value(a);
        const int countB = counts.value(b);
        return countA != countB ? countA > countB : a < b;
    });
    colors.resize(std::min(colors.size(), mostColors));
    return colors;
}

int distance(QRgb a, QRgb b)
{
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

uchar nearest(const QVector<QRgb>& palette, QRgb color)
{
    int best = 0;
    int least = std::numeric_limits<int>::max();
    for (int i = 0; i < palette.size() && least > 0; ++i) {
        const int away = distance(palette[i], color);
        if (away < least) {
            least = away;
            best = i;
        }
    }
    return static_cast<uchar>(best);
}

} // namespace

QImage withPalette(const QImage& image)
{
    const QHash<QRgb, int> counts = countsOf(image);
    const QVector<QRgb> palette = mostFrequent(counts);
    QHash<QRgb, uchar> places;
    for (auto color = counts.keyBegin(); color != counts.keyEnd(); ++color) {
        places.insert(*color, nearest(palette, *color));
    }
    QImage result(image.size(), QImage::Format_Indexed8);
    result.setColorTable(palette);
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* line = lineOf(image, y);
        uchar* target = result.scanLine(y);
        for (int x = 0; x < width; ++x) {
            target[x] = x > 0 && line[x] == line[x - 1] ? target[x - 1] : places.value(line[x]);
        }
    }
    return result;
}
