// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as PNG, SVG and PDF files, and which files they may replace.
#include "plots/PictureFile.h"
#include "support/Files.h"
#include "support/QuietTest.h"

#include <QImage>
#include <QPainter>

namespace {

constexpr QSize pictureSize(200, 100);

void drawBox(QPainter& painter, const QSize& given)
{
    painter.fillRect(QRect(0, 0, given.width() / 2, given.height()), Qt::red);
    painter.drawText(10, 20, "text");
}

} // namespace

class TestPictureFile : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName("quorin-report");
        QCoreApplication::setApplicationVersion("1.2.3");
    }

    void png_isTwiceAsFine()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.PNG");
        QCOMPARE(writePicture(path, pictureSize, drawBox), QString());
        const QImage image(path);
        QCOMPARE(image.size(), QSize(400, 200));
        QCOMPARE(image.pixelColor(190, 190), QColor(Qt::red));
        QCOMPARE(image.pixelColor(210, 190), QColor(Qt::white));
    }

    void svg_hasTheSizeAsked()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.svg");
        QCOMPARE(writePicture(path, pictureSize, drawBox), QString());
        const QByteArray content = contentOf(path);
        QVERIFY(content.contains("viewBox=\"0 0 200 100\""));
        QVERIFY(content.contains(">text</text>"));
        QVERIFY(content.contains("fill=\"#ffffff\""));
        QVERIFY(content.trimmed().endsWith("</svg>"));
    }

    void pdf_isAPageOfTheSizeAsked()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.pdf");
        QCOMPARE(writePicture(path, pictureSize, drawBox), QString());
        const QByteArray content = contentOf(path);
        QVERIFY(content.startsWith("%PDF-"));
        QVERIFY(content.contains("/MediaBox [0 0 150.000000 75.000000]"));
        QVERIFY(content.trimmed().endsWith("%%EOF"));
    }

    void name_tellsTheKind()
    {
        QCOMPARE(pictureNameError("a.b/c.d.svg"), QString());
        QCOMPARE(pictureNameError("a.jpg"),
            QString("a picture's name must end in .png, .svg or .pdf: a.jpg"));
        QVERIFY(!pictureNameError("png").isEmpty());
        QVERIFY(!pictureNameError("").isEmpty());
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.txt");
        QCOMPARE(writePicture(path, pictureSize, drawBox), pictureNameError(path));
        QVERIFY(!QFile::exists(path));
    }

    void nothingIsLeft_whenTheFolderIsMissing()
    {
        const QTemporaryDir folder;
        QCOMPARE(writePicture(folder.filePath("no/a.svg"), pictureSize, drawBox),
            folder.filePath("no/a.svg") + ": there is no folder " + folder.filePath("no")
                + ": make it");
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void picture_isReplaced_onlyIfForcedAndOfACompanion_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("png") << "a.png";
        QTest::newRow("svg") << "a.svg";
        QTest::newRow("pdf") << "a.pdf";
    }

    void picture_isReplaced_onlyIfForcedAndOfACompanion()
    {
        QFETCH(QString, name);
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        QCOMPARE(writePicture(path, pictureSize, drawBox), QString());
        const QByteArray before = contentOf(path);
        const auto draw = [](QPainter& painter, const QSize&) { painter.drawText(9, 20, "other"); };
        QCOMPARE(writePicture(path, pictureSize, draw),
            path + ": is there already: give another name, or --force to replace it");
        QCOMPARE(contentOf(path), before);
        QCOMPARE(writePicture(path, pictureSize, draw, true), QString());
        QVERIFY(contentOf(path) != before);

        fillFile(path, "mine");
        QVERIFY(!writePicture(path, pictureSize, draw, true).isEmpty());
        QCOMPARE(contentOf(path), QByteArray("mine"));
    }

    void earlierFile_stays_whenNothingCanBeDrawn()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.png");
        QCOMPARE(writePicture(path, pictureSize, drawBox), QString());
        const QByteArray before = contentOf(path);
        tolerateWarning(QRegularExpression("QPainter::begin|QImage"));
        QCOMPARE(writePicture(path, QSize(), drawBox, true), path + ": could not be drawn");
        QCOMPARE(contentOf(path), before);
    }
};

QUORIN_TEST(TestPictureFile);
#include "tst_picture_file.moc"
