// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the pictures of the user guide, or of the whole screen, from a silent run in the
// application's windows.
#include "app/MainWindow.h"
#include "demo/Listener.h"
#include "demo/Waiting.h"
#include "drivers/RunDriver.h"
#include "psychometrics/PsychometricFunction.h"
#include "session/Data.h"
#include "session/Units.h"
#include "subject/SubjectWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTextStream>
#include <QTimer>
#include <QWindow>

#include <cstdlib>
#include <optional>
#include <random>

using namespace quorin;

namespace {

// A listener whose answers are the same every time.
constexpr quint64 seed = 20;
// Answers that take no time have a mean reaction time of nearly 0, which differs from run to run,
// and the window grows with its digits. So the window is told of a listener's instead.
constexpr double shownReactionTime = 734.5;

template <typename Object> Object& objectNamed(const char* name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (auto* const found = window->findChild<Object*>(name)) {
            return *found;
        }
    }
    qFatal("there is no %s", name);
}

void click(const char* button)
{
    objectNamed<QPushButton>(button).click();
}

bool write(const QPixmap& picture, const QString& path)
{
    constexpr int best = 0; // of PNG's compression
    if (picture.save(path, "PNG", best)) {
        return true;
    }
    QTextStream(stderr) << "quorin-screenshots: not written: " << path << Qt::endl;
    return false;
}

/// Takes the pictures of one run, which is silent and does not wait.
class Guide {
public:
    /// @param folder of the pictures
    explicit Guide(const QDir& folder);

    /// @return whether all pictures were written
    bool take();

private:
    void takeMainWindow();
    void takeFirstTrial();
    void playToTheEnd();
    void takeMainWindowAfterRun();
    void playSounds(int count);
    void answer();
    void takeSaveDialog();
    void save(QWidget& widget, const QString& name);
    void save(QWidget& widget, const QString& name, const QRect& part);

    QDir m_folder;
    MainWindow m_window;
    std::optional<RunDriver> m_driver; // once the panel has been pictured
    QTimer m_look;
    std::mt19937_64 m_generator;
    double m_threshold = -1.0; // below 0 until the run has ended
    bool m_isWritten = true;
};

Guide::Guide(const QDir& folder)
    : m_folder(folder)
    , m_generator(seed)
{
    QObject::connect(&m_window, &MainWindow::doneDataCollection, &m_window,
        [this](double threshold) { m_threshold = threshold; });
    QObject::connect(&m_look, &QTimer::timeout, &m_window, [this] { takeSaveDialog(); });
}

bool Guide::take()
{
    takeMainWindow();
    takeFirstTrial();
    playToTheEnd();
    takeMainWindowAfterRun();
    return m_isWritten;
}

void Guide::takeMainWindow()
{
    m_window.show();
    save(m_window, "main-start");
    objectNamed<QCheckBox>("checkBoxSaveData").setChecked(true);
    click("pushButtonView");
    constexpr int margin = 6;
    save(m_window, "parameters",
        objectNamed<QGridLayout>("gridLayoutParameters")
            .geometry()
            .adjusted(-margin, -margin, margin, margin));
    save(m_window, "after-view");
}

void Guide::takeFirstTrial()
{
    m_driver.emplace(m_window);
    click("pushButtonGo");
    auto& subject = *m_window.findChild<SubjectWindow*>();
    save(subject, "subject-start");
    m_driver->beReady();
    save(subject, "subject-ready");
    playSounds(1);
    m_driver->startSound();
    save(subject, "subject-sound");
    m_driver->endSound();
    playSounds(2);
    save(subject, "subject-wait");
    answer();
    save(subject, "subject-feedback");
}

void Guide::playToTheEnd()
{
    constexpr int lookEveryMs = 500; // the save dialog lists its folder meanwhile
    m_look.start(lookEveryMs);
    auto& subject = *m_window.findChild<SubjectWindow*>();
    QObject::disconnect(&m_window, &MainWindow::doneDataCollection, &subject, nullptr);
    while (m_threshold < 0.0) {
        m_driver->playTrial();
        answer();
    }
    subject.finishExperiment(m_threshold, shownReactionTime, modulationDepthParameter, 0.0);
    save(subject, "result");
}

// As the experimenter sees it when the listener has closed the other window.
void Guide::takeMainWindowAfterRun()
{
    objectNamed<QLineEdit>("lineEditSilentInterval").setText("1000.00");
    m_window.refreshMainWindow();
    save(m_window, "after-run");
}

void Guide::playSounds(int count)
{
    for (int i = 0; i < count; ++i) {
        m_driver->startSound();
        m_driver->endSound();
    }
}

void Guide::answer()
{
    const double depth
        = fromPercent(objectNamed<QLineEdit>("lineEditDevModDepth").text().toDouble());
    const bool isRight = nextFraction(m_generator)
        < logisticListener(demoDepthThreshold, demoSlopeDb).probabilityRight(depth);
    m_driver->answerRightly(isRight);
}

void Guide::takeSaveDialog()
{
    if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
        save(*dialog, "save");
        static_cast<QDialog*>(dialog)->accept();
    }
}

void Guide::save(QWidget& widget, const QString& name)
{
    save(widget, name, widget.rect());
}

void Guide::save(QWidget& widget, const QString& name, const QRect& part)
{
    QApplication::processEvents(); // the layout follows what was shown and hidden
    if (!write(widget.grab(part), m_folder.filePath("guide-" + name + ".png"))) {
        m_isWritten = false;
    }
}

// What the user sees of a window, and of those behind it, once the screen has stood still.
QPixmap screenWith(const QWidget& window)
{
    constexpr int stillMs = 200;
    QPixmap shown;
    QImage before;
    do {
        before = shown.toImage();
        waitFor(stillMs);
        shown = QGuiApplication::primaryScreen()->grabWindow(0);
    } while (!window.windowHandle()->isExposed() || shown.toImage() != before);
    return shown;
}

// The screen with the main window after View, and with the first sound of a trial.
bool takeWholeScreen(const QDir& folder)
{
    MainWindow window;
    window.show();
    click("pushButtonView");
    const bool isWritten = write(screenWith(window), folder.filePath("screen-main.png"));
    RunDriver driver(window);
    click("pushButtonGo");
    const auto& subject = *window.findChild<SubjectWindow*>();
    driver.beReady();
    driver.startSound();
    return write(screenWith(subject), folder.filePath("screen-subject.png")) && isWritten;
}

void makeDark()
{
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Base, QColor(27, 30, 32));
    QApplication::setPalette(palette);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    QLoggingCategory::setFilterRules("default.debug=false");
    QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.removeAll("--dark") > 0) {
        makeDark();
    }
    const bool isWholeScreen = arguments.removeAll("--whole-screen") > 0;
    if (arguments.size() != 1) {
        QTextStream(stderr) << "usage: quorin-screenshots [--dark] [--whole-screen] FOLDER"
                            << Qt::endl;
        return EXIT_FAILURE;
    }
    const QDir folder(arguments.constFirst());
    const bool isTaken = isWholeScreen ? takeWholeScreen(folder) : Guide(folder).take();
    return isTaken ? EXIT_SUCCESS : EXIT_FAILURE;
}
