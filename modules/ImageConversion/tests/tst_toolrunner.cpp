#include "CToolRunner.h"
#include "CToolStubs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTextCodec>
#include <QTimer>
#include <QtTest>
#include <csignal>
#include <unistd.h>

// Tools of every bad kind: the box always closes, and nothing is left running.

namespace {

/// Does something with the modal box once it is shown.
class CBoxWatcher : public QObject
{
public:
    explicit CBoxWatcher(std::function<void(QMessageBox *)> action) : m_action(std::move(action))
    {
        startTimer(5);
    }
    bool hasSeenBox() const { return m_hasSeen; }

protected:
    void timerEvent(QTimerEvent *) override
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        m_hasSeen = true;
        m_action(box);
    }

private:
    std::function<void(QMessageBox *)> m_action;
    bool m_hasSeen = false;
};

/// Running or stopped; a zombie that nobody has collected yet does not count.
bool isAlive(qint64 pid)
{
    const QByteArray stat = TestFiles::read(QStringLiteral("/proc/%1/stat").arg(pid));
    return !stat.isEmpty() && !stat.mid(stat.lastIndexOf(')')).startsWith(") Z");
}

#ifdef __SANITIZE_ADDRESS__
constexpr qint64 MostFloodMemory = 330'000'000; // it keeps 256 MiB of what was freed
#else
constexpr qint64 MostFloodMemory = 20'000'000;
#endif

qint64 residentBytes()
{
    const QByteArray pages =
        TestFiles::read(QStringLiteral("/proc/self/statm")).split(' ').value(1);
    return pages.toLongLong() * sysconf(_SC_PAGESIZE);
}

} // namespace

class tst_ToolRunner : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void badTools();
    void goodToolsAreLeftToEnd();
    void waysToEndAHungTool_data();
    void waysToEndAHungTool();
    void whatAToolLeavesBehindIsEnded();
    void parentOfTheBoxGoesAway();
    void boxOfTheCaller_data();
    void boxOfTheCaller();
    void floodStaysOutOfMemory();

private:
    QString run(const QByteArray &commands, int timeLimit = CToolRunner::DefaultTimeLimit,
                const QStringList &arguments = {});
    QList<qint64> pids() const; ///< of those that the stub has noted

    std::unique_ptr<CToolStubs> m_stubs;
};

void tst_ToolRunner::initTestCase()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

void tst_ToolRunner::init()
{
    m_stubs = nullptr;
    m_stubs = std::make_unique<CToolStubs>();
}

QString tst_ToolRunner::run(const QByteArray &commands, int timeLimit, const QStringList &arguments)
{
    m_stubs->addTool("stub.exe", commands);
    return CToolRunner(timeLimit).run(
        {m_stubs->toolPath("stub.exe"), arguments, m_stubs->path("")});
}

QList<qint64> tst_ToolRunner::pids() const
{
    QList<qint64> result;
    for (const QByteArray &word : TestFiles::read(m_stubs->path("pids")).simplified().split(' '))
        if (!word.isEmpty())
            result.append(word.toLongLong());
    return result;
}

void tst_ToolRunner::badTools()
{
    const std::pair<const char *, const char *> cases[] = {
        {"", "cannot be started"}, // no such program
        {"no x", "cannot be started"},
        {"\x7f"
         "ELF nonsense",
         "stub"},
        {"exit 3", "stub failed"},
        {"echo 'no room' >&2; exit 1", "no room"},
        {"kill -SEGV $$", "stub failed"},
        {"kill -KILL $$", "stub failed"},
        {"read answer || exit 7", "stub failed"}, // asks
        {"read a < /dev/tty; exit 7", "stub"},
    };
    const QString file = m_stubs->toolPath("stub.exe");
    for (const auto &[commands, expected] : cases) {
        m_stubs->addTool("stub.exe", commands);
        if (*commands == '\x7f')
            TestFiles::write(file, commands);
        if (QByteArray(commands) == "no x")
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        if (!*commands)
            QFile::remove(file);
        const QString error = CToolRunner().run({file, {}, m_stubs->path("")});
        QVERIFY2(error.contains(expected), qPrintable(commands + (": " + error)));
        for (const QWidget *widget : QApplication::topLevelWidgets())
            QVERIFY(!widget->isVisible());
    }
}

void tst_ToolRunner::goodToolsAreLeftToEnd()
{
    QCOMPARE(run("exit 0"), QString());
    QCOMPARE(run("sleep 0.2; exit 0"), QString());
    m_stubs->addTool("sub/stub.exe", "for a in \"$@\"; do echo \"$a\"; done > words; pwd >> words");
    const QStringList words{"", "a b", "$(touch x)", "\"", "*"};
    const QString program = '"' + m_stubs->toolPath("sub/stub.exe") + '"';
    QCOMPARE(CToolRunner().run({program, words, m_stubs->projectFolder()}), QString());
    QCOMPARE(QString::fromUtf8(TestFiles::read(m_stubs->projectFolder() + "/words")),
             words.join('\n') + '\n' + m_stubs->projectFolder() + '\n');
    const QString missing = m_stubs->path("missing");
    QVERIFY(!CToolRunner().run({program, words, missing}).isEmpty());
}

