#include "TestFiles.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>
#include <sched.h>

/// Runs panel-export as its users do, from a folder of its own.
class tst_PanelExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsHelpAndVersion();
    void wrongCommandLines();
    void exportsAnExample();
    void guidesAreInNoExport();
    void picksScreens();
    void namesOfScreensStayInTheFolder();
    void reportsToStandardOutput();
    void projectsThatCannotBeOpened();
    void outputsThatCannotBeWritten();
    void screensWithoutPixelsHaveNoPicture();
    void findings();
    void programDataThatIsMissing();
    void aSignalEndsItWhateverHangs_data();
    void aSignalEndsItWhateverHangs();

private:
    struct SResult
    {
        int exitCode;
        QString out;
        QString errors;
    };
    /// Runs the program with the words of the line.
    SResult run(const QString &line) const { return run(m_program, line); }
    SResult run(const QString &program, const QString &line) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString copyProgram() const;
    void write(const QString &name, const QByteArray &bytes) const
    {
        TestFiles::write(path(name), bytes);
    }
    QByteArray read(const QString &name) const { return TestFiles::read(path(name)); }
    QJsonObject report(const QString &name) const
    {
        return QJsonDocument::fromJson(read(name)).object();
    }

    const QDir m_programFolder{QString::fromLocal8Bit(qgetenv("KIV_BIN_DIR"))};
    const QString m_program = m_programFolder.filePath("panel-export");
    const QString m_example =
        qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples/thermostat/thermostat.nyx";
    std::unique_ptr<QTemporaryDir> m_folder; ///< the caller's directory
};

namespace {

const QByteArray testLibrary = R"(<widgetlibrary><toolboxgroup name="Test">
  <widget type="Broken_T" name="Broken">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>error("it broke")</rendercmds>
  </widget>
  <widget type="Big_T" name="Big">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>assert(load_bitmap("big.raw", "RGB565", 400, 400))</rendercmds>
  </widget>
  <widget type="Long_T" name="Long">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>for i = 1, 3000 do disc(i, 9, 5) end</rendercmds>
  </widget>
  <widget type="Limited_T" name="Limited">
    <properties><property name="id" type="int" value="0"/>
      <property name="width" type="int" value="9" min="1" max="2048@QX110..|512"/>
      <property name="padding" type="int" value="0" min="0" max="200"/>
      <property name="format" type="enum:L1|L2@QX110.." value="L1"/>
      <property name="video" type="bool" value="false" hidden="true@..QX101"/></properties>
    <rendercmds>disc(9, 9, 5)</rendercmds>
  </widget>
  <widget type="Slow_T" name="Slow">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>local a, b = ("x"):rep(250000) .. "a", ("x"):rep(250000) .. "a"
      while true do local c = a == b and a &lt;= b end</rendercmds>
  </widget>
  <widget type="Euro_T" name="Euro">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>text(9, 9, 20, "5 &#8364;")</rendercmds>
  </widget>
  <widget type="Stalled_T" name="Stalled">
    <properties><property name="id" type="int" value="0"/></properties>
    <rendercmds>load_image("stalled.png")</rendercmds>
  </widget>
</toolboxgroup></widgetlibrary>)";

QByteArray projectOf(const QByteArray &screens, const QByteArray &platform = "QX110")
{
    return "<Kiv_Project_T platform=\"" + platform + "\" width=\"64\" height=\"48\">" + screens +
           "</Kiv_Project_T>";
}

QByteArray screenOf(const QByteArray &name, const QByteArray &colour = "#102030")
{
    return "<Kiv_Screen_T name=\"" + name + "\" color=\"" + colour + "\"/>";
}

} // namespace

void tst_PanelExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    write("p.nyx", projectOf(screenOf("A", "#ff0000") + screenOf("B") + screenOf("C", "#00ff00")));
}

