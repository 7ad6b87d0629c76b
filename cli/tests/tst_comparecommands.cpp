#include "TestFiles.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// panel-export diff and verify, run as people and git run them, on changed examples.
class tst_CompareCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aKnownChange_data();
    void aKnownChange();
    void otherPagesAndSizes();
    void anImageFileAlone();
    void wrongCommandLines();
    void gitUsesIt();
    void verify();

private:
    struct SResult
    {
        int exitCode;
        QString out;
        QString errors;
    };
    SResult run(const QStringList &words) const { return run(m_program, words); }
    SResult run(const QString &program, const QStringList &words) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void edit(const QString &file, const QByteArray &from, const QByteArray &to) const;

    const QString m_program = qEnvironmentVariable("KIV_BIN_DIR") + "/panel-export";
    const QString m_examples = qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples/";
    std::unique_ptr<QTemporaryDir> m_folder;
};

/// "old" and "new" hold the thermostat.
void tst_CompareCommands::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *copy : {"old", "new"})
        QCOMPARE(run("cp", {"-r", m_examples + "thermostat", copy}).exitCode, 0);
}

tst_CompareCommands::SResult tst_CompareCommands::run(const QString &program,
                                                      const QStringList &words) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(program, words);
    if (!process.waitForFinished(60000))
        return {-1, QString(), "did not end"};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

void tst_CompareCommands::edit(const QString &file, const QByteArray &from,
                               const QByteArray &to) const
{
    QByteArray bytes = TestFiles::read(path(file));
    QCOMPARE(bytes.count(from), 1);
    TestFiles::write(path(file), bytes.replace(from, to));
}

void tst_CompareCommands::aKnownChange_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QStringList>("told"); ///< but for the line of the pixels
    QTest::addColumn<QRect>("around");     ///< holds all pixels that differ; null: none do

    QTest::newRow("nothing") << QByteArray("id=\"26\"") << QByteArray("id=\"26\"") << QStringList()
                             << QRect();
    QTest::newRow("a value") << QByteArray("selected=\"0\" font=\"26\"")
                             << QByteArray("selected=\"1\" font=\"26\"")
                             << QStringList("screen \"Home\": Kiv_Segments_T 26 \"Mode\": "
                                            "selected: \"0\" -> \"1\"")
                             << QRect(320, 208, 144, 48);
    QTest::newRow("a place") << QByteArray("name=\"Mode\" id=\"26\" x_coordinate=\"320\"")
                             << QByteArray("name=\"Mode\" id=\"26\" x_coordinate=\"324\"")
                             << QStringList("screen \"Home\": Kiv_Segments_T 26 \"Mode\": "
                                            "x_coordinate: \"320\" -> \"324\"")
                             << QRect(320, 208, 148, 48);
    QTest::newRow("a name, which is not seen")
        << QByteArray("name=\"Mode\" id=\"26\"") << QByteArray("name=\"State\" id=\"26\"")
        << QStringList("screen \"Home\": Kiv_Segments_T 26 \"State\": name: \"Mode\" -> \"State\"")
        << QRect();
}

void tst_CompareCommands::aKnownChange()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QStringList, told);
    QFETCH(QRect, around);
    edit("new/thermostat.nyx", from, to);
    const SResult result = run({"diff", "old/thermostat.nyx", "new/thermostat.nyx", "--json",
                                "diff.json", "--png", "pictures"});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, told.isEmpty() ? 0 : 1);
    const QJsonObject json = QJsonDocument::fromJson(TestFiles::read(path("diff.json"))).object();
    QCOMPARE(json["equal"].toBool(), told.isEmpty());
    const QJsonObject pixels = json["screens"].toArray().first().toObject()["pixels"].toObject();
    QStringList lines = result.out.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), told.size() + (around.isNull() ? 0 : 1));
    QCOMPARE(lines.mid(0, told.size()), told);
    QCOMPARE(!pixels.isEmpty(), !around.isNull());
    QCOMPARE(QDir(path("pictures")).entryList(QDir::Files).size(), around.isNull() ? 0 : 3);
    if (around.isNull())
        return;

    // The box and the count are those of the pictures that lie there.
    const QImage before(path("pictures/Home.old.png"));
    const QImage after(path("pictures/Home.new.png"));
    QCOMPARE(before.size(), QSize(480, 272));
    QRect box;
    int count = 0;
    for (int y = 0; y < 272; ++y)
        for (int x = 0; x < 480; ++x)
            if (before.pixel(x, y) != after.pixel(x, y)) {
                box |= QRect(x, y, 1, 1);
                ++count;
            }
    QVERIFY2(around.contains(box), qPrintable(result.out));
    const QJsonArray told_box = pixels["box"].toArray();
    QCOMPARE(
        QRect(told_box[0].toInt(), told_box[1].toInt(), told_box[2].toInt(), told_box[3].toInt()),
        box);
    QCOMPARE(pixels["count"].toInt(), count);
}

