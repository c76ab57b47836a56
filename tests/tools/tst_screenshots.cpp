// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the guide: the same every time, and of the right moments.
#include "support/QuietTest.h"

#include <QImage>

namespace {

constexpr int timeoutMs = 60000;

// A picture's file, of one run.
QByteArray contents(const QDir& folder, const QString& name)
{
    QFile file(folder.filePath("guide-" + name + ".png"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestScreenshots : public QuietTest {
    Q_OBJECT

private:
    // The save dialog shows what an earlier run has saved.
    static bool run(const QString& folder, const QStringList& options = {})
    {
        QFile::remove(QDir::home().filePath("Desktop/SUB001_test001_noise_modulation depth.txt"));
        QProcess program;
        program.start(SCREENSHOTS_PROGRAM, options + QStringList {folder});
        return program.waitForFinished(timeoutMs) && program.exitStatus() == QProcess::NormalExit
            && program.exitCode() == 0;
    }

private slots:
    void pictures_areTheSame_everyTime()
    {
        const QTemporaryDir first;
        const QTemporaryDir second;
        QVERIFY(run(first.path()));
        QVERIFY(run(second.path()));
        const QStringList names = {"after-run", "after-view", "main-start", "parameters", "result",
            "save", "subject-feedback", "subject-ready", "subject-sound", "subject-start",
            "subject-wait"};
        QCOMPARE(QDir(first.path()).entryList(QDir::Files).size(), names.size());
        for (const QString& name : names) {
            const QByteArray picture = contents(first.path(), name);
            QVERIFY2(!QImage::fromData(picture).isNull(), qPrintable(name));
            QVERIFY2(picture == contents(second.path(), name), qPrintable(name));
        }
    }

    void pictures_showTheirMoments()
    {
        const QTemporaryDir folder;
        QVERIFY(run(folder.path(), {"--dark"}));
        const QImage sound = QImage::fromData(contents(folder.path(), "subject-sound"));
        const QColor green(0, 255, 0);
        // Of the four intervals side by side, the second sounds.
        QCOMPARE(sound.pixelColor(sound.width() * 5 / 16, sound.height() / 4), green);
        const QImage result = QImage::fromData(contents(folder.path(), "result"));
        QVERIFY(result.pixelColor(2, 2).lightness() < 64);
    }
};

QUORIN_GUILESS_TEST(TestScreenshots);
#include "tst_screenshots.moc"
