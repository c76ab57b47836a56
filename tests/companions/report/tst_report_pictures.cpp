// SPDX-License-Identifier: GPL-3.0-or-later
// The marks and lines in the pictures of runs and of subjects, read from SVG files.
#include "SimulatedRun.h"
#include "plots/PictureFile.h"
#include "report/LearningPicture.h"
#include "report/RunPicture.h"
#include "report/SubjectPicture.h"
#include "support/QuietTest.h"

#include <QGuiApplication>

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

constexpr double ringRadius = 6;
constexpr double dotRadius = 2.75;
constexpr int firstUsed = 14 - 8; // of the reversals
// Coordinates in the file have 6 significant digits.
constexpr double coordinateTolerance = 0.002;

Run runOf(const Data& data)
{
    Run run;
    run.path = "A_test001_noise_modulation depth.txt";
    run.fileName = run.path;
    run.isNamed = true;
    run.data = data;
    for (Record& record : run.data.records) {
        record.value *= 100;
    }
    judgeRun(run);
    return run;
}

QString svgOf(const QSize& size, const Drawing& draw)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.svg");
    const QString error = writePicture(path, size, draw);
    return error.isEmpty() ? QString::fromUtf8(contentOf(path)) : error;
}

QString svgOf(const Run& run)
{
    return svgOf(runPictureSize,
        [&run](QPainter& painter, const QSize& size) { drawRun(painter, size, run); });
}

QString svgOf(const Subject& subject)
{
    return svgOf(subjectPictureSize,
        [&subject](QPainter& painter, const QSize& size) { drawSubject(painter, size, subject); });
}

// The centres of the circles of a radius, in the order in which they were drawn.
QVector<QPointF> circles(const QString& svg, double radius)
{
    static const QRegularExpression circle(
        "<circle cx=\"([-.0-9]+)\" cy=\"([-.0-9]+)\" r=\"([.0-9]+)\"/>");
    QVector<QPointF> centres;
    auto matches = circle.globalMatch(svg);
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (match.captured(3).toDouble() == radius) {
            centres.append({match.captured(1).toDouble(), match.captured(2).toDouble()});
        }
    }
    return centres;
}

// How many squares of a side are drawn.
int squares(const QString& svg, double side)
{
    const QString text = QString::number(side);
    // moc loses its way in a raw string with quotation marks.
    // NOLINTBEGIN(modernize-raw-string-literal)
    return svg.count(QRegularExpression(
        "<rect x=\"[-.0-9]+\" y=\"[-.0-9]+\" width=\"" + text + "\" height=\"" + text + "\""));
    // NOLINTEND(modernize-raw-string-literal)
}

// How many lines are drawn in a colour, "#rrggbb".
int linesOf(const QString& svg, const QString& color)
{
    int count = 0;
    for (const QString& group : svg.split("<g ")) {
        if (group.contains("stroke=\"" + color + '"')) {
            count += group.count("<polyline") + group.count("<path");
        }
    }
    return count;
}

// The height of the broken line.
double thresholdHeight(const QString& svg)
{
    static const QRegularExpression line(
        "stroke-dasharray.*?<(?:path|polyline)[^>]*?[-.0-9]+,([-.0-9]+) ",
        QRegularExpression::DotMatchesEverythingOption);
    return line.match(svg).captured(1).toDouble();
}

int correctAnswers(const Run& run)
{
    return static_cast<int>(std::lround(run.percentCorrect * run.data.nTrials / 100));
}

} // namespace

class TestReportPictures : public QuietTest {
    Q_OBJECT

private slots:
    void reversals_areRinged_whereTheyAre()
    {
        const Run run = runOf(simulatedRun(modulationDepthParameter, 1));
        const QVector<QPointF> rings = circles(svgOf(run), ringRadius);
        QCOMPARE(rings.size(), 8); // those that the threshold uses
        QCOMPARE(squares(svgOf(run), 2 * ringRadius), 14 - 8);
        // The axis goes from trial 0 at the left to one beyond the last.
        const double left = 72;
        const double width = runPictureSize.width() - left - 18;
        for (int i = 0; i < rings.size(); ++i) {
            const double x
                = left + width * (run.reversalTrials[firstUsed + i] + 1) / (run.data.nTrials + 1);
            QVERIFY(qAbs(rings[i].x() - x) <= coordinateTolerance);
        }
    }

    void answers_areMarkedApart_inBothPlots()
    {
        const Run run = runOf(simulatedRun(modulationDepthParameter, 1));
        const QString svg = svgOf(run);
        const int nCorrect = correctAnswers(run);
        QVERIFY(nCorrect > 0 && nCorrect < run.data.nTrials);
        QCOMPARE(circles(svg, dotRadius).size(), 2 * nCorrect);
        const int linesOfACross = 2;
        QCOMPARE(linesOf(svg, "#cc3322"), 2 * linesOfACross * (run.data.nTrials - nCorrect));
    }

