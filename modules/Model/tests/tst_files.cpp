#include "CFileWriter.h"
#include "CXmlGuard.h"
#include "FileNames.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

/// Writing whole files, and the names of files.
class tst_Files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesAndReplaces();
    void fullDisk();
    void badTargets_data();
    void badTargets();
    void foldersThatForbid_data();
    void foldersThatForbid();
    void readsRegularFilesOnly();
    void safeNames_data();
    void safeNames();
    void hostileNamesStayInside();
    void clashes();
};

namespace {
QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// Runs the check in a child process, where limits and rights can be lowered.
template<class Check>
int inChild(Check check)
{
    const pid_t pid = fork();
    if (pid == 0)
        _exit(check());
    int status = -1;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
} // namespace

void tst_Files::writesAndReplaces()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a ä.nyx"));
    const QByteArray large(3'000'000, 'x');
    for (const QByteArray &bytes :
         {QByteArray("old"), large, QByteArray(), QByteArray("a\0b", 3)}) {
        QCOMPARE(CFileWriter::write(path, bytes), QString());
        QCOMPARE(contentOf(path), bytes);
    }
    QCOMPARE(QDir(folder.path())
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                 .size(),
             1);
}

void tst_Files::fullDisk()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("project.nyx"));
    const QByteArray old(5000, 'o');
    const QByteArray fresh(20000, 'n');
    QCOMPARE(CFileWriter::write(path, old), QString());
    for (int limit = 0; limit <= 21000; limit += 500) {
        const int result = inChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit size = {rlim_t(limit), rlim_t(limit)};
            if (setrlimit(RLIMIT_FSIZE, &size) != 0)
                return 2;
            return CFileWriter::write(path, fresh).isEmpty() ? 0 : 1;
        });
        const bool fits = limit >= fresh.size();
        QCOMPARE(result, fits ? 0 : 1);
        QVERIFY(contentOf(path) == (fits ? fresh : old));
    }
    QCOMPARE(QDir(folder.path())
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                 .size(),
             1);
}

void tst_Files::badTargets_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a folder") << "folder";
    QTest::newRow("a missing folder") << "none/file";
    QTest::newRow("a file in place of a folder") << "file/file";
    QTest::newRow("a pipe") << "pipe";
    QTest::newRow("an embedded zero") << QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b");
    QTest::newRow("a long name") << QString(300, QLatin1Char('x'));
}

void tst_Files::badTargets()
{
    QFETCH(QString, path);
    QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    QCOMPARE(CFileWriter::write(folder.filePath(QStringLiteral("file")), "kept"), QString());
    QCOMPARE(mkfifo(qPrintable(folder.filePath(QStringLiteral("pipe"))), 0600), 0);
    const auto entries = [&] {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    };
    const QStringList before = entries();
    const QString error = CFileWriter::write(folder.path() + QLatin1Char('/') + path, "new");
    QVERIFY(error.contains(folder.path()));
    QCOMPARE(entries(), before);
    QCOMPARE(contentOf(folder.filePath(QStringLiteral("file"))), QByteArray("kept"));
    QVERIFY(!CFileWriter::write(QString(), "new").isEmpty());
}

void tst_Files::foldersThatForbid_data()
{
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("result"); // 0 written, 1 refused
    QTest::newRow("writable file in a read-only folder") << 0666 << 0;
    QTest::newRow("read-only file in a read-only folder") << 0444 << 1;
    QTest::newRow("no file in a read-only folder") << 0 << 1;
}

void tst_Files::foldersThatForbid()
{
    QFETCH(int, fileMode);
    QFETCH(int, result);
    QTemporaryDir folder;
    const QString inner = folder.filePath(QStringLiteral("inner"));
    QVERIFY(QDir().mkdir(inner));
    const QString path = inner + QStringLiteral("/project.nyx");
    const QByteArray old(900, 'o');
    if (fileMode != 0) {
        QCOMPARE(CFileWriter::write(path, old), QString());
        QCOMPARE(chmod(qPrintable(path), mode_t(fileMode)), 0);
    }
    QCOMPARE(chmod(qPrintable(folder.path()), 0755), 0);
    QCOMPARE(chmod(qPrintable(inner), 0555), 0);
    const auto unprivileged = [&](rlim_t limit, const QByteArray &bytes) {
        return inChild([&] {
            if (getuid() == 0 && setuid(65534) != 0) // root may write everywhere
                return 2;
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit size = {limit, limit};
            setrlimit(RLIMIT_FSIZE, &size);
            return CFileWriter::write(path, bytes).isEmpty() ? 0 : 1;
        });
    };
    const QByteArray before = contentOf(path);
    if (result == 0) { // a direct write that fails puts the old bytes back
        QCOMPARE(unprivileged(1000, QByteArray(5000, 'n')), 1);
        QCOMPARE(contentOf(path), before);
    }
    const QByteArray fresh(500, 'n');
    QCOMPARE(unprivileged(RLIM_INFINITY, fresh), result);
    QCOMPARE(contentOf(path), result == 0 ? fresh : before);
    QCOMPARE(chmod(qPrintable(inner), 0755), 0);
}