tst_PanelExport::SResult tst_PanelExport::run(const QString &program, const QString &line) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QT_QPA_PLATFORM"); // it must need no display by itself
    environment.remove("DISPLAY");
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder->path());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, line.split(' ', Qt::SkipEmptyParts));
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString() + QString::fromUtf8(process.readAllStandardError())};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// A copy with its data in the folder "program", to be tampered with.
QString tst_PanelExport::copyProgram() const
{
    QDir(m_folder->path()).mkdir("program");
    for (const QString name :
         {"panel-export", "libQxKivEmuLib.so", "widget-library.xml", "kiv_render.lua"})
        QFile::copy(m_programFolder.filePath(name), path("program/" + name));
    return path("program/panel-export");
}

void tst_PanelExport::showsHelpAndVersion()
{
    QVERIFY(run("--help").out.contains("--strict"));
    QVERIFY(run("--version").out.startsWith("panel-export "));
}

void tst_PanelExport::wrongCommandLines()
{
    const std::pair<const char *, const char *> cases[] = {
        {"", "project"},
        {"p.nyx q.nyx", "q.nyx"},
        {"p.nyx --colour", "colour"},
        {"p.nyx --dl", "dl"},
        {"p.nyx --dl=", "dl"},
        {"p.nyx --strict=yes", "strict"},
        {"p.nyx --bin a --bin b", "bin"},
        {"p.nyx --dl out --bin ./x/../out", "out"},
        {"p.nyx --bin p.nyx", "p.nyx"},
        {"p.nyx --screen A --screen D",
         "There is no screen \"D\". The screens are: \"A\", \"B\", \"C\"."},
        {"p.nyx --screen a", "There is no screen \"a\""},
    };
    const QByteArray project = read("p.nyx");
    for (const auto &[line, told] : cases) {
        const SResult result = run(QString(line));
        QVERIFY2(result.exitCode == 2 && result.errors.contains(told), qPrintable(result.errors));
        QCOMPARE(read("p.nyx"), project);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("p.nyx"));
    }
}

void tst_PanelExport::exportsAnExample()
{
    const SResult result = run(
        m_example + " --dl e.dl --bin new/bin/e.bin --png made/png --report new/e.json --strict");
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(result.errors, QString());
    const QJsonArray screens = report("new/e.json")["screens"].toArray();
    QVERIFY(screens.size() >= 3);
    QByteArrayList headers;
    for (const QByteArray &line : read("e.dl").split('\n'))
        if (line.startsWith("==="))
            headers.append(line);
    int bytes = 0;
    for (int i = 0; i < screens.size(); ++i) {
        const QJsonObject screen = screens[i].toObject();
        const QString name = screen["name"].toString();
        QCOMPARE(headers.value(i), "===" + name.toUtf8() + "===");
        QVERIFY(screen["widgets"].toInt() > 0);
        QCOMPARE(screen["ram_g_budget"].toInt(), 1048576);
        QCOMPARE(screen["errors"].toArray().size(), 0);
        bytes += screen["ram_dl_bytes"].toInt();
        QCOMPARE(QImage(path("made/png/" + name + ".png")).size(), QSize(480, 272));
    }
    QCOMPARE(read("new/bin/e.bin").size(), bytes);
    QCOMPARE(result.out.count('\n'), 3 + screens.size()); // a line for each output
    QCOMPARE(result.out.count("480 x 272 pixels"), screens.size());

    cpu_set_t cores;
    QCOMPARE(sched_getaffinity(0, sizeof(cores), &cores), 0);
    int core = 0;
    while (!CPU_ISSET(core, &cores))
        ++core;
    const SResult single = run("taskset", "-c " + QString::number(core) + ' ' + m_program + ' ' +
                                              m_example + " --dl 1.dl --png 1 --report 1.json");
    QCOMPARE(single.exitCode, 0);
    QVERIFY(read("1.dl") == read("e.dl") && read("1.json") == read("new/e.json"));
    for (const QString &picture : QDir(path("1")).entryList(QDir::Files))
        QVERIFY2(read("1/" + picture) == read("made/png/" + picture), qPrintable(picture));
}

