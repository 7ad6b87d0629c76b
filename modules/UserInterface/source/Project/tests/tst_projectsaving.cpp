// What is on the disk when a save is killed, runs out of space, is refused, or meets a system call
// that fails.
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
        m_file = m_folder->filePath("demo.nyx");
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
        QVERIFY(model.loadFromBytes(document("demo", LargeProject), nullptr));
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

    void everyCallFailsInTurn()
    {
        QVERIFY(writeFile(m_file, document("demo", 20)));
        QProcess process;
        process.start(QStringLiteral(FAILING_CALLS), {m_file});
        QVERIFY(process.waitForFinished(600000));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(process.exitCode() == 0 && process.exitStatus() == QProcess::NormalExit,
                 output + process.readAllStandardError());
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
