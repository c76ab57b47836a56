// SPDX-License-Identifier: GPL-3.0-or-later
// The files that the command line's arguments stand for, and a note on each that is left out.
#include "report/ResultsSearch.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

bool isOfARun(const QString& name)
{
    return name.endsWith(".txt", Qt::CaseInsensitive)
        || name.endsWith(".jsonl", Qt::CaseInsensitive);
}

/// The search of one folder and all below it.
class Search {
public:
    explicit Search(ResultsFiles& result)
        : m_result(result)
    {
    }

    QStringList filesBelow(const QString& folder)
    {
        m_folders = {QFile::encodeName(folder).toStdString()};
        while (!m_folders.isEmpty()) {
            look(m_folders.takeLast());
        }
        m_files.sort();
        return m_files;
    }

private:
    void look(const fs::path& folder)
    {
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        while (!error && entry != fs::directory_iterator()) {
            take(*entry);
            entry.increment(error);
        }
        if (error) {
            m_result.complaints.append(QFile::decodeName(folder.c_str())
                + ": cannot be searched: " + QString::fromStdString(error.message()));
        }
    }

    void take(const fs::directory_entry& entry)
    {
        std::error_code ignored; // a link to nowhere is neither file nor folder
        const QString name = QFile::decodeName(entry.path().c_str());
        const bool isHidden = entry.path().filename().native().front() == '.';
        if (entry.is_directory(ignored)) {
            takeFolder(entry, name, isHidden);
        } else if (!isOfARun(name)) {
            return;
        } else if (isHidden) {
            note(name, "a hidden file, left out");
        } else if (!entry.exists(ignored)) {
            note(name, "a link to nowhere, left out");
        } else if (!entry.is_regular_file(ignored)) {
            note(name, "no regular file, left out");
        } else if (QFile::encodeName(name).toStdString() != entry.path().native()) {
            m_result.complaints.append(name + ": cannot be read: its name is not UTF-8");
        } else {
            m_files.append(name);
        }
    }

    void takeFolder(const fs::directory_entry& entry, const QString& name, bool isHidden)
    {
        std::error_code ignored;
        if (isHidden) {
            note(name, "a hidden folder, left out");
        } else if (entry.is_symlink(ignored)) {
            note(name, "a link to a folder, not followed");
        } else {
            m_folders.append(entry.path());
        }
    }

    void note(const QString& name, const QString& what)
    {
        m_result.notes.append(name + ": note: " + what);
    }

    ResultsFiles& m_result;
    QVector<fs::path> m_folders;
    QStringList m_files;
};

} // namespace

ResultsFiles resultsFiles(const QStringList& arguments)
{
    ResultsFiles files;
    QHash<QString, QString> known; // the path that each real file was reached by
    for (const QString& argument : arguments) {
        const bool isFolder = QFileInfo(argument).isDir();
        const QStringList found
            = isFolder ? Search(files).filesBelow(argument) : QStringList(argument);
        if (found.isEmpty()) {
            files.complaints.append(argument
                + ": there is no results file (*.txt) and no record (*.jsonl) in the folder");
        }
        for (const QString& path : found) {
            const QString canonical = QFileInfo(path).canonicalFilePath();
            if (!canonical.isEmpty() && known.contains(canonical)) {
                files.notes.append(
                    path + ": note: the same file as " + known.value(canonical) + ", counted once");
            } else {
                known.insert(canonical, path);
                files.paths.append(path);
            }
        }
    }
    return files;
}