    void threshold_hasItsLine_onTheLogarithmicAxis()
    {
        const Run run = runOf(simulatedRun(modulationDepthParameter, 1));
        const QString svg = svgOf(run);
        const QVector<QPointF> rings = circles(svg, ringRadius);
        const auto height = [&](int i) { return rings[i].y(); };
        const auto level = [&](int i) { return std::log(run.data.reversals[firstUsed + i]); };
        int other = 1;
        while (level(other) == level(0)) {
            ++other;
        }
        const double slope = (height(other) - height(0)) / (level(other) - level(0));
        const double expected = height(0) + slope * (std::log(run.data.threshold) - level(0));
        constexpr double tolerance = 0.05; // two heights of 6 digits, extrapolated
        QVERIFY(qAbs(thresholdHeight(svg) - expected) <= tolerance);
        QVERIFY(svg.contains(QString("threshold %1 %").arg(run.data.threshold, 0, 'g', 6)));
    }

    void picture_isDrawn_whateverTheValues()
    {
        Data data = simulatedRun(modulationDepthParameter, 1);
        for (Record& record : data.records) {
            record.value = 0.0;
        }
        QCOMPARE(circles(svgOf(runOf(data)), ringRadius).size(), 8);
        for (Record& record : data.records) {
            record.value = std::numeric_limits<double>::quiet_NaN();
        }
        QCOMPARE(circles(svgOf(runOf(data)), ringRadius).size(), 0);
        for (Record& record : data.records) {
            record.value = -std::numeric_limits<double>::infinity();
        }
        QCOMPARE(circles(svgOf(runOf(data)), ringRadius).size(), 0);
    }

    void noise_isDrawnInSquares_andBrokenLines()
    {
        QVector<Run> runs;
        for (unsigned seed = 1; seed <= 3; ++seed) {
            runs.append(runOf(simulatedRun(modulationDepthParameter, seed)));
            runs.last().data.soundType = noiseCarrier;
            runs.last().data.sesType = seed == 1 ? 0 : 1;
        }
        const QString svg = svgOf(Subject {"A", "A", runs});
        QCOMPARE(squares(svg, 2 * ringRadius), 1); // practice
        QCOMPARE(squares(svg, 2 * dotRadius), 2);
        QCOMPARE(svg.count("stroke-dasharray"), 3);
        QVERIFY(svg.contains("SD of the reversals (%)"));
    }

    void runs_haveWholeNumbers()
    {
        const QString svg
            = svgOf(Subject {"A", "A", {runOf(simulatedRun(modulationDepthParameter, 1))}});
        QVERIFY(svg.contains(">1</text>"));
        QVERIFY(!svg.contains(">0.5</text>"));
    }

    void learning_hasAMarkForEachRun_atItsSession()
    {
        Subject subject {"A", "A", {}};
        for (unsigned seed = 1; seed <= 4; ++seed) {
            subject.runs.append(runOf(simulatedRun(modulationDepthParameter, seed)));
            subject.runs.last().data.sesType = 1;
            subject.runs.last().data.sesNum = seed <= 2 ? 1 : 2;
        }
        const QString svg = svgOf(learningPictureSize, [&](QPainter& painter, const QSize& size) {
            drawLearning(painter, size, subject, CurveAxis::session);
        });
        const QVector<QPointF> dots = circles(svg, dotRadius);
        QCOMPARE(dots.size(), 4);
        QCOMPARE(dots[0].x(), dots[1].x());
        QCOMPARE(dots[2].x(), dots[3].x());
        QVERIFY(dots[0].x() < dots[2].x());

        QVERIFY(!hasLearningCurve(subject, CurveAxis::date)); // no file, no date
        subject.runs[0].written = QDateTime(QDate(2026, 3, 1), QTime(9, 0));
        QVERIFY(hasLearningCurve(subject, CurveAxis::date));
        subject.runs = {subject.runs[1]};
        subject.runs[0].isNamed = false;
        QVERIFY(!hasLearningCurve(subject, CurveAxis::session));
    }

    void subject_hasAMarkForEachRun()
    {
        QVector<Run> runs;
        for (unsigned seed = 1; seed <= 5; ++seed) {
            runs.append(runOf(simulatedRun(modulationDepthParameter, seed)));
            runs.last().data.sesType = seed <= 2 ? 0 : 1;
        }
        runs.append(runOf(simulatedRun(carrierFrequencyParameter, 6)));
        runs.last().data.sesType = 1;
        const QString svg = svgOf(Subject {"A", "A", runs});
        QCOMPARE(circles(svg, ringRadius).size(), 2); // practice
        QCOMPARE(circles(svg, dotRadius).size(), 4 + 6); // tests, and mean times of right answers
        QVERIFY(svg.contains(">Subject A<"));
        QVERIFY(svg.contains("threshold: modulation depth (%)"));
        QVERIFY(svg.contains("threshold: frequency difference (Hz)"));
        QVERIFY(svg.contains("of 14 reversals;   | \u00b1 SD of the reversals (Hz, %)<"));
    }
};

QUORIN_TEST(TestReportPictures);
#include "tst_report_pictures.moc"
