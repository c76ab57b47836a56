// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as PNG, SVG and PDF files, each with the mark of the program that made it.
#include "plots/PictureFile.h"

#include "output/OutputFile.h"
#include "plots/Palette.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QLoggingCategory>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr int pixelsPerInch = 96;
constexpr int pointsPerInch = 72;
constexpr int pngScale = 2;
constexpr int fastPng = 80; // a third larger than by the default, in a third of the time
constexpr int pdfScale = 10; // fine enough that the page's integer grid does not show

QString kindOf(const QString& path)
{
    return QFileInfo(path).suffix().toLower();
}

bool paint(QPaintDevice& device, qreal scale, const QSize& size, const Drawing& draw)
{
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white); // an SVG has no background of its own
    draw(painter, size);
    return painter.end();
}

bool paintPng(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QImage image(size * pngScale, QImage::Format_RGB32);
    if (!paint(image, pngScale, size, draw)) {
        return false;
    }
    QImage picture = withPalette(image);
    picture.setText("Software", makerText());
    return picture.save(&buffer, "PNG", fastPng);
}

bool paintSvg(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setDescription(makerText());
    generator.setResolution(pixelsPerInch);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    return paint(generator, 1, size, draw);
}

bool paintPdf(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QPdfWriter writer(&buffer);
    writer.setCreator(makerText());
    writer.setResolution(pixelsPerInch * pdfScale);
    writer.setPageSize(
        QPageSize(QSizeF(size) * pointsPerInch / pixelsPerInch, QPageSize::Point, "plot"));
    writer.setPageMargins(QMarginsF());
    return paint(writer, pdfScale, size, draw);
}

bool paintKind(const QString& kind, QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    if (kind == "png") {
        return paintPng(buffer, size, draw);
    }
    return kind == "svg" ? paintSvg(buffer, size, draw) : paintPdf(buffer, size, draw);
}

} // namespace

void drawWithoutDisplay()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules("default.warning=false");
}

QString pictureNameError(const QString& path)
{
    const QString kind = kindOf(path);
    if (kind == "png" || kind == "svg" || kind == "pdf") {
        return {};
    }
    return "a picture's name must end in .png, .svg or .pdf: " + path;
}

QByteArray svgPicture(const QSize& size, const Drawing& draw)
{
    QBuffer picture;
    if (!picture.open(QIODevice::WriteOnly) || !paintSvg(picture, size, draw)) {
        return {};
    }
    return picture.data().mid(picture.data().indexOf("<svg")).trimmed();
}

QString writePicture(const QString& path, const QSize& size, const Drawing& draw, bool isForced)
{
    QString nameError = pictureNameError(path);
    if (!nameError.isEmpty()) {
        return nameError;
    }
    // Nothing is drawn for a file that may not be replaced.
    const OutputFile file {path, OutputFile::Kind::marked, {}, isForced};
    QString obstacle = outputObstacle(file);
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    QBuffer picture;
    if (!picture.open(QIODevice::WriteOnly) || !paintKind(kindOf(path), picture, size, draw)) {
        return path + ": could not be drawn";
    }
    return writeOutput(file, picture.data());
}