void tst_CompareCommands::otherPagesAndSizes()
{
    const auto pictures = [this] {
        return QDir(path("pictures")).entryList(QDir::Files).join(' ');
    };
    const QStringList words{"diff", "old/thermostat.nyx", "new/thermostat.nyx", "--png",
                            "pictures"};
    QByteArray xml = TestFiles::read(path("new/thermostat.nyx"));
    xml.replace("</Kiv_Project_T>", "<Kiv_Screen_T name=\"a/b\"/><Kiv_Screen_T name=\"a:b\"/>"
                                    "</Kiv_Project_T>");
    TestFiles::write(path("new/thermostat.nyx"), xml);
    QCOMPARE(run(words).out, QString("screen \"a/b\": added\nscreen \"a:b\": added\n"));
    QCOMPARE(pictures(), QString("a_b (1).new.png a_b.new.png"));
    QVERIFY(QDir(path("pictures")).removeRecursively());
    const QStringList back{words[0], words[2], words[1], words[3], words[4]};
    QCOMPARE(run(back).out, QString("screen \"a/b\": removed\nscreen \"a:b\": removed\n"));
    QCOMPARE(pictures(), QString("a_b (1).old.png a_b.old.png"));
    QVERIFY(QDir(path("pictures")).removeRecursively());
    edit("new/thermostat.nyx", "width=\"480\" height=\"272\" working",
         "width=\"480\" height=\"200\" working");
    const SResult smaller = run(words);
    QVERIFY2(smaller.out.contains("screen \"Home\": 130560 pixels differ, in 0,0 480x272"),
             qPrintable(smaller.out));
    QCOMPARE(QImage(path("pictures/Home.new.png")).size(), QSize(480, 200));
    QCOMPARE(QImage(path("pictures/Home.diff.png")).size(), QSize(480, 272));
}

/// The projects are the same, what lies beside them is not.
void tst_CompareCommands::anImageFileAlone()
{
    QCOMPARE(run("cp", {"-r", m_examples + "coffee-machine", "beans"}).exitCode, 0);
    QDir folder(path("beans/coffee-machine_ConvertedImages"));
    const QStringList files = folder.entryList({"*.raw"}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &file : files) {
        QByteArray bytes = TestFiles::read(folder.filePath(file));
        for (char &byte : bytes)
            byte = char(~byte);
        TestFiles::write(folder.filePath(file), bytes);
    }
    const QString before = m_examples + "coffee-machine/coffee-machine.nyx";
    const SResult result = run({"diff", before, "beans/coffee-machine.nyx"});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.out.contains("pixels differ"), qPrintable(result.out));
    QCOMPARE(run({"diff", "--folder", QFileInfo(before).path(), before, "beans/coffee-machine.nyx"})
                 .exitCode,
             0);
}

void tst_CompareCommands::wrongCommandLines()
{
    const std::pair<QStringList, const char *> cases[] = {
        {{"diff"}, "BEFORE is missing"},
        {{"diff", "a.nyx"}, "AFTER is missing"},
        {{"diff", "a", "b", "c"}, "\"c\" is more than diff takes"},
        {{"diff", "a", "b", "--json"}, "json"},
        {{"verify", "a.nyx"}, "--baseline is missing"},
    };
    for (const auto &[words, told] : cases) {
        const SResult result = run(words);
        QVERIFY2(result.exitCode == 2 && result.errors.contains(told), qPrintable(result.errors));
    }
    QCOMPARE(run({"diff", "old/thermostat.nyx", "nothing.nyx"}).exitCode, 3);
    QVERIFY(run({"diff", "--help"}).out.contains("difftool"));
}