void tst_PanelExport::guidesAreInNoExport()
{
    const QByteArray plain = TestFiles::read(m_example);
    const QByteArray tag = "<Kiv_Screen_T ";
    QVERIFY(QDir(m_folder->path()).mkdir("plain") && QDir(m_folder->path()).mkdir("guided"));
    write("guided/p.nyx", QByteArray(plain).replace(tag, tag + "guides=\"x9 y40,#ff8800\" "));
    write("plain/p.nyx", plain);
    QMap<QString, QByteArray> made[2];
    for (const QString folder : {"plain", "guided"}) {
        const QString outputs = " --dl %1/p.dl --bin %1/p.bin --png %1/png --package %1 --ramg %1";
        QCOMPARE(run(QString("%1/p.nyx" + outputs).arg(folder)).exitCode, 0);
        made[folder == "guided"] = TestFiles::below(path(folder));
    }
    QVERIFY(made[0].size() > 10);
    QVERIFY(made[0].take("p.nyx") != made[1].take("p.nyx"));
    QCOMPARE(made[0], made[1]);
}

void tst_PanelExport::picksScreens()
{
    QCOMPARE(run("p.nyx --screen C --screen A --png . --dl p.dl").exitCode, 0);
    QCOMPARE(QImage(path("A.png")).pixel(63, 47), 0xFFFF0000u);
    QCOMPARE(QImage(path("C.png")).pixel(0, 0), 0xFF00FF00u);
    QVERIFY(!QFile::exists(path("B.png")));
    const QByteArray text = read("p.dl"); // in the order of the project
    QVERIFY(text.startsWith("===A===\n"));
    QVERIFY(text.contains("\n\n===C===\n"));
    QVERIFY(!text.contains("===B==="));
}

void tst_PanelExport::namesOfScreensStayInTheFolder()
{
    write("p.nyx", projectOf(screenOf("../x", "#ff0000") + screenOf("../x") + screenOf("") +
                             screenOf("/tmp/kiv_export_test")));
    QVERIFY(QDir(m_folder->path()).mkdir("png"));
    const SResult result = run("p.nyx --png png");
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(QDir(path("png")).entryList(QDir::Files | QDir::Hidden).size(), 4);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("p.nyx"));
    QVERIFY(!QFile::exists("/tmp/kiv_export_test.png"));
}

void tst_PanelExport::reportsToStandardOutput()
{
    const SResult result = run("p.nyx --bin p.bin --report -");
    QCOMPARE(result.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.out.toUtf8()).object();
    QCOMPARE(json["project"].toString(), QString("p.nyx"));
    QCOMPARE(json["platform"].toString(), QString("QX110"));
    QCOMPARE(json["screens"].toArray().size(), 3);
    QVERIFY(result.errors.contains("p.bin")); // not mixed with the report

    const SResult list = run("p.nyx --dl /dev/stdout --bin /dev/null --report /dev/null");
    QCOMPARE(list.exitCode, 0);
    QVERIFY(QFileInfo("/dev/null").exists() && !QFileInfo("/dev/null").isFile());
    QCOMPARE(run("p.nyx --dl p.dl").exitCode, 0);
    QCOMPARE(list.out.toUtf8(), read("p.dl"));
}

void tst_PanelExport::projectsThatCannotBeOpened()
{
    const std::pair<const char *, QByteArray> cases[] = {
        {"missing", QByteArray()},
        {"not XML", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)},
        {"cut off", projectOf(screenOf("A")).chopped(5)},
        {"other root", "<ScreenSave><Screen/></ScreenSave>"},
        {"100,000 levels",
         projectOf("<Kiv_Screen_T name=\"A\">" + QByteArray("<Widget_Group_T>").repeated(100000) +
                   QByteArray("</Widget_Group_T>").repeated(100000) + "</Kiv_Screen_T>")},
    };
    for (const auto &[fact, content] : cases) {
        if (!content.isEmpty())
            write("bad.nyx", content);
        const SResult result = run("bad.nyx --bin bad.bin --report bad.json");
        QVERIFY2(result.exitCode == 3, fact);
        QVERIFY2(result.errors.contains("bad.nyx"), qPrintable(result.errors));
        QCOMPARE(result.errors.count('\n'), 1);
        QVERIFY(!QFile::exists(path("bad.bin")) && !QFile::exists(path("bad.json")));
    }
}

