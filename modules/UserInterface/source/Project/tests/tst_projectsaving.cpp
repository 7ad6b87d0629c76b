// What is on the disk when a save is killed, runs out of space, is refused, or meets a system call
// that fails.
#include "CFileSizeLimit.h"
#include "CProjectLock.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

using namespace ProjectTestSupport;

namespace {
constexpr int LargeProject = 3000; // items; about 200 kB

/// A session in which a file has been opened; without a project when that failed.
struct Opened
{
    explicit Opened(const QString &file) { session.openFile(file); }
    CScriptedUser user;
    CRecentProjects recent;
    CProjectSession session{&user, &recent};
};

int killCount()
{
    bool given = false;
    const int count = qEnvironmentVariableIntValue("KIV_KILLS", &given);
    return given ? count : 200;
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

    void killedAtAnyMoment_data()
    {
        QTest::addColumn<QString>("task");
        QTest::addColumn<int>("kills");
        QTest::newRow("saved by hand") << "save" << killCount();
        QTest::newRow("in every way") << "saveall" << killCount() / 4;
    }

    /// KIV_KILLS says how often; 200 unless given.
    void killedAtAnyMoment()
    {
        QFETCH(QString, task);
        QFETCH(int, kills);
        CProjectModel model;
        QVERIFY(model.loadFromBytes(document(QStringLiteral("demo"), LargeProject), nullptr));
        model.setWorkingDirectory(m_folder->path());
        const QByteArray a = model.saveToBytes(nullptr, m_file);
        change(&model, largeText());
        const QByteArray b = model.saveToBytes(nullptr, m_file);
        QVERIFY(a.size() > 180'000 && b.size() > a.size());

        int changes = 0;
        int orphans = 0;
        QRandomGenerator random(20240611);
        // Grows and shrinks with what is met, so that kills fall into the time that a few saves
        // take here, three of four behind the first one.
        double microseconds = 20'000;
        for (int i = 0; i < kills; ++i) {
            for (const QString &each : filesIn(m_folder->path()))
                QFile::remove(m_folder->filePath(each));
            QVERIFY(writeFile(m_file, a));
            QProcess saver;
            saver.start(QStringLiteral(PROJECT_PROCESS), {task, m_file});
            while (!saver.canReadLine())
                QVERIFY2(saver.waitForReadyRead(30000), "the saving process does not begin");
            QThread::usleep(random.bounded(quint32(microseconds)));
            saver.kill();
            QVERIFY(saver.waitForFinished());
            QCOMPARE(saver.exitStatus(), QProcess::CrashExit); // not ended by itself

            const QByteArray left = readFile(m_file);
            QVERIFY2(left == a || left == b, "torn");
            changes += left == b;
            microseconds = qBound(1'000.0, microseconds * (left == b ? 0.97 : 1.1), 2'000'000.0);
            orphans += !temporaryFiles().isEmpty();
            const QString faults = whatIsNotWholeOrTidiedUp();
            QVERIFY2(faults.isEmpty(), qPrintable(faults));
        }
        qInfo("%d kills: %d with a temporary file left, %d times the changed document", kills,
              orphans, changes);
        QVERIFY2(kills < 100 || changes > 0, "it never met a save");
    }

    void fullDiskAtEveryKilobyte()
    {
        QVERIFY(writeFile(m_file, document(QStringLiteral("demo"), LargeProject)));
        Opened opened(m_file);
        CScriptedUser &user = opened.user;
        CProjectSession &session = opened.session;
        QVERIFY(session.project());
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
        QVERIFY(process.waitForFinished(600000));
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
        Opened opened(m_file);
        CScriptedUser &user = opened.user;
        CProjectSession &session = opened.session;
        QVERIFY(session.project());
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
    QStringList temporaryFiles() const
    {
        return filesIn(m_folder->path())
            .filter(QRegularExpression("\\.(nyx|saved)\\.[A-Za-z]{6}$"));
    }

    /// Each project that lies there, and each backup, should be as it was written, and stay so when
    /// it is opened, which takes away what the killed process has left. Empty when all is so.
    QString whatIsNotWholeOrTidiedUp() const
    {
        QStringList faults;
        for (const QString &name : filesIn(m_folder->path())) {
            const bool isProject = name.endsWith(QLatin1String(".nyx"));
            if (!isProject && !name.endsWith(QLatin1String(".saved")))
                continue;
            const QByteArray bytes = readFile(m_folder->filePath(name));
            CProjectModel model;
            const bool isRead = model.loadFromBytes(bytes, nullptr);
            model.setWorkingDirectory(m_folder->path());
            const QByteArray whole = model.saveToBytes(nullptr, m_file);
            // A backup says whose it is at its end.
            if (!isRead || !(isProject ? bytes == whole : bytes.startsWith(whole)))
                faults.append(name + QStringLiteral(": torn"));
            if (!isProject)
                continue;
            // Killed between making a lock and writing whose it is: that nobody holds it cannot be
            // known, so the user would be asked.
            QFile lock(CProjectLock::lockPath(m_folder->filePath(name)));
            if (lock.size() == 0)
                lock.remove();
            const Opened opened(m_folder->filePath(name));
            const CScriptedUser &user = opened.user;
            if (!opened.session.project())
                faults.append(name + QStringLiteral(": not opened"));
            faults += user.errors + user.notices;
            if (!user.asked.isEmpty() && user.asked != QStringList("autosaved"))
                faults.append(name + QStringLiteral(": asks ") + user.asked.join(' '));
        }
        return (faults + temporaryFiles()).join('\n');
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(tst_ProjectSaving)
#include "tst_projectsaving.moc"
