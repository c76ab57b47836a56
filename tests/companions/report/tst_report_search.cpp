// SPDX-License-Identifier: GPL-3.0-or-later
// Which files the arguments of quorin-report stand for.
#include "SimulatedRun.h"
#include "report/ResultsSearch.h"
#include "support/QuietTest.h"

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace {

// A folder with folders and empty files in it.
class Tree {
public:
    explicit Tree(const QStringList& files)
    {
        for (const QString& file : files) {
            QDir(m_folder.path()).mkpath(QFileInfo(file).path());
            fillFile(path(file), {});
        }
    }

    QString path(const QString& name = {}) const { return m_folder.filePath(name); }

    QStringList paths(const QStringList& names) const
    {
        QStringList all;
        for (const QString& name : names) {
            all.append(path(name));
        }
        return all;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestReportSearch : public QuietTest {
    Q_OBJECT

private slots:
    void files_areTakenAsTheyAre()
    {
        const Tree tree({"b.dat", "a"});
        const QStringList given = tree.paths({"b.dat", "missing", "a"});
        QCOMPARE(resultsFiles(given).paths, given);
        QCOMPARE(resultsFiles(given).complaints, QStringList());
    }

    void folder_standsForItsResultsFilesAndRecords_atAnyDepth()
    {
        const Tree tree({"z.txt", "b/c/d.txt", "b/a.TXT", "b/a.csv", "b/.hidden.txt", "b/a.jsonl",
            ".hidden/a.txt", QString::fromUtf8("m\u00fc/\u96ea \"x\".txt"), "txt"});
        QCOMPARE(resultsFiles({tree.path()}).paths,
            tree.paths({"b/a.TXT", "b/a.jsonl", "b/c/d.txt",
                QString::fromUtf8("m\u00fc/\u96ea \"x\".txt"), "z.txt"}));
    }

    void folder_isReported_whenItHasNoResults()
    {
        const Tree tree({"empty/a.csv", "full/a.txt"});
        const ResultsFiles files = resultsFiles(tree.paths({"empty", "full"}));
        QCOMPARE(files.complaints,
            QStringList(tree.path("empty")
                + ": there is no results file (*.txt) and no record (*.jsonl) in the folder"));
        QCOMPARE(files.paths, tree.paths({"full/a.txt"}));
    }

    void file_isReported_whenItsNameIsNotUtf8()
    {
        const Tree tree({"a.txt"});
        const QByteArray name = tree.path().toUtf8() + "/b\xff.txt";
        std::ofstream(name.constData()) << "";
        const ResultsFiles files = resultsFiles({tree.path()});
        std::filesystem::remove(name.toStdString()); // QTemporaryDir cannot
        QCOMPARE(files.paths, tree.paths({"a.txt"}));
        QCOMPARE(files.complaints.size(), 1);
        QVERIFY(files.complaints[0].endsWith("cannot be read: its name is not UTF-8"));
    }

    void file_comesOnce_whateverItIsCalled()
    {
        const Tree tree({"a/x.txt", "b/x.txt"});
        QVERIFY(QFile::link(tree.path("a/x.txt"), tree.path("b/link.txt")));
        QCOMPARE(resultsFiles({tree.path("a/x.txt"), tree.path("a/../a/x.txt"), tree.path("b"),
                                  tree.path("a")})
                     .paths,
            tree.paths({"a/x.txt", "b/x.txt"}));
        const QString again(": note: the same file as " + tree.path("a/x.txt") + ", counted once");
        QCOMPARE(resultsFiles({tree.path("a/x.txt"), tree.path("b"), tree.path("a")}).notes,
            QStringList({tree.path("b/link.txt") + again, tree.path("a/x.txt") + again}));
    }

    void whatIsLeftOut_isNoted()
    {
        const Tree tree({"a.txt", "b/.c.txt", ".d/e.txt"});
        QVERIFY(QFile::link(tree.path("nothing"), tree.path("b/gone.txt")));
        QVERIFY(QFile::link(tree.path("b"), tree.path("folder")));
        QCOMPARE(::mkfifo(tree.path("pipe.txt").toUtf8().constData(), 0600), 0);
        ResultsFiles files = resultsFiles({tree.path()});
        files.notes.sort();
        QStringList expected {tree.path(".d") + ": note: a hidden folder, left out",
            tree.path("b/.c.txt") + ": note: a hidden file, left out",
            tree.path("b/gone.txt") + ": note: a link to nowhere, left out",
            tree.path("folder") + ": note: a link to a folder, not followed",
            tree.path("pipe.txt") + ": note: no regular file, left out"};
        expected.sort();
        QCOMPARE(files.notes, expected);
        QCOMPARE(files.complaints, QStringList());
        QCOMPARE(files.paths, tree.paths({"a.txt"}));
    }

    void search_ends_whenLinksGoRoundInCircles()
    {
        const Tree tree({"a/b/x.txt"});
        QVERIFY(QFile::link(tree.path(), tree.path("a/b/up")));
        QVERIFY(QFile::link(tree.path("a/b/self.txt"), tree.path("a/b/self.txt")));
        QCOMPARE(resultsFiles({tree.path()}).paths, tree.paths({"a/b/x.txt"}));
    }

    void link_isFollowed_whenItIsTheArgument()
    {
        const Tree tree({"a/x.txt"});
        QVERIFY(QFile::link(tree.path("a"), tree.path("link")));
        QCOMPARE(resultsFiles({tree.path("link")}).paths, tree.paths({"link/x.txt"}));
    }
};

QUORIN_GUILESS_TEST(TestReportSearch);
#include "tst_report_search.moc"
