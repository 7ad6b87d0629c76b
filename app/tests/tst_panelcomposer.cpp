// The program as a process: no display, the project of the command line, signals that end it.
#include "TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

class tst_PanelComposer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// A copy of the program folder, because the program writes its settings beside itself.
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        const QDir bin(qEnvironmentVariable("KIV_BIN_DIR"));
        for (const char *name : {"panel-composer", "libQxKivEmuLib.so"})
            QVERIFY(QFile::copy(bin.filePath(QLatin1String(name)), path(name)));
        for (const char *name : {"widget-library.xml", "kiv_render.lua"})
            QVERIFY(QFile::link(bin.filePath(QLatin1String(name)), path(name)));
        QVERIFY(QDir(m_folder->path()).mkpath("work"));
        QFile project(path("work/demo.nyx"));
        QVERIFY(project.open(QIODevice::WriteOnly));
        project.write("<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" "
                      "height=\"272\"><Kiv_Screen_T name=\"First\"><Kiv_Bitmap_T id=\"1\" "
                      "basename=\"a\" bfolder=\"stalled.d\" format=\"L8\" bwidth=\"8\" "
                      "bheight=\"8\"/></Kiv_Screen_T></Kiv_Project_T>");
        QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("work/stalled.d")));
        QFile bitmap(path("work/stalled.d/a_L8.raw"));
        QVERIFY(bitmap.open(QIODevice::WriteOnly) && bitmap.resize(64));
    }

    void noDisplay()
    {
        for (const char *display : {"", ":4711"}) {
            QProcess program;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.remove("WAYLAND_DISPLAY");
            environment.remove("QT_QPA_PLATFORM");
            environment.insert("DISPLAY", QLatin1String(display));
            program.setProcessEnvironment(environment);
            program.start(path("panel-composer"), QStringList());
            QVERIFY(program.waitForFinished());
            QCOMPARE(program.exitStatus(), QProcess::NormalExit);
            QCOMPARE(program.exitCode(), 2);
            const QByteArray told = program.readAllStandardError();
            QCOMPARE(told.count('\n'), 1);
            QVERIFY(told.contains("no display"));
        }
    }

    void endedBySignal_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("diskHangs"); // in the file of the bitmap
        QTest::newRow("SIGTERM") << SIGTERM << false;
        QTest::newRow("SIGHUP") << SIGHUP << false;
        QTest::newRow("SIGINT") << SIGINT << false;
        QTest::newRow("SIGTERM while the emulator hangs") << SIGTERM << true;
    }

    /// Opens the project that is named relative to where the user stands, and ends in order.
    void endedBySignal()
    {
        QFETCH(int, number);
        QFETCH(bool, diskHangs);
        QProcess program;
        if (diskHangs) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(
                "LD_PRELOAD",
                QDir(qEnvironmentVariable("KIV_BIN_DIR")).filePath("../tests/stalleddisk.so"));
            program.setProcessEnvironment(environment);
        }
        program.setWorkingDirectory(path("work"));
        program.start(path("panel-composer"), {QStringLiteral("demo.nyx")});
        QVERIFY(program.waitForStarted());
        const QString lock = path("work/.demo.nyx.lock");
        // A lock is there a moment before it says whose it is.
        QTRY_VERIFY_WITH_TIMEOUT(!TestFiles::read(lock).isEmpty(), 60000);
        QByteArray told;
        QTRY_VERIFY_WITH_TIMEOUT(
            !diskHangs || (told += program.readAllStandardError()).contains("stalled"), 60000);
        // The signal may come at any moment from here on; before the event loop, it waits for it.
        QVERIFY(::kill(pid_t(program.processId()), number) == 0);
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(!QFile::exists(lock));
        QVERIFY(TestFiles::read(path("config.ini")).contains("demo.nyx"));
    }

    /// The signal comes while the program asks, before its window is there. No answer is no reason
    /// to touch the file.
    void endedBySignalWhileAsking()
    {
        const QString lock = path("work/.demo.nyx.lock");
        QProcess crashing;
        crashing.start(path("panel-composer"), {path("work/demo.nyx")});
        QTRY_VERIFY_WITH_TIMEOUT(!TestFiles::read(lock).isEmpty(), 60000);
        const QByteArray deadLock = TestFiles::read(lock);
        crashing.kill();
        QVERIFY(crashing.waitForFinished());
        const QByteArray autosaved = TestFiles::read(path("work/demo.nyx"));
        QVERIFY(QFile::copy(path("work/demo.nyx"), path("work/.demo.nyx.saved")));
        QFile project(path("work/.demo.nyx.saved"));
        QVERIFY(project.open(QIODevice::Append) && project.write("<!-- older -->") > 0);
        project.close();

        QProcess program;
        program.start(path("panel-composer"), {path("work/demo.nyx")});
        QVERIFY(program.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            !TestFiles::read(lock).isEmpty() && TestFiles::read(lock) != deadLock, 60000);
        QVERIFY(::kill(pid_t(program.processId()), SIGTERM) == 0);
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(!QFile::exists(lock));
        QCOMPARE(TestFiles::read(path("work/demo.nyx")), autosaved);
    }

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_PanelComposer)
#include "tst_panelcomposer.moc"