void tst_ToolRunner::waysToEndAHungTool_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QString>("way");
    const QByteArray tools[] = {
        "echo $$ > pids; while :; do sleep 1000; done",
        "trap '' TERM INT HUP; echo $$ > pids; while :; do sleep 1000; done",
        "(trap '' HUP; sleep 1000) & echo $! > pids; sleep 1000 & echo $! $$ >> pids; wait",
        "yes & echo $! $$ > pids; yes"};
    const char *const kinds[] = {"sleeps", "ignores signals", "forks", "floods"};
    for (int i = 0; i < 4; ++i)
        for (const char *way : {"Cancel", "Escape", "close", "limit"})
            QTest::addRow("%s, %s", kinds[i], way) << tools[i] << way;
}

void tst_ToolRunner::waysToEndAHungTool()
{
    QFETCH(QByteArray, commands);
    QFETCH(QString, way);
    CBoxWatcher watcher([&](QMessageBox *box) {
        if (pids().isEmpty() || !isAlive(pids().last()))
            return; // not until the tool is at its worst
        if (way == "Cancel")
            box->button(QMessageBox::Cancel)->click();
        else if (way == "Escape")
            QTest::keyClick(box, Qt::Key_Escape);
        else if (way == "close")
            box->close();
    });
    const bool isLimit = way == "limit";
    const QString error = run(commands, isLimit ? 500 : CToolRunner::DefaultTimeLimit);
    QCOMPARE(error, QString(isLimit ? "stub did not end in time" : "stub was cancelled"));
    QVERIFY(watcher.hasSeenBox());
    QVERIFY(!pids().isEmpty());
    for (const qint64 pid : pids())
        QTRY_VERIFY2(!isAlive(pid), qPrintable(QString::number(pid)));
}

void tst_ToolRunner::whatAToolLeavesBehindIsEnded()
{
    QCOMPARE(run("sleep 1000 & echo $! > pids; exit 0"), QString());
    QCOMPARE(pids().size(), 1);
    QTRY_VERIFY(!isAlive(pids().first()));
    QVERIFY(!run("sleep 1000 & echo $! > pids; exit 1").isEmpty());
    QTRY_VERIFY(!isAlive(pids().first()));
}

void tst_ToolRunner::parentOfTheBoxGoesAway()
{
    auto *window = new QWidget;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    CBoxWatcher watcher([&](QMessageBox *box) {
        QCOMPARE(box->parentWidget(), window);
        delete window;
    });
    QCOMPARE(run("sleep 1000"), QString("stub was cancelled"));
    QVERIFY(watcher.hasSeenBox());
}

void tst_ToolRunner::boxOfTheCaller_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Cancel", "Escape", "close", "delete"})
        QTest::newRow(way) << way;
}

void tst_ToolRunner::boxOfTheCaller()
{
    QFETCH(QString, way);
    QPointer<QProgressDialog> box = new QProgressDialog("", "Cancel", 0, 2);
    box->setAutoClose(false);
    box->show();
    QVERIFY(QTest::qWaitForWindowActive(box));
    const auto runUnder = [&](const QByteArray &commands) {
        m_stubs->addTool("stub.exe", commands);
        return CToolRunner(CToolRunner::DefaultTimeLimit, box)
            .run({m_stubs->toolPath("stub.exe"), {}, m_stubs->path("")});
    };
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(runUnder("exit 0"), QString());
        QVERIFY(box->isVisible()); // nothing flickers
    }
    QTimer::singleShot(300, box, [&] {
        if (way == "Cancel")
            box->findChild<QPushButton *>()->click();
        else if (way == "Escape")
            QTest::keyClick(box, Qt::Key_Escape);
        else if (way == "close")
            box->close();
        else
            delete box;
    });
    QCOMPARE(runUnder("echo $$ > pids; while :; do sleep 1000; done"),
             QString("stub was cancelled"));
    QTRY_VERIFY(pids().isEmpty() || !isAlive(pids().first()));
    if (box) // and so is what would come next
        QCOMPARE(runUnder("sleep 1000"), QString("stub was cancelled"));
    delete box;
}

void tst_ToolRunner::floodStaysOutOfMemory()
{
    const qint64 before = residentBytes();
    qint64 most = 0;
    CBoxWatcher watcher([&](QMessageBox *) { most = qMax(most, residentBytes()); });
    const QString error = run("head -c 400000000 /dev/zero | tr '\\0' x >&2; exit 1");
    QVERIFY(watcher.hasSeenBox());
    QCOMPARE(error.size(), CToolRunner::MaxOutput);
    QVERIFY2(most - before < MostFloodMemory, qPrintable(QString::number(most - before)));
}

QTEST_MAIN(tst_ToolRunner)
#include "tst_toolrunner.moc"
