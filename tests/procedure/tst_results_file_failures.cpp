// SPDX-License-Identifier: GPL-3.0-or-later
// Results files that cannot be written.
#include "procedure/SavedRun.h"
#include "support/WindowTest.h"

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// While it lives the process has an ordinary user's rights, also when root runs the tests.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (m_user == 0 && seteuid(nobody) != 0) {
            qFatal("root's rights cannot be put aside");
        }
    }
    ~OrdinaryUser()
    {
        if (seteuid(m_user) != 0) {
            qFatal("root's rights do not come back");
        }
    }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    static constexpr uid_t nobody = 65534;
    const uid_t m_user = geteuid();
};

/// While it lives no file can be made longer: a disk that fills up while a file is written.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        rlimit limit {};
        getrlimit(RLIMIT_FSIZE, &limit);
        m_oldLimit = limit.rlim_cur;
        limit.rlim_cur = bytes;
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            qFatal("the size of files cannot be limited");
        }
    }
    ~FileSizeLimit()
    {
        rlimit limit {};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = m_oldLimit;
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    Q_DISABLE_COPY(FileSizeLimit)

private:
    void (*m_oldHandler)(int);
    rlim_t m_oldLimit;
};

} // namespace

class TestResultsFileFailures : public WindowTest {
    Q_OBJECT

private slots:
    void warning_namesNothing_whenTheDialogIsCancelled()
    {
        announceWarning(QString(unnamedFile));
        SavedRun run;
        run.save(QString());
        verifyWarnedOnce(run, QString());
        QCOMPARE(run.data.outputDir, QString());
        QCOMPARE(run.data.fileName, QString());
        QVERIFY(run.names().isEmpty());
    }

    void nextSave_succeeds_afterACancelledOne()
    {
        announceWarning(QString(unnamedFile));
        SavedRun run;
        run.save(QString());
        run.save(run.path("later.txt"));
        QCOMPARE(run.boxes.fileChoices().last().directory, QString("/"));
        QCOMPARE(run.boxes.messages().size(), 1);
        QCOMPARE(contentOf(run.path("later.txt")), SavedRun::expectedBytes());
    }

