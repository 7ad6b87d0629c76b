// What is on the disk when a save is killed, runs out of space, is refused, or meets a system call
// that fails.
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <csignal>
#include <memory>
#include <sys/resource.h>

using namespace ProjectTestSupport;

namespace {
constexpr int LargeProject = 3000; // items; about 200 kB

/// Lets no file of this process grow beyond a size, until it goes.
class CFileSizeLimit
{
public:
    explicit CFileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int) = nullptr;
};

int killCount()
{
    bool given = false;
    const int count = qEnvironmentVariableIntValue("KIV_KILLS", &given);
    return given ? count : 1000;
}
} // namespace

class tst_ProjectSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath(QStringLiteral("demo.nyx"));
    }

    /// KIV_KILLS says how often; 1000 unless given.
    void killedAtAnyMoment()
    {
        CProjectModel model;
        QVERIFY(model.loadFromBytes(document(QStringLiteral("a"), LargeProject), nullptr));
        model.setWorkingDirectory(m_folder->path());
        const QByteArray a = model.saveToBytes(nullptr, m_file);
        change(&model, largeText());
        const QByteArray b = model.saveToBytes(nullptr, m_file);
        QVERIFY(a.size() > 180'000 && b.size() > a.size());

        CScriptedUser user;
        CRecentProjects recent;
        int changes = 0;
        int orphans = 0;
        QRandomGenerator random(20240611);
        // The first round lets one save through: kills fall into the time that it takes here.
        quint32 microseconds = 20'000;
        for (int i = -1; i < killCount(); ++i) {
            QVERIFY(writeFile(m_file, a));
            QProcess saver;
            saver.start(QStringLiteral(PROJECT_PROCESS), {QStringLiteral("save"), m_file});
            while (!saver.canReadLine())
                QVERIFY2(saver.waitForReadyRead(30000), "the saving process does not begin");
            QElapsedTimer timer;
            timer.start();
            while (i < 0 && readFile(m_file) != b && timer.elapsed() < 30'000)
                QThread::usleep(100);
            if (i < 0)
                microseconds = qMax(microseconds, quint32(timer.nsecsElapsed() / 500));
            else
                QThread::usleep(random.bounded(microseconds));
            saver.kill();
            QVERIFY(saver.waitForFinished());
            QCOMPARE(saver.exitStatus(), QProcess::CrashExit); // not ended by itself

            const QByteArray left = readFile(m_file);
            QVERIFY2(left == a || left == b, "torn");
            changes += i >= 0 && left == b;
            orphans += filesIn(m_folder->path()).size() > 2;
            CProjectSession session(&user, &recent);
            QVERIFY(session.openFile(m_file));
            QCOMPARE(filesIn(m_folder->path()), QStringList({".demo.nyx.lock", "demo.nyx"}));
        }
        QCOMPARE(user.asked + user.errors + user.notices, QStringList());
        qInfo("%d kills: %d with a temporary file left, %d times the changed document", killCount(),
              orphans, changes);
        QVERIFY2(killCount() < 100 || changes > 0, "it never met a save");
    }

    void fullDiskAtEveryKilobyte()
    {
        QVERIFY(writeFile(m_file, document(QStringLiteral("demo"), LargeProject)));
        CScriptedUser user;
        CRecentProjects recent;
        CProjectSession session(&user, &recent);
        QVERIFY(session.openFile(m_file));
        const QByteArray before = readFile(m_file);
        change(session.project());
        const int size = session.project()->saveToBytes(nullptr, m_file).size();
        QVERIFY(size > 180'000);
        const QStringList files = filesIn(m_folder->path());
        int points = 0;
        for (int limit = 0; limit < size; limit += 1024, ++points) {
            user.errors.clear();
            bool saved = false;
            {
                const CFileSizeLimit full(static_cast<rlim_t>(limit));
                saved = session.save();
            }
            QVERIFY2(!saved, qPrintable(QString::number(limit)));
            QCOMPARE(user.errors, QStringList("An error occurred during saving the project"));
            QVERIFY(!user.reasons.last().isEmpty());
            QVERIFY(session.isDirty());
            QVERIFY(readFile(m_file) == before);
            QCOMPARE(filesIn(m_folder->path()), files);
        }
        QVERIFY(points > 150);
        const CFileSizeLimit enough(static_cast<rlim_t>(size));
        QVERIFY(session.save());
        QCOMPARE(readFile(m_file).size(), size);
    }

    void everyCallFailsInTurn()
    {
        QVERIFY(writeFile(m_file, document(QStringLiteral("demo"), 20)));
        QProcess process;
        process.start(QStringLiteral(FAILING_CALLS), {m_file});
        QVERIFY(process.waitForFinished(120000));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(process.exitCode() == 0 && process.exitStatus() == QProcess::NormalExit,
                 output + process.readAllStandardError());
    }

    /// A user without rights on the folder opens the project, is told that it is not protected,
    /// and may save a file that is writable itself.
    void readOnlyFolder_data()
    {
        QTest::addColumn<bool>("writableFile");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("all read-only") << false << QByteArray("notices 1\nfailed dirty errors 1\n");
        QTest::newRow("only the folder") << true << QByteArray("notices 1\nsaved clean errors 0\n");
    }

    void readOnlyFolder()
    {
        QFETCH(bool, writableFile);
        QFETCH(QByteArray, expected);
        QVERIFY(writeFile(m_file, document(QStringLiteral("demo"), 20)));
        const QByteArray before = readFile(m_file);
        QFile::setPermissions(m_file, QFile::Permissions(writableFile ? 0x6666 : 0x4444));
        QFile::setPermissions(m_folder->path(), QFile::Permissions(0x5555));
        QProcess process;
        process.start(QStringLiteral(PROJECT_PROCESS), {QStringLiteral("nobody"), m_file});
        QVERIFY(process.waitForFinished());
        QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777));
        QCOMPARE(process.readAllStandardOutput(), expected);
        QCOMPARE(readFile(m_file) == before, !writableFile);
        QCOMPARE(filesIn(m_folder->path()), QStringList("demo.nyx"));
    }

    void fileBecomesAFolderAndFolderGoes()
    {
        QVERIFY(writeFile(m_file, document(QStringLiteral("demo"))));
        CScriptedUser user;
        CRecentProjects recent;
        CProjectSession session(&user, &recent);
        QVERIFY(session.openFile(m_file));
        change(session.project());
        QVERIFY(QFile::remove(m_file) && QDir().mkdir(m_file));
        QVERIFY(!session.save());
        QVERIFY(session.autosave() == CProjectSession::EAutosave::Failed);
        QVERIFY(QFileInfo(m_file).isDir());
        QVERIFY(QDir(m_folder->path()).removeRecursively());
        user.asked.clear();
        QVERIFY(!session.save());
        QVERIFY(session.isDirty());
        QCOMPARE(user.errors.size(), 3);
        user.errors.removeDuplicates();
        QCOMPARE(user.errors, QStringList("An error occurred during saving the project"));
        QTemporaryDir elsewhere;
        user.savePath = elsewhere.filePath(QStringLiteral("saved.nyx"));
        QVERIFY(session.saveAs());
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(tst_ProjectSaving)
#include "tst_projectsaving.moc"
