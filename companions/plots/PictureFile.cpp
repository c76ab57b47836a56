// SPDX-License-Identifier: GPL-3.0-or-later
#include "plots/PictureFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QLoggingCategory>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace {

constexpr int pixelsPerInch = 96;
constexpr int pointsPerInch = 72;
constexpr int pngScale = 2;
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
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white); // an SVG has no paper of its own
    draw(painter, size);
    return painter.end();
}

bool paintPng(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QImage image(size * pngScale, QImage::Format_RGB32);
    return paint(image, pngScale, size, draw) && image.save(&buffer, "PNG");
}

bool paintSvg(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(pixelsPerInch);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    return paint(generator, 1, size, draw);
}

bool paintPdf(QBuffer& buffer, const QSize& size, const Drawing& draw)
{
    QPdfWriter writer(&buffer);
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

QString writePicture(const QString& path, const QSize& size, const Drawing& draw)
{
    QString nameError = pictureNameError(path);
    if (!nameError.isEmpty()) {
        return nameError;
    }
    QBuffer picture;
    if (!picture.open(QIODevice::WriteOnly) || !paintKind(kindOf(path), picture, size, draw)) {
        return "could not draw " + path;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(picture.data()) != picture.data().size()
        || !file.commit()) {
        return "could not write " + path + ": " + file.errorString();
    }
    return {};
}
