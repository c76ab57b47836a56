// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What the arguments of the command line stand for.
struct ResultsFiles {
    QStringList paths; ///< in the order of the arguments, each file once
    QStringList complaints; ///< "folder or file: what": what could not be searched
    QStringList notes; ///< "file: note: what": what was left out for a good reason
};

/// An argument that is no folder is taken as it is, whether or not it exists. A folder stands for
/// all files in it and below whose name ends in .txt or .jsonl, sorted by path. Links to files are
/// followed, links to folders below the argument are not, so that a search cannot go round in
/// circles. A file that is reached more than once, by whatever name, comes only once. There is a
/// note of each file that is left out: hidden, reached before, a link to nowhere, no regular file;
/// and of each folder that is hidden or a link. There is a complaint of each folder that cannot be
/// read, of each argument without results files and records, and of each name that is not UTF-8,
/// which Qt cannot open.
ResultsFiles resultsFiles(const QStringList& arguments);