void tst_PanelExport::outputsThatCannotBeWritten()
{
    write("file", "kept");
    QVERIFY(QDir(m_folder->path()).mkpath("folder"));
    QVERIFY(QDir(m_folder->path()).mkpath("taken/A.png"));
    const auto entries = [this] {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    };
    for (const QString option : {"--dl file/p.dl", "--bin folder", "--bin file/x/p.bin",
                                 "--png file/p", "--png file", "--report folder", "--png taken"}) {
        const SResult result = run("p.nyx --screen A " + option);
        QVERIFY2(result.exitCode == 3, qPrintable(option));
        QVERIFY2(result.errors.contains(option.section(' ', 1)), qPrintable(result.errors));
        QCOMPARE(read("file"), QByteArray("kept"));
        QCOMPARE(entries(), QStringList({"file", "folder", "p.nyx", "taken"}));
        QVERIFY(QDir(path("folder")).isEmpty());
    }
}

void tst_PanelExport::screensWithoutPixelsHaveNoPicture()
{
    write("p.nyx", "<Kiv_Project_T platform=\"QX110\" width=\"0\" height=\"-4\">" + screenOf("A") +
                       "</Kiv_Project_T>");
    const SResult result = run("p.nyx --png . --bin p.bin");
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.errors.contains("\"A\""), qPrintable(result.errors));
    QVERIFY(!QFile::exists(path("A.png")));
    QCOMPARE(read("p.bin").size(), 8); // CLEAR and END
}

void tst_PanelExport::findings()
{
    const auto with = [](const QByteArray &item) {
        return "<Kiv_Screen_T name=\"A\">" + item + "</Kiv_Screen_T>";
    };
    const std::tuple<QByteArray, QByteArray, const char *> cases[] = {
        // nothing, or what is told
        {screenOf("A"), "QX110", ""},
        {with("<Broken_T id=\"7\"/>"), "QX110", "Broken_T 7: "},
        {with("<Big_T id=\"8\"/>"), "QX100", "Big_T 8: "}, // more than RAM_G holds
        {with("<Big_T id=\"8\"/>"), "QX110", ""},
        {with("<Alien_T id=\"9\"/>"), "QX110", "Alien_T 9: "}, // not in the library
        {with("<Long_T id=\"8\"/>"), "QX100", "Long_T 8: "},   // more than RAM_DL holds
        {with("<Long_T id=\"8\"/>"), "QX110", ""},
        {with("<Slow_T id=\"6\"/>"), "QX110", "Slow_T 6: line 2: stopped"},
        {with("<Euro_T id=\"5\"/>"), "QX110", "Euro_T 5: no font has U+20AC"},
        {with("<Limited_T id=\"3\" width=\"900\" padding=\"201\" format=\"L2\" video=\"1\"/>"),
         "QX110", ""}, // what is over the limits of every chip alike is not the chip's business
        {with("<Limited_T id=\"3\" width=\"900\"/>"), "QX100",
         "Limited_T 3: width 900 is over the maximum of QX100, 512"},
        {with("<Widget_Group_T><Limited_T id=\"3\" width=\"2049\"/></Widget_Group_T>"), "QX113",
         "Limited_T 3: width 2049 is over the maximum of QX113, 2048"},
        {with("<Limited_T id=\"3\" width=\"-1\"/>"), "QX100", "under the minimum of QX100, 1"},
        {with("<Limited_T id=\"3\" format=\"L2\"/>"), "QX101",
         "Limited_T 3: format \"L2\" is not available on QX101"},
        {with("<Limited_T id=\"3\" video=\"1\"/>"), "QX101", "3: video is not available on QX101"},
        {screenOf("A"), "ABC", "\"ABC\" is not known"},
        {screenOf("A"), "QX1ZZ", "\"QX1ZZ\" is not known"},
    };
    const QString program = copyProgram();
    write("program/widget-library.xml", testLibrary);
    write("big.raw", QByteArray(400 * 400 * 2, 'x'));
    for (const auto &[screens, platform, told] : cases) {
        write("p.nyx", projectOf(screens, platform));
        QFile::remove(path("A.png"));
        const SResult result = run(program, "p.nyx --report p.json --png .");
        QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
        QVERIFY2(result.errors.contains(told), qPrintable(result.errors));
        QCOMPARE(result.errors.isEmpty(), !*told);
        QVERIFY(!QImage(path("A.png")).isNull()); // what can be drawn is
        const QJsonObject json = report("p.json");
        const QJsonObject screen = json["screens"].toArray().at(0).toObject();
        const int errors = json["errors"].toArray().size() + screen["errors"].toArray().size();
        QCOMPARE(errors > 0, *told != '\0');
        const bool isLarge = platform.startsWith("QX11"); // what is needed counts, not what fits
        QCOMPARE(screen["ram_dl_budget"].toInt(), isLarge ? 32768 : 8192);
        QCOMPARE(screen["ram_g_bytes"].toInt(), screens.contains("Big_T") ? 320000 : 0);
        if (screens.contains("Long_T")) // clear, tag, 3,000 discs of two words, end
            QCOMPARE(screen["ram_dl_bytes"].toInt(), (1 + 2 + 6000 + 1) * 4);
        QCOMPARE(run(program, "p.nyx --report p.json --png . --strict").exitCode, *told ? 1 : 0);
    }
}

