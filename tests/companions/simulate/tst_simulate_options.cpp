// SPDX-License-Identifier: GPL-3.0-or-later
// Options that quorin-simulate refuses, each with what it says.
#include "StartedSimulation.h"
#include "support/QuietTest.h"

namespace {

void row(const char* arguments, const QString& error)
{
    QTest::newRow(arguments) << QString(arguments).split(' ') << error;
}

void addBadSettings()
{
    row("--nonsense", "Unknown option 'nonsense'.");
    row("--seed", "Missing value after '--seed'.");
    row("word", "unknown argument: word");
    row("--listener deaf", "--listener is logistic, weibull, gaussian or constant, not \"deaf\"");
    row("--threshold 0", "--threshold must be a number above 0, at most 1000000, not \"0\"");
    row("--threshold nan", "--threshold must be a number above 0, at most 1000000, not \"nan\"");
    row("--slope -1", "--slope must be a number above 0, at most 1000000, not \"-1\"");
    row("--slope 2,5", "--slope must be a number above 0, at most 1000000, not \"2,5\"");
    row("--lapse 1.1", "--lapse must be a number from 0 to 0.5, not \"1.1\"");
    row("--probability 0.5", "--probability is for a constant listener only");
    row("--listener constant --probability 2",
        "--probability must be a number from 0 to 1, not \"2\"");
    row("--listener constant --threshold 0.1",
        "a constant listener has no --threshold and no --slope");
    row("--parameter pitch", "--parameter is depth or frequency, not \"pitch\"");
    row("--start 1.01", "--start must be a number above 0, at most 1, not \"1.01\"");
    row("--start 1 --parameter frequency",
        "--start must be a number above 0, at most 0.9999, not \"1\"");
    row("--reversals 0", "--reversals must be a whole number from 1 to 10000, not \"0\"");
    row("--reversals 1.5", "--reversals must be a whole number from 1 to 10000, not \"1.5\"");
    row("--reversals 4 --last 5", "--last must be a whole number from 1 to 4, not \"5\"");
    row("--runs 0", "--runs must be a whole number from 1 to 10000000, not \"0\"");
    row("--seed -1", "--seed must be a whole number from 0 to 2^64 - 1, not \"-1\"");
    row("--max-trials x", "--max-trials must be a whole number from 1 to 10000000, not \"x\"");
    row("--threads 0", "--threads must be a whole number from 1 to 256, not \"0\"");
    row("--carrier inf", "--carrier must be a number above 0, at most 1000000, not \"inf\"");
    row("--sound -5", "--sound must be a number from 0 to 3600000, not \"-5\"");
}

void addBadSweeps()
{
    const QString sweep = "--sweep is name=a,b,c or name=from:to or name=from:to:step, numbers, "
                          "at most 10000 of them, not ";
    for (const char* range :
        {"8:", "8:6", "1:10001", "1:5:0", "1:2:3:4", "a:b", "last=", "last=4,x", "start=0.1:inf"}) {
        QTest::newRow(range) << QStringList {"--sweep", range} << sweep + '"' + range + '"';
    }
    row("--sweep 0:6", "--sweep: --reversals must be a whole number from 1 to 10000, not \"0\"");
    row("--sweep last=4,20", "--sweep: --last must be a whole number from 1 to 14, not \"20\"");
    row("--sweep listener=1",
        "--sweep knows no number called \"listener\": threshold, slope, probability, lapse, "
        "reaction, reaction-sd, start, reversals, last, mean-of, carrier, sound, silence, "
        "runs, "
        "seed, max-trials");
    row("--sweep last=4,6 --sweep last=8", "--sweep last stands twice: last=8");
    row("--sweep seed=1:200 --sweep carrier=1:200", "--sweep asks for more than 10000 simulations");
    row("--sweep 8:9 --csv a.csv", "--sweep and --csv do not go together");
    row("--sweep 8:9 --reversals 4", "--sweep reversals and --reversals do not go together");
    row("--sweep 8:9 --detect 2", "--sweep and --detect do not go together");
}

void addBadPlansAndFiles()
{
    row("--detect 1", "--detect must be a ratio other than 1, not \"1\"");
    row("--detect 0", "--detect must be a number from 0.01 to 100, not \"0\"");
    row("--detect 2 --listener constant",
        "--detect wants a --listener with a threshold, not \"constant\"");
    row("--detect 2 --plot a.png", "--detect and --plot do not go together");
    row("--listener-sd 2", "--listener-sd goes with --detect only");
    row("--detect 2 --listener-sd -1", "--listener-sd must be a number from 0 to 40, not \"-1\"");
    row("--mean-of 0", "--mean-of must be a whole number from 1 to 1000, not \"0\"");
    row("--runs 1000000 --mean-of 11", "--runs times --mean-of must be at most 10000000");
    row("--reaction-sd 10 --reaction 0", "--reaction-sd wants a --reaction above 0");
    row("--sound-type tone", "--sound-type is sinusoid or noise, not \"tone\"");
    row("--sound-type noise --parameter frequency",
        "--sound-type noise does not go with --parameter frequency: noise has none");
    row("--help-all", "Unknown option 'help-all'.");
    row("-platform foo", "Unknown option 'platform'.");
    QTest::newRow("no name") << QStringList {"--csv", ""} << QString("--csv needs a name");
    row("--plot a.jpg", "--plot: a picture's name must end in .png, .svg or .pdf: a.jpg");
    row("--track a.txt --tracks 2",
        "--tracks wants a --track that is an existing folder, not \"a.txt\"");
    row("--track . --subject ../AB",
        "--subject becomes part of a file's name and cannot hold a /: ../AB");
    row("--track . --runs 2 --tracks 3", "--tracks must be a whole number from 1 to 2, not \"3\"");
}

} // namespace

class TestSimulateOptions : public QuietTest {
    Q_OBJECT

private slots:
    void badOption_isNamed_andNothingIsSimulated_data()
    {
        addColumns<QStringList, QString>("arguments", "error");
        addBadSettings();
        addBadSweeps();
        addBadPlansAndFiles();
    }

    void badOption_isNamed_andNothingIsSimulated()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        const Ended ended = run(arguments);
        QCOMPARE(ended.errors, "quorin-simulate: " + error + '\n');
        QCOMPARE(ended.output, QString());
        QCOMPARE(ended.status, 2);
    }
};

QUORIN_GUILESS_TEST(TestSimulateOptions);
#include "tst_simulate_options.moc"
