#include "CProjectLock.h"
#include "ProjectTestSupport.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

#include <cstdio>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
/// A second process that does one task; see projectprocess.cpp.
class CProcess
{
public:
    CProcess(const QString &task, const QString &file)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(PROJECT_PROCESS), {task, file});
    }
    ~CProcess()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished())
            m_process.kill();
        m_process.waitForFinished();
    }
    QByteArray line()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(30000))
                return "nothing";
        }
        return m_process.readLine().trimmed();
    }
    void goOn()
    {
        m_process.write("\n");
        m_process.waitForBytesWritten();
    }
    void waitForEnd() { m_process.waitForFinished(); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};
} // namespace

using namespace ProjectTestSupport;
using EResult = CProjectLock::EResult;

class tst_ProjectLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath("demo.nyx");
        m_lockFile = m_folder->filePath(".demo.nyx.lock");
    }

    void lockFileLivesAsLongAsTheLock()
    {
        QCOMPARE(CProjectLock::lockPath(m_file), m_lockFile);
        {
            CProjectLock lock(m_file);
            QVERIFY(!QFile::exists(m_lockFile));
            QCOMPARE(lock.tryLock(), EResult::Taken);
            QVERIFY(QFile::exists(m_lockFile));
            QVERIFY(lock.isStillOwned());
            QVERIFY(!lock.deadSession());
            CProjectLock second(m_file);
            QCOMPARE(second.tryLock(), EResult::HeldElsewhere);
        } // the second one, which is not the owner, has removed nothing before
        QVERIFY(!QFile::exists(m_lockFile));
        QCOMPARE(filesIn(m_folder->path()), QStringList());
    }

    /// Never taken without a question, however old; taken after it.
    void foreignLocks_data()
    {
        const QByteArray own = QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
                               QCoreApplication::applicationName().toUtf8();
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("garbage") << QByteArray("\0\xff not a lock\n", 13);
        QTest::newRow("other host, dead there or not") << foreignLock;
        QTest::newRow("the own process id") << own + "\n\n\n\n";
    }

    void foreignLocks()
    {
        QFETCH(QByteArray, content);
        QVERIFY(writeFile(m_lockFile, content));
        QFile file(m_lockFile);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addYears(-1),
                                 QFileDevice::FileModificationTime));
        file.close();

        CProjectLock lock(m_file);
        QCOMPARE(lock.tryLock(), EResult::HeldElsewhere);
        QCOMPARE(readFile(m_lockFile), content);
        QCOMPARE(lock.takeOver(), EResult::Taken);
        QVERIFY(lock.isStillOwned());
    }

    /// Made by a process that ended before it could write it: silently taken, unless that process
    /// may only be about to write.
    void locksThatWereNeverWritten()
    {
        for (const QByteArray &content : {QByteArray(), QByteArray(40, '\0')}) {
            QVERIFY(writeFile(m_lockFile, content));
            QCOMPARE(CProjectLock(m_file).tryLock(), EResult::HeldElsewhere); // too young
            QFile file(m_lockFile);
            QVERIFY(file.open(QIODevice::ReadWrite));
            const QDateTime begun = QDateTime::currentDateTime().addSecs(-6);
            QVERIFY(file.setFileTime(begun, QFileDevice::FileModificationTime));
            QCOMPARE(flock(file.handle(), LOCK_EX), 0);
            QCOMPARE(CProjectLock(m_file).tryLock(), EResult::HeldElsewhere);
            file.close();
            CProjectLock lock(m_file);
            QCOMPARE(lock.tryLock(), EResult::Taken);
            QVERIFY(lock.deadSession() && lock.isStillOwned() && !lock.isTakenOver());
        }
    }

    void whatCannotBeALock()
    {
        CProjectLock nowhere(m_folder->filePath("missing/demo.nyx"));
        QCOMPARE(nowhere.tryLock(), EResult::Unavailable);
        QVERIFY(writeFile(m_folder->filePath("file"), "x"));
        CProjectLock inFile(m_folder->filePath("file/demo.nyx"));
        QCOMPARE(inFile.tryLock(), EResult::Unavailable);
        QVERIFY(!inFile.isTaken());

        QVERIFY(writeFile(m_folder->filePath("other"), foreignLock));
        const QByteArray place = QFile::encodeName(m_lockFile);
        const std::function<bool()> obstacles[] = {
            [&] { return mkdir(place.constData(), 0700) == 0; },
            [&] { return mkfifo(place.constData(), 0600) == 0; }, // reading it would never end
            [&] { return symlink("other", place.constData()) == 0; },
            [&] { return symlink("nowhere", place.constData()) == 0; },
        };
        for (const auto &make : obstacles) {
            QVERIFY(make());
            CProjectLock lock(m_file);
            QCOMPARE(lock.tryLock(), EResult::NotAFile);
            QVERIFY(!lock.isTaken() && !lock.isOusted());
            QCOMPARE(::remove(place.constData()), 0); // it was left there
        }
        QCOMPARE(readFile(m_folder->filePath("other")), foreignLock);
    }

    /// Whatever links lead to it.
    void lockStandsForTheFileItself()
    {
        const QString real = m_folder->filePath("real");
        QVERIFY(QDir().mkdir(real) && writeFile(real + QStringLiteral("/demo.nyx"), "x"));
        const QString linked = m_folder->filePath("linked");
        QVERIFY(QFile::link(real, linked) && QFile::link(real + "/demo.nyx", m_file));
        CProjectLock lock(real + QStringLiteral("/demo.nyx"));
        QCOMPARE(lock.tryLock(), EResult::Taken);
        for (const QString &way : {m_file, linked + "/demo.nyx"})
            QCOMPARE(CProjectLock(way).tryLock(), EResult::HeldElsewhere);
        CProjectLock unwritten(linked + QStringLiteral("/new.nyx"));
        QCOMPARE(unwritten.tryLock(), EResult::Taken);
        QCOMPARE(CProjectLock(real + QStringLiteral("/new.nyx")).tryLock(), EResult::HeldElsewhere);
    }

    /// The one that was ousted knows it, and leaves the other's lock file in peace.
    void oustedOwnerLeavesTheNewLock()
    {
        CProcess other("lock", m_file);
        QCOMPARE(other.line(), QByteArray("taken"));
        {
            CProjectLock lock(m_file);
            QCOMPARE(lock.tryLock(), EResult::HeldElsewhere);
            QCOMPARE(lock.takeOver(), EResult::Taken);
            other.goOn();
            QCOMPARE(other.line(), QByteArray("lost"));
            other.goOn();
            other.waitForEnd();
            QVERIFY(lock.isStillOwned());
            CProcess third("lock", m_file);
            QCOMPARE(third.line(), QByteArray("held"));
            third.goOn();
            third.goOn();
            third.waitForEnd();
        }
        QVERIFY(!QFile::exists(m_lockFile));
    }

    /// Two processes that were both told of one live lock take it over at once: one of them gets
    /// it, and the file is that one's.
    void racesHaveOneOwner()
    {
        const int rounds = qEnvironmentVariableIsSet("KIV_LOCK_RACES")
                               ? qEnvironmentVariableIntValue("KIV_LOCK_RACES")
                               : 200;
        for (int round = 0; round < rounds; ++round) {
            QVERIFY(writeFile(m_lockFile, foreignLock));
            CProcess a("takeover", m_file);
            CProcess b("takeover", m_file);
            QCOMPARE(a.line(), QByteArray("held"));
            QCOMPARE(b.line(), QByteArray("held"));
            a.goOn();
            b.goOn();
            QCOMPARE((a.line() == "taken") + (b.line() == "taken"), 1);
            a.goOn();
            b.goOn();
            QCOMPARE((a.line() == "owned") + (b.line() == "owned"), 1);
            a.goOn();
            b.goOn();
            a.waitForEnd();
            b.waitForEnd();
            QVERIFY(!QFile::exists(m_lockFile));
        }
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    QString m_lockFile;
};

QTEST_GUILESS_MAIN(tst_ProjectLock)
#include "tst_projectlock.moc"