void tst_PanelExport::programDataThatIsMissing()
{
    const std::tuple<QString, QByteArray, int> cases[] = {
        // without content: missing
        {"widget-library.xml", "", 3},
        {"widget-library.xml", "<widgetlibrary><toolboxgroup>", 3},
        {"kiv_render.lua", "", 3},
        {"kiv_render.lua", "function render(", 1},
        {"kiv_render.lua", "function render() error('it broke') end", 1},
        {"kiv_render.lua", "function render() while true do end end", 1},
    };
    for (const auto &[file, content, exitCode] : cases) {
        init();
        const QString program = copyProgram();
        QVERIFY(QFile::remove(path("program/" + file)));
        if (!content.isEmpty())
            write("program/" + file, content);
        const SResult result = run(program, "p.nyx --bin p.bin --strict");
        QVERIFY2(result.exitCode == exitCode, qPrintable(result.errors));
        QVERIFY2(result.errors.contains(file), qPrintable(result.errors));
        QCOMPARE(QFile::exists(path("p.bin")), exitCode == 1);
    }
}

void tst_PanelExport::aSignalEndsItWhateverHangs_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("second"); // screen, after one that can be exported
    QTest::addColumn<QStringList>("files"); // that are there in the end
    const QByteArray stalled = "<Kiv_Screen_T name=\"B\"><Stalled_T id=\"1\"/></Kiv_Screen_T>";
    QTest::newRow("a file that is drawn") << SIGTERM << stalled << QStringList{"png/A.png"};
    QTest::newRow("a file that is written")
        << SIGINT << screenOf("B") << QStringList{"p.bin", "png/A.png", "png/B.png"};
}

void tst_PanelExport::aSignalEndsItWhateverHangs()
{
    QFETCH(int, number);
    QFETCH(QByteArray, second);
    QFETCH(QStringList, files);
    const QString program = copyProgram();
    write("program/widget-library.xml", testLibrary);
    write("stalled.png", "no picture");
    write("p.nyx", projectOf(screenOf("A") + second));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", m_programFolder.filePath("../tests/stalleddisk.so"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder->path());
    process.start(program, {"p.nyx", "--png", "png", "--bin", "p.bin", "--package", "stalled.p"});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path(files.last())), 10000);
    QByteArray told;
    QTRY_VERIFY_WITH_TIMEOUT((told += process.readAllStandardError()).contains("stalled"), 10000);
    ::kill(static_cast<pid_t>(process.processId()), number);
    QVERIFY(process.waitForFinished(10000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 128 + number);
    for (const QString &file : files)
        QVERIFY2(QFileInfo(path(file)).size() > 0, qPrintable(file));
    QCOMPARE(QDir(path("png")).entryList(QDir::Files | QDir::Hidden).size(),
             files.filter("png/").size());
    QCOMPARE(QFile::exists(path("p.bin")), files.contains("p.bin"));
    QVERIFY(
        QDir(path("stalled.p")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

QTEST_GUILESS_MAIN(tst_PanelExport)
#include "tst_panelexport.moc"
