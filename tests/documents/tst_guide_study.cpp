// SPDX-License-Identifier: GPL-3.0-or-later
// The guide's study from its protocol to its page: what the guide shows is what is printed.
#include "app/ReactionClock.h"
#include "documents/Guide.h"
#include "drivers/RunDriver.h"
#include "psychometrics/PsychometricFunction.h"
#include "session/AdaptedParameter.h"
#include "session/FlightRecorder.h"
#include "session/PreparedSession.h"
#include "session/SessionOptions.h"
#include "session/StudyCourse.h"
#include "session/TextWindow.h"
#include "support/Files.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <cmath>
#include <memory>
#include <random>

using namespace quorin;

namespace {

/// Shows what the listener took.
class ListenersClock : public ReactionClock {
public:
    explicit ListenersClock(const qint64& ms)
        : m_ms(ms)
    {
    }

    void start() override { }
    void restart() override { }
    qint64 elapsedMs() const override { return m_ms; }

private:
    const qint64& m_ms;
};

/// Hears modulation of noise from one depth on and modulation of a tone from another.
struct VirtualListener {
    double noiseThreshold; ///< fractions
    double toneThreshold;
    uint seed; ///< of the answers, and of positions and noises

    PsychometricFunction hearing(int soundType) const
    {
        constexpr double slopeDb = 2.5;
        return logisticListener(
            soundType == noiseCarrier ? noiseThreshold : toneThreshold, slopeDb);
    }
};

/// A session of a listener, from the first run of the order to the last.
class PlayedSession {
public:
    PlayedSession(const VirtualListener& listener, const Study& study, const QString& folder)
        : m_listener(listener)
        , m_random(listener.seed)
        , m_window(seededWindow(listener.seed))
        , m_driver(*m_window)
        , m_recorder(*m_window, folder, listener.seed)
        , m_course(*m_window, study, false)
        , m_finished(&m_course, &StudyCourse::finished)
    {
        Probe::reactionClock(*m_window) = std::make_unique<ListenersClock>(m_reactionMs);
        m_recorder.askForPlace([this] { return m_course.place(); });
        QObject::connect(&m_course, &StudyCourse::told, &m_course,
            [this](const QString& text) { sheets.append(text); });
    }

    void play()
    {
        m_course.start();
        while (m_finished.isEmpty()) {
            readTexts();
            playRun();
            QTRY_VERIFY(openText() != nullptr || !m_finished.isEmpty());
        }
    }

    QStringList sheets; ///< all that was printed

private:
    static std::unique_ptr<MainWindow> seededWindow(uint seed)
    {
        qsrand(seed);
        return std::make_unique<MainWindow>();
    }

    TextWindow* openText() const
    {
        const QList<TextWindow*> texts = m_window->findChildren<TextWindow*>();
        for (TextWindow* const text : texts) {
            if (text->isVisible()) {
                return text;
            }
        }
        return nullptr;
    }

    void readTexts()
    {
        while (TextWindow* const text = openText()) {
            QTest::keyClick(text, Qt::Key_Return);
            QCoreApplication::processEvents();
        }
    }

    void playRun()
    {
        const Data& data = m_window->sessionRecord();
        buttonOf(*m_window, "pushButtonGo")->click();
        const PsychometricFunction hearing = m_listener.hearing(data.soundType);
        m_driver.beReady();
        while (data.reversalCount < data.nReversals) {
            m_driver.playTrial();
            Probe::disturbances(*m_window).hasOutputFailed = false; // there is none
            const double probability = hearing.probabilityRight(adaptedValue(data));
            m_reactionMs = 300 + static_cast<qint64>(250 * nextFraction(m_random));
            m_reactionMs += static_cast<qint64>(250 * nextFraction(m_random));
            m_driver.answerRightly(nextFraction(m_random) < probability);
        }
        buttonOf(*Probe::subjectWindow(*m_window), "pushButtonDone")->click();
    }

