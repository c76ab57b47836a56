// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ResultsSearch.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

/// The search of one folder and all below it.
class Search {
public:
    explicit Search(QStringList& complaints)
        : m_complaints(complaints)
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
            m_complaints.append(QFile::decodeName(folder.c_str())
                + ": cannot be searched: " + QString::fromStdString(error.message()));
        }
    }

    void take(const fs::directory_entry& entry)
    {
        std::error_code ignored; // a link to nowhere is no file
        const std::string& path = entry.path().native();
        const QString name = QFile::decodeName(path.c_str());
        if (entry.path().filename().native().front() == '.') {
            return;
        }
        if (entry.is_directory(ignored)) {
            if (!entry.is_symlink(ignored)) {
                m_folders.append(entry.path());
            }
        } else if (entry.is_regular_file(ignored) && name.endsWith(".txt", Qt::CaseInsensitive)) {
            if (QFile::encodeName(name).toStdString() == path) {
                m_files.append(name);
            } else {
                m_complaints.append(name + ": cannot be read: its name is not UTF-8");
            }
        }
    }

    QStringList& m_complaints;
    QVector<fs::path> m_folders;
    QStringList m_files;
};

} // namespace

ResultsFiles resultsFiles(const QStringList& arguments)
{
    ResultsFiles files;
    QSet<QString> known;
    for (const QString& argument : arguments) {
        const bool isFolder = QFileInfo(argument).isDir();
        const QStringList found
            = isFolder ? Search(files.complaints).filesBelow(argument) : QStringList(argument);
        if (found.isEmpty()) {
            files.complaints.append(argument + ": there is no results file (*.txt) in the folder");
        }
        for (const QString& path : found) {
            const QString canonical = QFileInfo(path).canonicalFilePath();
            if (canonical.isEmpty() || !known.contains(canonical)) {
                known.insert(canonical);
                files.paths.append(path);
            }
        }
    }
    return files;
}
