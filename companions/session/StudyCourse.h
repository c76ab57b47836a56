// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Study.h"

#include <QObject>

class MainWindow;

/// Takes a subject through the runs of a study: before each run it shows the texts of the protocol,
/// fills the panel and presses View. It watches the windows, and records nothing.
///
/// A run that the listener's window was closed on is offered again; so is one that was begun with
/// other settings than the protocol's. The window must live longer.
class StudyCourse : public QObject {
    Q_OBJECT

public:
    /// @param pressesGo whether Go is pressed too, but for runs that are offered again
    StudyCourse(MainWindow& window, Study study, bool pressesGo);

    /// Offers the first run that is not completed; there must be one.
    void start();
    /// Which run Go begins now; none if the panel does not hold what was filled in,
    /// or did not at the last View.
    std::optional<ProtocolPlace> place() const;

signals:
    /// Where one is, lines of text.
    void told(const QString& text);
    /// All runs are completed.
    void finished();

private:
    void offer();
    void showTexts();
    void begin();
    void goOn();
    bool countRun();

    MainWindow& m_window;
    Study m_study;
    bool m_pressesGo;
    ProtocolRun m_run; ///< that is offered or under way
    QStringList m_panel; ///< as it was filled in
    QStringList m_viewed; ///< the panel at the last View, which makes the standard
    QStringList m_texts; ///< that the listener has still to read
    bool m_isAgain = false; ///< offered before
    bool m_isOurs = false; ///< the run under way is the protocol's
    bool m_hasResults = false; ///< of the run under way
};