    const VirtualListener m_listener;
    std::mt19937_64 m_random;
    qint64 m_reactionMs = 0;
    ModalBoxes m_boxes; // say yes to closing the listener's window
    std::unique_ptr<MainWindow> m_window;
    RunDriver m_driver;
    FlightRecorder m_recorder;
    StudyCourse m_course;
    QSignalSpy m_finished;
};

/// The indented paragraphs of the guide's chapter, without the indentation.
QStringList examples()
{
    const QString chapter = QString(contentOf(USER_GUIDE))
                                .section("\n## A study from protocol to figure\n", 1)
                                .section("\n## ", 0, 0);
    QStringList paragraphs;
    const QStringList all = chapter.split("\n\n");
    for (const QString& paragraph : all) {
        if (paragraph.startsWith("    ")) {
            paragraphs.append(paragraph.mid(4).replace("\n    ", "\n"));
        }
    }
    return paragraphs;
}

/// Does what a command of the guide tells quorin-session.
/// @return what is printed, or what is wrong
QStringList playedSession(const QString& command, const VirtualListener& listener)
{
    SessionOptions options = sessionOptions(command.split(' '));
    if (options.answer) {
        return {options.answer->text};
    }
    options.seed = listener.seed;
    const PreparedSession prepared = preparedSession(options);
    if (!prepared.errors.isEmpty()) {
        return prepared.errors;
    }
    PlayedSession session(listener, *prepared.study, options.folder);
    session.play();
    return session.sheets;
}

/// What a command of the guide makes quorin-report print, in paragraphs; or what is wrong.
QStringList printedReport(const QString& command)
{
    QProcess program;
    program.start(REPORT_PROGRAM, command.split(' ').mid(1));
    const bool hasEnded = program.waitForFinished() && program.exitCode() == 0;
    return QString::fromUtf8(
        hasEnded ? program.readAllStandardOutput() : program.readAllStandardError())
        .trimmed()
        .split("\n\n");
}

/// From a line of the report's last table.
double geometricMeanIn(const QString& line)
{
    constexpr int columnFromTheEnd = 4;
    const QStringList cells = line.simplified().split(' ');
    return cells.value(cells.size() - columnFromTheEnd).toDouble();
}

const QString protocolName("carriers.csv");
const QString firstCommand(
    "quorin-session study --protocol carriers.csv --subject S01 --order latin");
const QString secondCommand(
    "quorin-session study --protocol carriers.csv --subject S02 --order latin");
const QString reportCommand("quorin-report study --summary --by sound --html study.html");

} // namespace

class TestGuideStudy : public WindowTest {
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_earlierFolder = QDir::currentPath();

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(CARRIERS_PROTOCOL, m_folder.filePath(protocolName)));
        QVERIFY(QDir(m_folder.path()).mkdir("study"));
        QVERIFY(QDir::setCurrent(m_folder.path()));
    }

    void cleanupTestCase() { QDir::setCurrent(m_earlierFolder); }

    void study_printsWhatTheGuideShows()
    {
        const QStringList first = playedSession(firstCommand, {0.060, 0.035, 4});
        const QStringList second = playedSession(secondCommand, {0.080, 0.050, 104});
        const QStringList printed = printedReport(reportCommand);
        constexpr int nRuns = 4; // of each
        QCOMPARE(first.size(), nRuns + 1);
        QCOMPARE(second.size(), nRuns + 1);
        constexpr int nBeforeSubjects = 2; // the rule, and the table with the names of the files
        const QStringList shown
            = QStringList {contentOf(protocolName).trimmed(), "mkdir study\n" + firstCommand,
                  first[0].trimmed(), secondCommand, second[0].trimmed(), reportCommand}
            + printed.mid(nBeforeSubjects);
        QCOMPARE(examples(), shown);

        const QStringList means = printed.constLast().split('\n');
        const double noise = geometricMeanIn(means.value(1));
        const double tone = geometricMeanIn(means.value(2));
        GUIDE_SAYS(QString("are %1 % on the tone and %2 % on noise, a ratio of %3 or %4 dB")
                       .arg(tone, 0, 'f', 1)
                       .arg(noise, 0, 'f', 1)
                       .arg(noise / tone, 0, 'f', 1)
                       .arg(20 * std::log10(noise / tone), 0, 'f', 1));
        const QString page = contentOf("study.html");
        QVERIFY(page.contains("<title>Listening experiment: 8 runs of 2 subjects</title>"));
        QCOMPARE(page.count(R"(<figure class="scroll small">)"), 2 * nRuns);
    }
};

QUORIN_TEST(TestGuideStudy);
#include "tst_guide_study.moc"
