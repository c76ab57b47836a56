// SPDX-License-Identifier: GPL-3.0-or-later
// Fits of subjects: which trials go into them, what is told of them, and their options.
#include "plots/PictureFile.h"
#include "report/FitPicture.h"
#include "report/FitTable.h"
#include "report/ReportOptions.h"
#include "support/WindowTest.h"

#include <QImage>

#include <cmath>

using namespace quorin;

namespace {

void addTrials(Run& run, double value, int nTrials, int nCorrect)
{
    for (int i = 0; i < nTrials; ++i) {
        Record record;
        record.value = value;
        record.correctness = i < nCorrect;
        run.data.records.append(record);
    }
}

Run runOf(const QString& subject, int session)
{
    Run run;
    run.path = subject + ".txt";
    run.isNamed = true;
    run.data.subCode = subject;
    run.data.sesNum = session;
    run.data.sesType = 1;
    run.data.soundType = noiseCarrier;
    run.data.mainParameter = modulationDepthParameter;
    return run;
}

// Two runs with 10 trials at -20 dB and 10 at -10 dB: F is 0.2 and 0.8, m -15 dB, s 5 / ln 4.
SubjectFits exactFits()
{
    Run first = runOf("A", 1);
    addTrials(first, 10.0, 5, 3);
    addTrials(first, 100.0 * std::pow(10.0, -0.5), 10, 9);
    Run second = runOf("A", 2);
    addTrials(second, 10.0, 5, 3);
    addTrials(second, 0.0, 4, 2); // has no value in dB
    SubjectFits fits;
    fits.add(first);
    fits.add(second);
    return fits;
}

FitOptions withoutLapses()
{
    FitOptions options;
    options.isAsked = true;
    options.lapses = {0.0, 0.0};
    options.nSamples = 50;
    return options;
}

QVector<SubjectFit> made(const SubjectFits& fits)
{
    return fits.made(withoutLapses(), [](double) {});
}

QString errorOf(const QStringList& arguments)
{
    const ReportOptions options
        = reportOptions(QStringList {"quorin-report", "folder"} + arguments);
    return options.answer ? options.answer->text : QString();
}

} // namespace

class TestReportFits : public WindowTest {
    Q_OBJECT

private slots:
    void trials_areThoseOfAllRuns_ofASubjectAndCondition()
    {
        SubjectFits fits = exactFits();
        Run other = runOf("A", 3);
        other.data.sesType = 0;
        addTrials(other, 5.0, 8, 6);
        addTrials(other, 50.0, 8, 8);
        fits.add(other);
        Run silent = runOf("B", 1);
        addTrials(silent, 0.0, 4, 2);
        fits.add(silent);
        const QVector<SubjectFit> all = made(fits);
        QCOMPARE(all.size(), 2);
        QCOMPARE(all[0].sessionType, QString("practice"));
        QCOMPARE(all[0].nTrials, 16);
        QCOMPARE(all[1].sessionType, QString("test"));
        QCOMPARE(all[1].nRuns, 2);
        QCOMPARE(all[1].nTrials, 20);
        QCOMPARE(int(all[1].levels.size()), 2);
        QCOMPARE(all[1].levels[0].nCorrect, 6);
    }

    void table_tellsThresholdsInTheUnit()
    {
        const QString table = fitTable(made(exactFits()), withoutLapses());
        QVERIFY(table.startsWith(
            "\nFits: logistic function of the value in dB, guess rate 0.5, lapse rate 0; below "
            "each, 95 % intervals of 50 bootstrap samples, seed 1\n\n"));
        // 100 * 10^(x / 20) with x = -15 - s ln 2, -15 - 0.3466 s ... and -15 dB.
        const QStringList figures = table.split('\n')[4].simplified().split(' ');
        QCOMPARE(
            figures.mid(0, 6), QStringList({"A", "modulation", "depth", "noise", "test", "20"}));
        QCOMPARE(figures.mid(6),
            QStringList({"13.34", "15.4", "17.78", "%", "3.466", "0.000"}) + figures.mid(12));
    }

