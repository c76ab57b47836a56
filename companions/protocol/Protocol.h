// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

/// What is wrong with a protocol, and where.
struct ProtocolComplaint {
    int line = 0; ///< from 1 on; 0 concerns the whole file
    QString column; ///< its heading, or its number where it has none; empty concerns the whole line
    QString text;
};

/// A condition: a row of a protocol.
struct ProtocolRow {
    int line = 0; ///< that the row begins in, from 1 on
    int repeat = 1; ///< how many runs it is
    bool isPractice = false;
    QString breakText; ///< what the listener reads in the break before it; empty: there is none
    QString instruction; ///< what the listener reads before each of its runs; may be empty
    QVector<QString> texts; ///< of all columns, by ProtocolColumnIndex, empty cells filled in
    QVector<bool> isWritten; ///< whether the cell was not empty, likewise
};

/// The rows of a protocol, or all that keeps it from being used.
struct Protocol {
    QVector<ProtocolRow> rows; ///< none if there is a complaint
    QVector<ProtocolComplaint> complaints;
};

/// A field of the panel and what it is to hold.
struct PanelSetting {
    QString widget; ///< its object name
    QString text; ///< of a line edit; the item of a combo box; "yes" or "no" for a check box
};