/// With the lines of the help.
void tst_CompareCommands::gitUsesIt()
{
    QVERIFY(QFile::rename(path("old"), path("repo")));
    const auto git = [this](const QStringList &words) {
        return run("git",
                   QStringList{"-C", "repo", "-c", "user.name=T", "-c", "user.email=t@t"} + words);
    };
    TestFiles::write(path("repo/.gitattributes"), "*.nyx diff=nyx\n");
    QCOMPARE(git({"init", "-q"}).exitCode, 0);
    QCOMPARE(git({"add", "."}).exitCode, 0);
    QCOMPARE(git({"commit", "-q", "-m", "one"}).exitCode, 0);
    const QString help = run({"diff", "--help"}).out;
    QStringList words = {"difftool.nyx.cmd", "diff.nyx.textconv"};
    for (const QString &word : words) {
        const int at = help.indexOf(word + " '") + word.size() + 2;
        QString command = help.mid(at, help.indexOf("'\n", at) - at);
        QVERIFY(command.startsWith("panel-export "));
        command.replace(0, int(qstrlen("panel-export")), '"' + m_program + '"');
        QCOMPARE(git({"config", word, command}).exitCode, 0);
    }
    edit("repo/thermostat.nyx", "name=\"Mode\" id=\"26\"", "name=\"State\" id=\"26\"");
    const SResult tool = git({"difftool", "-y", "-t", "nyx"});
    QVERIFY2(tool.out.contains("name: \"Mode\" -> \"State\"") && !tool.out.contains("pixels"),
             qPrintable(tool.out + tool.errors));
    // Beside it one that was added, and one that was removed.
    QVERIFY(QFile::copy(path("new/thermostat.nyx"), path("repo/added.nyx")));
    QCOMPARE(git({"add", "-N", "added.nyx"}).exitCode, 0);
    QVERIFY(git({"difftool", "-y", "-t", "nyx", "added.nyx"}).out.contains("\"Home\": added"));
    QCOMPARE(git({"rm", "-q", "--cached", "added.nyx"}).exitCode, 0);
    QVERIFY(QFile::rename(path("repo/thermostat.nyx"), path("repo/gone")));
    const SResult gone = git({"difftool", "-y", "-t", "nyx"});
    QVERIFY2(gone.out.contains("\"Home\": removed") && gone.errors.isEmpty(),
             qPrintable(gone.out + gone.errors));
    QCOMPARE(run({"diff", "/dev/null", "new/thermostat.nyx"}).exitCode, 1);
    QVERIFY(QFile::rename(path("repo/gone"), path("repo/thermostat.nyx")));
    const QString text = git({"diff"}).out;
    QVERIFY2(text.contains("-    . name: \"Mode\"") && text.contains("+    . name: \"State\""),
             qPrintable(text));
}

void tst_CompareCommands::verify()
{
    const QStringList words{"verify", "new/thermostat.nyx", "--baseline", "accepted"};
    QCOMPARE(run(words).exitCode, 3); // there is none
    QCOMPARE(run(words + QStringList("--accept")).exitCode, 0);
    const SResult same = run(words);
    QCOMPARE(same.exitCode, 0);
    QCOMPARE(same.errors, QString());
    edit("new/thermostat.nyx", "name=\"Mode\" id=\"26\" x_coordinate=\"320\"",
         "name=\"Mode\" id=\"26\" x_coordinate=\"321\"");
    QVERIFY(QFile::rename(path("accepted/Settings.png"), path("accepted/Other.png")));
    const SResult other = run(words);
    QCOMPARE(other.exitCode, 1);
    QVERIFY(other.errors.contains("screen \"Home\": ") && other.errors.contains("pixels differ"));
    QVERIFY(other.errors.contains("no accepted picture accepted/Settings.png"));
    QVERIFY(other.errors.contains("accepted/Other.png: This picture belongs to no screen"));
    QCOMPARE(QDir(path("accepted/failed")).entryList(QDir::Files),
             QStringList({"Home.diff.png", "Home.new.png", "Settings.new.png"}));
    // All of them or none: the last one cannot be written.
    QVERIFY(QFile::remove(path("accepted/Schedule.png")));
    QVERIFY(QDir().mkpath(path("accepted/Schedule.png/x")));
    const QByteArray home = TestFiles::read(path("accepted/Home.png"));
    QCOMPARE(run(words + QStringList("--accept")).exitCode, 3);
    QCOMPARE(TestFiles::read(path("accepted/Home.png")), home);
    QVERIFY(!QFile::exists(path("accepted/Settings.png")));
    QVERIFY(QDir(path("accepted/Schedule.png")).removeRecursively());
    QCOMPARE(run(words + QStringList("--accept")).exitCode, 0);
    QVERIFY(QDir(path("accepted/failed")).isEmpty()); // nothing there holds any more
    QCOMPARE(run(words).exitCode, 0);
    QCOMPARE(run(words + QStringList("--exact")).exitCode, 1); // the picture of no screen
    QCOMPARE(run(words + QStringList{"--exact", "--accept"}).exitCode, 0);
    QCOMPARE(run(words + QStringList("--exact")).exitCode, 0);
    TestFiles::write(path("accepted/Home.png"), "no picture");
    const SResult unreadable = run(words);
    QCOMPARE(unreadable.exitCode, 1);
    QVERIFY2(unreadable.errors.contains("Home.png"), qPrintable(unreadable.errors));
}

QTEST_GUILESS_MAIN(tst_CompareCommands)
#include "tst_comparecommands.moc"
