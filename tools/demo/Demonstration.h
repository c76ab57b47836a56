// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoOptions.h"
#include "demo/DemoTrial.h"
#include "demo/Listener.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"

#include <QDir>
#include <QTextStream>

#include <memory>

class BoxAnswers;
class MainWindow;
class QMainWindow;

/// One whole run in the application's own windows: a Listener hears what they play on a private
/// sound server, and the windows are used as a person would, by the mouse. Reports every trial on
/// the standard output, and leaves the results file, pictures of both windows and the recorded
/// sound in a folder.
class Demonstration {
public:
    explicit Demonstration(const DemoOptions& options);
    ~Demonstration();
    Demonstration(const Demonstration&) = delete;
    Demonstration& operator=(const Demonstration&) = delete;

    /// @return false with an errorText() if something did not go as it should
    bool run();
    QString errorText() const { return m_errorText; }

private:
    bool makeFolder();
    bool startSound();
    bool openWindows();
    void setPanel();
    bool playTrials();
    bool playTrial();
    bool playAndHear(DemoTrial& trial);
    bool takePicturesWhilePlaying();
    double wholeValue() const; // what the panel's value is a part of, in its unit
    bool closeWindows();
    bool keepSound();
    bool checkResultsFile();
    void reportFolder();

    template <typename Widget> Widget& widget(const char* name) const;
    bool pressButton(const char* name);
    bool takePictures(const QString& moment);
    bool fail(const QString& what);

    DemoOptions m_options;
    QDir m_folder;
    QTextStream m_out;
    SoundServer m_server;
    SoundRecorder m_recorder;
    std::unique_ptr<Listener> m_listener;
    std::unique_ptr<BoxAnswers> m_boxes;
    std::unique_ptr<MainWindow> m_window;
    QVector<DemoTrial> m_trials;
    int m_playing = 0; // interval whose sound started last; -1 when the answer may be given
    bool m_isFinished = false;
    QString m_errorText;
};
