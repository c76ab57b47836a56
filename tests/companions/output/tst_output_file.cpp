// SPDX-License-Identifier: GPL-3.0-or-later
// What a companion's output file may replace, and what is left after a failure.
#include "output/OutputFile.h"
#include "support/Files.h"
#include "support/QuietTest.h"

#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

Q_DECLARE_METATYPE(OutputFile::Kind)

namespace {

using Kind = OutputFile::Kind;

const QByteArray tableHeadings("file,threshold");
const QByteArray table("file,threshold\na.txt,5\n");

class Folder {
public:
    QString path(const QString& name = "output") const { return m_folder.filePath(name); }

    void fill(const QByteArray& content, const QString& name = "output") const
    {
        fillFile(path(name), content);
    }

    QByteArray content(const QString& name = "output") const { return contentOf(path(name)); }

    QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    OutputFile output(Kind kind, bool isForced) const
    {
        return {path(), kind, tableHeadings, isForced};
    }

private:
    QTemporaryDir m_folder;
};

QByteArray wide(const QString& text)
{
    QByteArray bytes;
    for (const QChar character : text) {
        bytes.append('\0').append(character.toLatin1());
    }
    return bytes;
}

} // namespace

class TestOutputFile : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName("quorin-report");
        QCoreApplication::setApplicationVersion("1.2.3");
    }

    void maker_isProgramAndVersion()
    {
        QCOMPARE(makerText(), QString("Made by quorin-report 1.2.3"));
    }

    void file_isWrittenWhole_withTheUsersOwnPermissions()
    {
        const Folder folder;
        const mode_t before = ::umask(027);
        const QString error = writeOutput(folder.output(Kind::table, false), table);
        ::umask(before);
        QCOMPARE(error, QString());
        QCOMPARE(folder.content(), table);
        QCOMPARE(folder.names(), QStringList("output"));
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(folder.path()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0640U);
    }

    void file_isReplaced_onlyIfForcedAndMarked_data()
    {
        addColumns<Kind, QByteArray, bool>("kind", "there", "isMarked");
        const QByteArray results("modulation depth (%)\tstimulus position\r\n");
        const QByteArray late = QByteArray(8192, ' ') + makerText().toLatin1();

        addRow("table of the same headings", Kind::table, table, true);
        addRow("table with one column more", Kind::table, QByteArray("file,threshold,sd\n"), false);
        addRow("headings that are not the first line", Kind::table,
            QByteArray("my notes\n" + table), false);
        addRow("empty file", Kind::table, QByteArray(), false);
        addRow("results file", Kind::table, results, false);
        addRow("page", Kind::marked, makerText().toLatin1(), true);
        addRow("page of the other companion", Kind::marked,
            QByteArray("<svg>Made by quorin-simulate 0.1"), true);
        addRow("wide characters", Kind::marked, ("%PDF-1.4 " + wide(makerText())), true);
        addRow("somebody's page", Kind::marked, QByteArray("<html></html>"), false);
        addRow("mark that comes late", Kind::marked, late, false);
        addRow("results file of the same content", Kind::unmarked, QByteArray("new"), false);
        addRow("marked where no mark is known", Kind::unmarked, makerText().toLatin1(), false);
    }

    void file_isReplaced_onlyIfForcedAndMarked()
    {
        QFETCH(Kind, kind);
        QFETCH(QByteArray, there);
        QFETCH(bool, isMarked);
        const Folder folder;
        folder.fill(there);
        const QString foreign = folder.path()
            + ": is there already and not recognised as a companion's file: give another name, or "
              "move it away";
        const QString ours
            = folder.path() + ": is there already: give another name, or --force to replace it";

        QCOMPARE(writeOutput(folder.output(kind, false), "new"), isMarked ? ours : foreign);
        QCOMPARE(folder.content(), there);
        QCOMPARE(writeOutput(folder.output(kind, true), "new"), isMarked ? QString() : foreign);
        QCOMPARE(folder.content(), isMarked ? QByteArray("new") : there);
        QCOMPARE(folder.names(), QStringList("output"));
    }

    void obstacle_isKnownBefore()
    {
        const Folder folder;
        QCOMPARE(outputObstacle(folder.output(Kind::table, false)), QString());
        folder.fill(table);
        QVERIFY(!outputObstacle(folder.output(Kind::table, false)).isEmpty());
        QCOMPARE(outputObstacle(folder.output(Kind::table, true)), QString());
        const OutputFile lost {folder.path("no/where"), Kind::table, tableHeadings, true};
        QCOMPARE(outputObstacle(lost),
            folder.path("no/where") + ": there is no folder " + folder.path("no") + ": make it");
        QCOMPARE(folder.names(), QStringList("output"));
    }

    void link_isRefused_whenItLeadsNowhere()
    {
        const Folder folder;
        QVERIFY(QFile::link(folder.path("gone"), folder.path()));
        QCOMPARE(writeOutput(folder.output(Kind::table, true), table),
            folder.path() + ": is a link to nowhere: give another name, or remove it");
        QCOMPARE(folder.names(), QStringList("output"));
    }

    void linkedFile_isReplaced_andTheLinkStays()
    {
        const Folder folder;
        folder.fill(table, "real");
        QVERIFY(QFile::link(folder.path("real"), folder.path()));
        QVERIFY(!writeOutput(folder.output(Kind::table, false), "new").isEmpty());
        QCOMPARE(folder.content("real"), table);
        QCOMPARE(writeOutput(folder.output(Kind::table, true), "new"), QString());
        QCOMPARE(folder.content("real"), QByteArray("new"));
        QVERIFY(QFileInfo(folder.path()).isSymLink());
    }

    void folder_isRefused()
    {
        const Folder folder;
        QVERIFY(QDir().mkdir(folder.path()));
        QCOMPARE(writeOutput(folder.output(Kind::table, true), table),
            folder.path() + ": is a folder: give a file's name");
    }

    void dash_isRefused_butNotAsAFilesName()
    {
        const QTemporaryDir folder;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        QVERIFY(writeOutput({"-", Kind::table, tableHeadings, true}, table)
                    .startsWith("-: standard output does not take this: give a file's name"));
        QCOMPARE(writeOutput({"./-", Kind::table, tableHeadings, false}, table), QString());
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("-"));
    }

    void socket_isRefused()
    {
        const Folder folder;
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        const QByteArray path = QFile::encodeName(folder.path());
        QVERIFY(path.size() < int(sizeof address.sun_path));
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        QCOMPARE(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        QCOMPARE(writeOutput(folder.output(Kind::table, true), table),
            folder.path() + ": is no file, character device or pipe: give another name");
        ::close(socket);
    }

    void pipe_isWrittenTo_andStaysAPipe()
    {
        const Folder folder;
        const QByteArray path = QFile::encodeName(folder.path());
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        QCOMPARE(writeOutput(folder.output(Kind::table, false), table), QString());
        QByteArray bytes(1000, '\0');
        bytes.resize(int(::read(reader, bytes.data(), size_t(bytes.size()))));
        ::close(reader);
        QCOMPARE(bytes, table);
        struct stat status { };
        QCOMPARE(::stat(path.constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void device_isWrittenTo_andStaysADevice()
    {
        const OutputFile full {"/dev/full", Kind::table, tableHeadings, true};
        QCOMPARE(writeOutput(full, table),
            QString("/dev/full: cannot be written: No space left on device"));
        const OutputFile null {"/dev/null", Kind::marked, {}, false};
        QCOMPARE(writeOutput(null, table), QString());
        for (const char* device : {"/dev/full", "/dev/null"}) {
            struct stat status { };
            QCOMPARE(::stat(device, &status), 0);
            QVERIFY(S_ISCHR(status.st_mode));
        }
    }

    void partsOfAnEarlierProgram_areLeftAlone()
    {
        const Folder folder;
        const QString part = QString(".quorin-%1-%2.part").arg(QCoreApplication::applicationPid());
        constexpr int parts = 100; // more than the other tests make
        for (int i = 1; i <= parts; ++i)
            folder.fill("another's", part.arg(i));
        QCOMPARE(createFile(folder.path(), table), QString());
        QCOMPARE(folder.content(), table);
        for (int i = 1; i <= parts; ++i)
            QCOMPARE(folder.content(part.arg(i)), QByteArray("another's"));
    }
};

QUORIN_GUILESS_TEST(TestOutputFile);
#include "tst_output_file.moc"