void tst_Files::readsRegularFilesOnly()
{
    QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    const QString large = folder.filePath(QStringLiteral("large"));
    QFile file(large);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(CXmlGuard::MaxBytes + 1));
    for (const QString &path : {pipe, large, folder.path(), QStringLiteral("/dev/zero"),
                                folder.filePath(QStringLiteral("none"))}) {
        QString error;
        QVERIFY(!CXmlGuard::readFile(path, &error));
        QVERIFY(error.contains(path));
    }
}

void tst_Files::safeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("usual") << "Page 1"
                           << "Page 1.png";
    QTest::newRow("letters of the world") << "Küche 台所 \U0001F600"
                                          << "Küche 台所 \U0001F600.png";
    QTest::newRow("parent folder") << ".."
                                   << "_.png";
    QTest::newRow("leaves the folder") << "../../evil"
                                       << ".._.._evil.png";
    QTest::newRow("absolute") << "/etc/passwd"
                              << "_etc_passwd.png";
    QTest::newRow("drive") << "C:\\x"
                           << "C__x.png";
    QTest::newRow("reserved") << "a*b?c\"d<e>f|g"
                              << "a_b_c_d_e_f_g.png";
    QTest::newRow("embedded zero")
        << QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b") << "a_b.png";
    QTest::newRow("line break") << "a\nb"
                                << "a_b.png";
    QTest::newRow("dots and spaces at the ends") << "  a. . "
                                                 << "a.png";
    QTest::newRow("nothing") << ""
                             << "_.png";
    QTest::newRow("device") << "con"
                            << "_con.png";
    QTest::newRow("device with suffix") << "LPT1.old"
                                        << "_LPT1.old.png";
    QTest::newRow("no device") << "console"
                               << "console.png";
    QTest::newRow("half a surrogate pair")
        << QString(QChar(0xD800)) + QStringLiteral("a") << "_a.png";
    QTest::newRow("300 letters") << QString(300, QLatin1Char('x'))
                                 << QString(251, QLatin1Char('x')) + QStringLiteral(".png");
    QTest::newRow("300 wide letters")
        << QString(300, QChar(0x4e00)) << QString(83, QChar(0x4e00)) + QStringLiteral(".png");
    QTest::newRow("pairs are not cut")
        << QString::fromUtf8("\xF0\x9F\x98\x80").repeated(100)
        << QString::fromUtf8("\xF0\x9F\x98\x80").repeated(62) + QStringLiteral(".png");
}

void tst_Files::safeNames()
{
    QFETCH(QString, name);
    QTEST(FileNames::safe(name, QStringLiteral(".png")), "fileName");
}

void tst_Files::hostileNamesStayInside()
{
    const QString pieces[] = {"..", "/",          "\\", ".",    " ",  "con",  "nul",
                              "a",  ":",          "*",  "~",    "$x", "-",    "%2e",
                              "\n", "\U0001F600", "ä",  "COM1", "\t", "..\\", "xxxxxxxxxxxxxxxx"};
    QRandomGenerator random(7);
    QStringList names;
    for (int i = 0; i < 500; ++i) {
        QString name;
        for (int n = random.bounded(30); n >= 0; --n) {
            const uint which = random.bounded(uint(std::size(pieces)) + 2);
            name += which < std::size(pieces) ? pieces[which]
                                              : QString(QChar(ushort(random.bounded(0x10000))));
        }
        names += name;
    }
    QTemporaryDir outer;
    QVERIFY(QDir(outer.path()).mkdir(QStringLiteral("inner")));
    const QStringList fileNames = FileNames::unusedForAll(names, QStringLiteral(".txt"));
    for (int i = 0; i < names.size(); ++i) {
        const QString path = outer.filePath(QStringLiteral("inner/") + fileNames.at(i));
        QCOMPARE(CFileWriter::write(path, QByteArray::number(i)), QString());
        QVERIFY(fileNames.at(i).toUtf8().size() <= 255);
    }
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(outer.path()).entryList(all), QStringList(QStringLiteral("inner")));
    QCOMPARE(QDir(outer.filePath(QStringLiteral("inner"))).entryList(all).size(), 500);
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(contentOf(outer.filePath(QStringLiteral("inner/") + fileNames.at(i))),
                 QByteArray::number(i));
}

void tst_Files::clashes()
{
    const QString longName(300, QLatin1Char('x'));
    QCOMPARE(
        FileNames::unusedForAll({"a", "A", "a", "a (1)", "b", "b.", longName, longName}, ".bin"),
        QStringList({"a.bin", "A (1).bin", "a (2).bin", "a (1) (1).bin", "b.bin", "b (1).bin",
                     QString(251, QLatin1Char('x')) + ".bin",
                     QString(247, QLatin1Char('x')) + " (1).bin"}));
}

QTEST_APPLESS_MAIN(tst_Files)
#include "tst_files.moc"
