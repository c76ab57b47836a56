// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>

class FlightRecorder;
class MainWindow;
class StandardStreams;

/// Tells what goes wrong in a session, on standard error and in boxes at a corner of a screen: of
/// one that is not the listener's where there is one. No box takes the keyboard from the listener's
/// window, and none keeps the session waiting.
class FaultMessages : public QObject {
    Q_OBJECT

public:
    /// @param recorder, window, streams must live longer; boxes that are open go with this object
    FaultMessages(FlightRecorder& recorder, MainWindow& window, StandardStreams& streams);

private:
    QMessageBox* makeBox(const QString& fault, const QString& consequence);
    void tell(const QString& fault, const QString& consequence);
    void askAboutTrial(int trial);
    void goOn();
    void uncoverQuestion();
    void bringListenerForward();

    FlightRecorder& m_recorder;
    MainWindow& m_window;
    StandardStreams& m_streams;
    QPointer<QMessageBox> m_question; ///< about a trial that does not end
    bool m_wasFullScreen = false; ///< the listener's window, before the question
};