    void table_hasARowAFit_forOtherPrograms()
    {
        const QStringList rows = fitCsv(made(exactFits()), withoutLapses()).trimmed().split('\n');
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows[0], fitCsvHeadings());
        const QStringList fields = rows[1].split(',');
        QCOMPARE(fields.size(), fitCsvHeadings().split(',').size());
        QCOMPARE(fields.mid(0, 9),
            QStringList(
                {"A", "modulation depth", "noise", "test", "%", "2", "20", "2", "logistic"}));
        QCOMPARE(fields.mid(29), QStringList({"50", "1"}));
    }

    void progress_goesFromNothingToAll()
    {
        double last = 0.0;
        exactFits().made(withoutLapses(), [&last](double share) {
            QVERIFY(share > last);
            last = share;
        });
        QCOMPARE(last, 1.0);
    }

    void picture_hasItsName_andIsDrawn()
    {
        const QTemporaryDir folder;
        const SubjectFit fit = made(exactFits())[0];
        QCOMPARE(fitName(fit), QString("A_modulation depth_noise_test_fit"));
        const QString path = folder.filePath("fit.png");
        QCOMPARE(writePicture(path, fitPictureSize,
                     [&fit](QPainter& painter, const QSize& size) { drawFit(painter, size, fit); }),
            QString());
        // The share of 60 % of 10 trials is a disc on the left, 90 % one on the right.
        const QImage image(path);
        QCOMPARE(image.size(), fitPictureSize * 2);
        int nBlue = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                nBlue += image.pixelColor(x, y) == QColor(177, 208, 229) ? 1 : 0;
            }
        }
        QVERIFY(nBlue > 1000);
    }

    void options_areRead()
    {
        const ReportOptions options
            = reportOptions({"quorin-report", "--fit", "weibull", "--fit-lapse", "0.02",
                "--fit-samples", "200", "--fit-seed", "7", "--fit-csv", "f.csv", "folder"});
        QVERIFY(!options.answer);
        QVERIFY(options.fits.isAsked);
        QCOMPARE(options.fits.shape, FitShape::weibull);
        QCOMPARE(options.fits.lapses.least, 0.02);
        QCOMPARE(options.fits.lapses.most, 0.02);
        QCOMPARE(options.fits.nSamples, 200);
        QCOMPARE(options.fits.seed, quint64(7));
        QCOMPARE(options.fits.csvPath, QString("f.csv"));
        const FitOptions usual = reportOptions({"quorin-report", "--fit", "gauss", "folder"}).fits;
        QCOMPARE(usual.lapses.least, 0.0);
        QCOMPARE(usual.lapses.most, 0.06);
    }

    void badOption_isNamed()
    {
        QCOMPARE(errorOf({"--fit", "spline"}),
            QString("--fit is logistic, weibull or gauss, not \"spline\""));
        QCOMPARE(errorOf({"--fit", "gauss", "--fit-lapse", "0.1"}),
            QString("--fit-lapse must be \"fitted\" or a number from 0 to 0.06, not \"0.1\""));
        QCOMPARE(errorOf({"--fit", "gauss", "--fit-samples", "0"}),
            QString("--fit-samples must be 1 to 100000, not \"0\""));
        QCOMPARE(errorOf({"--fit", "gauss", "--fit-seed", "x"}),
            QString("--fit-seed must be 0 to 2^64 - 1, not \"x\""));
        QCOMPARE(errorOf({"--fit", "gauss", "--fit-csv", ""}), QString("--fit-csv needs a name"));
        QCOMPARE(errorOf({"--fit-seed", "2"}), QString("--fit-seed goes with --fit only"));
    }
};

QUORIN_TEST(TestReportFits);
#include "tst_report_fits.moc"
