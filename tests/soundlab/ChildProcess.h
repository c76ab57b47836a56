// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>

/// A process that does not outlive the thread that started it, even if that crashes
/// (on Linux; elsewhere it is a QProcess that its destructor ends).
class ChildProcess : public QProcess {
    Q_OBJECT

public:
    explicit ChildProcess(QObject* parent = nullptr);
    ~ChildProcess() override;

    /// Asks the process to end, waits for it, and kills it if it does not.
    void end();

    /// For a message when the process did not do its work: its name and what it wrote to the error
    /// channel, or why it could not be started. Call it after end().
    QString whatFailed();

protected:
    void setupChildProcess() override;
};

/// Stops a process, this one included, and lets it go on after a time. Returns at once.
void stopProcess(qint64 pid, int ms);
