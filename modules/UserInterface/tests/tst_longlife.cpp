// A program that runs all day: examples are opened, drawn and closed again and again, and neither
// memory nor files are kept; and much is done while something else is still under way.
#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "ProgramFolder.h"

#include <QDirIterator>
#include <QPixmapCache>
#include <QTest>
#include <QThreadPool>

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // its header is not everywhere
#endif

namespace {
qint64 bytesInUse()
{
#ifdef __SANITIZE_ADDRESS__
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

/// What each open file is, when the pool's threads have ended: each of them has one of its own, and
/// how many there are depends on how busy the machine is.
QStringList openFiles()
{
    QThreadPool::globalInstance()->waitForDone();
    QStringList files;
    for (const QFileInfo &each : QDir("/proc/self/fd").entryInfoList(QDir::System | QDir::Files))
        files.append(each.symLinkTarget());
    files.sort();
    return files;
}

int rounds()
{
    bool given = false;
    const int count = qEnvironmentVariableIntValue("KIV_ROUNDS", &given);
    return given ? count : 20;
}
} // namespace

class tst_LongLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// KIV_ROUNDS says how often; 20 unless given.
    void examplesOpenedAndClosed()
    {
        constexpr int warmUp = 15;              // rounds in which caches are filled
        constexpr qint64 allowedOfRound = 3072; // bytes; less than any page takes
        QPixmapCache::setCacheLimit(0);         // it is emptied by a timer, after half a minute
        const CProgramFolder folder;
        const QStringList examples = copiedExamples(folder);
        QCOMPARE(examples.size(), 3);
        CMainWindow window;
        window.setAutosaveInterval(0);
        window.show();
        qint64 bytes = 0;
        QStringList files;
        for (int round = 0; round < warmUp + rounds(); ++round) {
            if (round == warmUp) {
                bytes = bytesInUse();
                files = openFiles();
            }
            for (const QString &each : examples)
                openAndClose(&window, each, round % 2 == 0);
        }
        qInfo("%d rounds later: %lld bytes more", rounds(), bytesInUse() - bytes);
        QVERIFY(bytesInUse() - bytes < allowedOfRound * rounds());
        QCOMPARE(openFiles(), files);
    }

private:
    static QStringList copiedExamples(const CProgramFolder &folder)
    {
        const QString from = qEnvironmentVariable("KIV_SOURCE_DIR") + QStringLiteral("/examples");
        QStringList projects;
        QDirIterator files(from, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString to = folder.path("examples") + files.next().mid(from.size());
            QDir().mkpath(QFileInfo(to).path());
            QFile::copy(files.filePath(), to);
            if (to.endsWith(QLatin1String(".nyx")))
                projects.append(to);
        }
        return projects;
    }

    /// Every page is shown, and drawn by the emulator, or is still to be when the project goes.
    static void openAndClose(CMainWindow *window, const QString &path, bool waits)
    {
        QVERIFY(window->openProjectFile(path));
        auto *screens = window->findChild<CScreen *>();
        for (int row = 0; row < window->project()->screenCount(); ++row) {
            screens->openScreen(window->project()->screen(row));
            QCoreApplication::processEvents();
        }
        QTRY_VERIFY_WITH_TIMEOUT(!waits || !CEmulatorAdapter::instance()->isBusy(), 60'000);
        QVERIFY(window->closeProject());
        QTRY_VERIFY_WITH_TIMEOUT(!CEmulatorAdapter::instance()->isBusy(), 60'000);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
};

QTEST_MAIN(tst_LongLife)
#include "tst_longlife.moc"