    void missingFolder_isMadeAtTheChosenPathItself_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("one level") << "missing/run.txt";
        QTest::newRow("three levels") << "a/b/c/run.txt";
    }

    void missingFolder_isMadeAtTheChosenPathItself()
    {
        QFETCH(QString, name);
        SavedRun run;
        const QString path = run.path(name);
        run.save(path);
        QVERIFY(QFileInfo(path).isDir());
        QVERIFY(QDir(path).isEmpty());
        verifyWarnedOnce(run, path + "run.txt");
        QCOMPARE(run.data.outputDir, path);
        QCOMPARE(run.data.fileName, QString("run.txt"));
    }

    void file_isLeftAlone_whenItStandsInTheFoldersPlace()
    {
        SavedRun run;
        fillFile(run.path("file"), "kept");
        run.save(run.path("file/run.txt"));
        verifyWarnedOnce(run, run.path("file/run.txt") + "run.txt");
        QCOMPARE(contentOf(run.path("file")), QByteArray("kept"));
    }

    // The dialog itself never returns a folder that is there already, so this one appears just
    // after the choice.
    void folder_isLeftAlone_whenItStandsInTheFilesPlace()
    {
        SavedRun run;
        const QString path = run.path("run.txt");
        run.boxes.onOpen([&](QWidget* box) {
            if (auto* dialog = qobject_cast<QFileDialog*>(box)) {
                connect(dialog, &QFileDialog::fileSelected, [&] { QDir().mkdir(path); });
            }
        });
        run.save(path);
        verifyWarnedOnce(run, path + "run.txt");
        QVERIFY(QFileInfo(path).isDir());
        QVERIFY(QDir(path).isEmpty());
    }

    void warning_isShown_whenTheFolderIsNotWritable()
    {
        SavedRun run;
        QVERIFY(QFile::setPermissions(run.folder.path(), readable | executable));
        {
            const OrdinaryUser user;
            run.save(run.path("run.txt"));
        }
        verifyWarnedOnce(run, run.path("run.txt") + "run.txt");
        QVERIFY(run.names().isEmpty());
        QVERIFY(QFile::setPermissions(run.folder.path(), readable | executable | writable));
    }

    void file_keepsItsContent_whenItMayOnlyBeRead()
    {
        SavedRun run;
        fillFile(run.path("run.txt"), "kept");
        QVERIFY(QFile::setPermissions(run.folder.path(), readable | executable | writable));
        QVERIFY(QFile::setPermissions(run.path("run.txt"), readable));
        {
            const OrdinaryUser user;
            run.save(run.path("run.txt"));
        }
        verifyWarnedOnce(run, run.path("run.txt") + "run.txt");
        QCOMPARE(contentOf(run.path("run.txt")), QByteArray("kept"));
    }

    void warning_isShown_whenTheNameIsTooLong_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("256 bytes") << QString(128, QChar(0xe9));
        QTest::newRow("765 bytes") << QString(255, QChar(0x5b9f));
    }

    void warning_isShown_whenTheNameIsTooLong()
    {
        QFETCH(QString, name);
        SavedRun run;
        run.save(run.path(name));
        verifyWarnedOnce(run, run.path(name) + name);
        QVERIFY(run.names().isEmpty());
    }

    void warning_isShown_whenTheNameIsTooLongInAMissingFolder()
    {
        SavedRun run;
        const QString name(256, 'x');
        const QString path = run.path("missing/" + name);
        run.save(path);
        verifyWarnedOnce(run, path + name);
        QVERIFY(!QFileInfo::exists(path));
    }

    void warning_isShown_whenTheDiskIsFull()
    {
        SavedRun run;
        run.save("/dev/full");
        verifyWarnedOnce(run, "/dev/fullfull");
        QCOMPARE(run.data.outputDir, QString("/dev/full"));
        QCOMPARE(run.data.fileName, QString("full"));
    }

    void noWarningIsShown_whenNothingIsWrittenToAFullDisk()
    {
        SavedRun run;
        run.data.records.clear();
        run.save("/dev/full");
        QVERIFY(run.boxes.messages().isEmpty());
    }

    // The text stream hands on what it gathered in blocks of 16 KiB: the larger limits are met by
    // the second and the last one.
    void warning_isShown_whenTheDiskFillsUp_data()
    {
        QTest::addColumn<int>("missingBytes");
        QTest::newRow("nothing fits") << -1;
        QTest::newRow("one block fits") << 20000;
        QTest::newRow("all but the last byte fits") << 1;
    }

    void warning_isShown_whenTheDiskFillsUp()
    {
        QFETCH(int, missingBytes);
        SavedRun run;
        run.data.records = QVector<Record>(2000, answered(true, 0.5, 734));
        const QString path = run.path("run.txt");
        run.save(path);
        const QByteArray complete = contentOf(path);
        QVERIFY(complete.size() > 40000);
        QVERIFY(run.boxes.messages().isEmpty());

        const int room = missingBytes < 0 ? 0 : complete.size() - missingBytes;
        {
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            run.save(path);
        }
        QVERIFY(contentOf(path).size() <= room);
        verifyWarnedOnce(run, path + "run.txt");
        run.save(path);
        QCOMPARE(contentOf(path), complete);
        QCOMPARE(run.boxes.messages().size(), 1);
    }

private:
    static constexpr QFile::Permissions readable
        = QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup | QFile::ReadOther;
    static constexpr QFile::Permissions executable
        = QFile::ExeOwner | QFile::ExeUser | QFile::ExeGroup | QFile::ExeOther;
    static constexpr QFile::Permissions writable = QFile::WriteOwner | QFile::WriteUser;

    static void verifyWarnedOnce(SavedRun& run, const QString& names)
    {
        verifyOneWarning(run.boxes, "could not open file for writing \r\n" + names, &run.window);
    }
};

QUORIN_TEST(TestResultsFileFailures);
#include "tst_results_file_failures.moc"
