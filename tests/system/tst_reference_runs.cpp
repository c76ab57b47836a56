// SPDX-License-Identifier: GPL-3.0-or-later
// Whole runs through both windows against known figures, texts and files.
#include "drivers/RunDriver.h"
#include "support/Files.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <cmath>
#include <functional>

using namespace quorin;

namespace {

using Listener = std::function<bool(const Data& data)>; // whether the next answer is right

enum Hearing { hearsDepth, hearsDifference, guesses };

Listener listener(Hearing hearing)
{
    switch (hearing) {
    case hearsDepth:
        return [](const Data& data) { return data.md[deviant] >= 0.1; };
    case hearsDifference:
        return [](const Data& data) { return data.fd[deviant] >= 0.002; };
    case guesses:
        break;
    }
    return [](const Data& data) { return data.records.size() % 2 == 0; };
}

// What the listener and the experimenter get from a run.
struct Outcome {
    int nTrials;
    QString threshold; // of the text shown
    QString reactionTime; // of the text shown
    QByteArray file;
    QVector<Record> records;
};

QString between(const QString& text, const QString& before, const QString& after)
{
    const int begin = text.indexOf(before) + before.size();
    return text.mid(begin, text.indexOf(after, begin) - begin);
}

// Replaces the reaction times that were measured, so that a run's file is always the same: some
// with decimals, some so long that they get an exponent.
void dictateReactionTimes(MainWindow& window)
{
    QVector<Record>& records = Probe::data(window).records;
    for (int i = 0; i < records.size(); ++i) {
        records[i].reactionTime = i % 5 == 4 ? 1234567.0 + i : 734.25 + 10 * i;
    }
    Probe::timerReaction(window)->invalidate(); // the last answer counts 0 ms
}

Outcome run(Hearing hearing, const QString& path, const QString& duration = "600.00")
{
    ModalBoxes boxes;
    boxes.chooseFile(path);
    MainWindow window;
    if (hearing == hearsDifference) {
        choose(window, 0, 0);
    }
    typeDurations(window, duration);
    checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
    RunDriver driver(window);
    SubjectWindow& subject = driver.begin();
    constexpr int mostTrials = 100;
    const Listener hears = listener(hearing);
    while (!buttonOf(subject, "pushButtonDone")->isVisible()
        && Probe::data(window).nTrials <= mostTrials) {
        driver.playTrial();
        dictateReactionTimes(window);
        driver.answerRightly(hears(Probe::data(window)));
    }

    const QString text = labelOf(subject, "labelThreshold")->text();
    return {Probe::data(window).nTrials, text.left(text.indexOf(",   ")),
        between(text, "Reaction Time = ", " ms"), contentOf(path), Probe::data(window).records};
}

struct Line {
    double value;
    bool isCorrect;
    double reactionTime;
};

QVector<Line> recordLines(const QByteArray& file)
{
    QVector<Line> lines;
    QList<QByteArray> texts = file.split('\n');
    texts.removeLast(); // nothing follows the last line's end
    for (const QByteArray& text : texts.mid(1)) {
        const QList<QByteArray> fields = text.trimmed().split('\t');
        lines.append({fields[0].toDouble(), fields[3] == "1", fields[4].toDouble()});
    }
    return lines;
}

// The mean over the last eight values at which the answers changed between right and wrong.
double thresholdFrom(const QVector<Line>& lines)
{
    QVector<double> reversals;
    for (int i = 1; i < lines.size(); ++i) {
        if (lines[i].isCorrect != lines[i - 1].isCorrect) {
            reversals.append(lines[i].value);
        }
    }
    const QVector<double> last = reversals.mid(reversals.size() - 8);
    return std::accumulate(last.cbegin(), last.cend(), 0.0) / last.size();
}

double meanReactionTime(const QVector<Line>& lines)
{
    double sum = 0.0;
    for (const Line& line : lines) {
        sum += line.reactionTime;
    }
    return sum / lines.size();
}

// What one more in the last digit of a shown number adds.
double unitOfLastDigit(const QString& shown)
{
    const int point = shown.indexOf('.');
    return point < 0 ? 1.0 : std::pow(10.0, point + 1 - shown.size());
}

} // namespace

Q_DECLARE_METATYPE(Hearing)

class TestReferenceRuns : public WindowTest {
    Q_OBJECT

private slots:
    void run_endsWithTheKnownFigures_data()
    {
        addColumns<Hearing, int, QString, QString, QString>(
            "hearing", "nTrials", "before", "number", "after");
        addRow("hears a depth of 10 % and more", hearsDepth, 29,
            "Modulation Threshold = ", "11.2679", " %");
        addRow("hears a difference of 2 Hz and more", hearsDifference, 36,
            "Frequency Difference = ", "2.24824", " Hz");
        addRow("right and wrong in turn", guesses, 15, "Modulation Threshold = ", "89.5735", " %");
    }

    void run_endsWithTheKnownFigures()
    {
        QFETCH(Hearing, hearing);
        QFETCH(int, nTrials);
        QFETCH(QString, before);
        QFETCH(QString, number);
        QFETCH(QString, after);
        const QTemporaryDir folder;
        const Outcome outcome = run(hearing, folder.filePath("results.txt"));
        QCOMPARE(outcome.nTrials, nTrials);
        QCOMPARE(outcome.records.size(), nTrials);
        QCOMPARE(outcome.threshold, before + number + after);

        const QVector<Line> lines = recordLines(outcome.file);
        QCOMPARE(lines.size(), nTrials);
        QVERIFY(qAbs(thresholdFrom(lines) - number.toDouble()) <= unitOfLastDigit(number));
        QVERIFY(qAbs(meanReactionTime(lines) - outcome.reactionTime.toDouble())
            <= unitOfLastDigit(outcome.reactionTime));
    }

    void run_isTheSame_underAGermanLocale_data()
    {
        QTest::addColumn<Hearing>("hearing");
        addRow("depth", hearsDepth);
        addRow("difference", hearsDifference);
    }

    void run_isTheSame_underAGermanLocale()
    {
        QFETCH(Hearing, hearing);
        const QTemporaryDir folder;
        const QString brief("25.00"); // has no part in the results and saves time
        QLocale::setDefault(QLocale::c());
        qsrand(1);
        const Outcome neutral = run(hearing, folder.filePath("neutral.txt"), brief);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(QLocale().toString(1234.5, 'f', 1), QString("1.234,5"));
        qsrand(1);
        const Outcome german = run(hearing, folder.filePath("german.txt"), brief);

        QCOMPARE(recordLines(neutral.file).size(), neutral.nTrials);
        QCOMPARE(german.file, neutral.file);
        QCOMPARE(german.threshold, neutral.threshold);
        QCOMPARE(german.reactionTime, neutral.reactionTime);
    }
};

QUORIN_TEST(TestReferenceRuns);
#include "tst_reference_runs.moc"
