#include "CFileWriter.h"
#include "CXmlGuard.h"
#include "FileNames.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden |
                                  QDir::NoDotAndDotDot);
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
/// 0 when the bytes are written, 1 when they are refused; no file may grow past the limit.
int writeWithLimit(const QString &path, const QByteArray &bytes, int limit)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit size = {rlim_t(limit), rlim_t(limit)};
    if (setrlimit(RLIMIT_FSIZE, &size) != 0)
        return 2;
    return CFileWriter::write(path, bytes).isEmpty() ? 0 : 1;
}
} // namespace

/// Writing whole files, and the names of files.
class tst_Files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesAndReplaces()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a ä.nyx"));
        const QByteArray large(3'000'000, 'x');
        for (const QByteArray &bytes :
             {QByteArray("old"), large, QByteArray(), QByteArray("a\0b", 3)}) {
            QCOMPARE(CFileWriter::write(path, bytes), QString());
            QCOMPARE(contentOf(path), bytes);
            QCOMPARE(QFileInfo(path).permission(QFile::WriteOther), bytes != "old"); // rights stay
            QCOMPARE(chmod(qPrintable(path), 0646), 0);
        }
        QCOMPARE(entriesOf(folder.path()).size(), 1);
    }

    void badTargets()
    {
        QTemporaryDir folder;
        QDir(folder.path()).mkdir(QStringLiteral("folder"));
        QCOMPARE(CFileWriter::write(folder.filePath(QStringLiteral("file")), "kept"), QString());
        QCOMPARE(mkfifo(qPrintable(folder.filePath(QStringLiteral("pipe"))), 0600), 0);
        const QStringList before = entriesOf(folder.path());
        for (const QString &path :
             {QString("folder"), QString("missing/file"), QString("file/file"), QString("pipe"),
              QString::fromLatin1("a\0b", 3), QString(300, QLatin1Char('x'))}) {
            const QString error =
                CFileWriter::write(folder.path() + QLatin1Char('/') + path, "new");
            QVERIFY2(error.contains(folder.path()), qPrintable(path));
            QCOMPARE(entriesOf(folder.path()), before);
            QCOMPARE(contentOf(folder.filePath(QStringLiteral("file"))), QByteArray("kept"));
        }
        QVERIFY(!CFileWriter::write(QString(), "new").isEmpty());
    }

    void foldersThatForbid()
    {
        const std::pair<mode_t, int> cases[] = {
            {0666, 0}, // a writable file in a read-only folder is written in place
            {0444, 1}, // a read-only one is refused
            {0, 1},    // and so is a new one
        };
        for (const auto &[fileMode, result] : cases) {
            QTemporaryDir folder;
            const QString inner = folder.filePath(QStringLiteral("inner"));
            QVERIFY(QDir().mkdir(inner));
            const QString path = inner + QStringLiteral("/project.nyx");
            if (fileMode != 0) {
                QCOMPARE(CFileWriter::write(path, QByteArray(900, 'o')), QString());
                QCOMPARE(chmod(qPrintable(path), fileMode), 0);
            }
            QCOMPARE(chmod(qPrintable(folder.path()), 0755), 0);
            QCOMPARE(chmod(qPrintable(inner), 0555), 0);
            const auto unprivileged = [&](int limit, const QByteArray &bytes) {
                return inChild([&] {
                    if (getuid() == 0 && setuid(65534) != 0) // root may write everywhere
                        return 2;
                    return writeWithLimit(path, bytes, limit);
                });
            };
            const QByteArray before = contentOf(path);
            if (result == 0) { // a direct write that fails puts the old bytes back
                QCOMPARE(unprivileged(1000, QByteArray(5000, 'n')), 1);
                QCOMPARE(contentOf(path), before);
            }
            const QByteArray fresh(500, 'n');
            QCOMPARE(unprivileged(1000000, fresh), result);
            QCOMPARE(contentOf(path), result == 0 ? fresh : before);
            QCOMPARE(chmod(qPrintable(inner), 0755), 0);
        }
    }

    void readsNoMoreThanItMay()
    {
        QTemporaryDir folder;
        const QString large = folder.filePath(QStringLiteral("large"));
        QFile file(large);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(CXmlGuard::MaxBytes + 1));
        for (const QString &path : {large, folder.filePath(QStringLiteral("none"))}) {
            QString error;
            QVERIFY(!CXmlGuard::readFile(path, &error));
            QVERIFY(error.contains(path));
        }
        const auto refusedToOthers = [](const QString &path) {
            return inChild([&] {
                if (getuid() == 0 && setuid(65534) != 0) // root may read everything
                    return 2;
                QString error;
                CXmlGuard::readFile(path, &error);
                return int(error.contains(QStringLiteral("Permission denied")));
            });
        };
        const QString inner = folder.filePath(QStringLiteral("inner"));
        QVERIFY(QDir().mkdir(inner) && chmod(qPrintable(folder.path()), 0755) == 0);
        const QString hidden = inner + QStringLiteral("/a");
        QVERIFY(QFile(hidden).open(QIODevice::WriteOnly) && chmod(qPrintable(hidden), 0) == 0);
        QCOMPARE(refusedToOthers(hidden), 1);
        QCOMPARE(chmod(qPrintable(inner), 0), 0); // nor the folder
        QCOMPARE(refusedToOthers(hidden), 1);
        QCOMPARE(chmod(qPrintable(inner), 0700), 0);
    }

    void safeNames()
    {
        const QString longName(300, QLatin1Char('x'));
        const QString smile = QStringLiteral("\U0001F600");
        const std::pair<QString, QString> cases[] = {
            {"Page 1", "Page 1"},
            {"Küche 台所 \U0001F600", "Küche 台所 \U0001F600"},
            {"..", "_"},
            {"../../evil", ".._.._evil"},
            {"/etc/passwd", "_etc_passwd"},
            {"C:\\x", "C__x"},
            {"a*b?c\"d<e>f|g", "a_b_c_d_e_f_g"},
            {QString::fromLatin1("a\0b", 3), "a_b"},
            {"a\nb", "a_b"},
            {"  a. . ", "a"},
            {"", "_"},
            {"con", "_con"}, // a device, also with a suffix
            {"LPT1.old", "_LPT1.old"},
            {"console", "console"},
            {QString(QChar(0xD800)) + QLatin1Char('a'), "_a"}, // half a surrogate pair
            {longName, longName.left(251)},                    // 255 bytes with the suffix
            {QString(300, QChar(0x4e00)), QString(83, QChar(0x4e00))},
            {smile.repeated(100), smile.repeated(62)}, // pairs are not cut
        };
        for (const auto &[name, expected] : cases)
            QCOMPARE(FileNames::safe(name, QStringLiteral(".png")),
                     expected + QLatin1String(".png"));
    }

    void clashes()
    {
        const QString longName(300, QLatin1Char('x'));
        QCOMPARE(FileNames::unusedForAll({"a", "A", "a", "a (1)", "b", "b.", longName, longName},
                                         ".bin"),
                 QStringList({"a.bin", "A (1).bin", "a (2).bin", "a (1) (1).bin", "b.bin",
                              "b (1).bin", QString(251, QLatin1Char('x')) + ".bin",
                              QString(247, QLatin1Char('x')) + " (1).bin"}));
    }
};

QTEST_APPLESS_MAIN(tst_Files)
#include "tst_files.moc"
