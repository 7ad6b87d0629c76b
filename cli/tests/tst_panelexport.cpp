#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// Runs panel-export as its users do, from a folder of its own.
class tst_PanelExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsHelpAndVersion();
    void wrongCommandLines_data();
    void wrongCommandLines();
    void exportsAnExample();
    void twoRunsGiveTheSameBytes();
    void picksScreens();
    void namesOfScreensStayInTheFolder();
    void reportsToStandardOutput();
    void projectsThatCannotBeOpened_data();
    void projectsThatCannotBeOpened();
    void outputsThatCannotBeWritten_data();
    void outputsThatCannotBeWritten();
    void screensWithoutPixelsHaveNoPicture();
    void findings_data();
    void findings();
    void programDataThatIsMissing_data();
    void programDataThatIsMissing();

private:
    struct SResult
    {
        int exitCode;
        QString out;
        QString errors;
    };
    SResult run(const QStringList &arguments) const { return run(m_program, arguments); }
    SResult run(const QString &program, const QStringList &arguments) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString copyProgram() const;
    void write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;
    QJsonObject report(const QString &name) const;

    const QDir m_programFolder{QString::fromLocal8Bit(qgetenv("KIV_BIN_DIR"))};
    const QString m_program = m_programFolder.filePath(QStringLiteral("panel-export"));
    const QString m_example = QString::fromLocal8Bit(qgetenv("KIV_SOURCE_DIR")) +
                              QStringLiteral("/examples/thermostat/thermostat.nyx");
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
    write(QStringLiteral("p.nyx"),
          projectOf(screenOf("A", "#ff0000") + screenOf("B") + screenOf("C", "#00ff00")));
}

tst_PanelExport::SResult tst_PanelExport::run(const QString &program,
                                              const QStringList &arguments) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_QPA_PLATFORM")); // it must need no display by itself
    environment.remove(QStringLiteral("DISPLAY"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder->path());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString() + QString::fromUtf8(process.readAllStandardError())};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// A copy with its data in the folder "program", to be tampered with.
QString tst_PanelExport::copyProgram() const
{
    QDir(m_folder->path()).mkdir(QStringLiteral("program"));
    for (const char *name :
         {"panel-export", "libQxKivEmuLib.so", "widget-library.xml", "kiv_render.lua"})
        QFile::copy(m_programFolder.filePath(QString::fromLatin1(name)),
                    path(QStringLiteral("program/") + QString::fromLatin1(name)));
    return path(QStringLiteral("program/panel-export"));
}

void tst_PanelExport::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QByteArray tst_PanelExport::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

QJsonObject tst_PanelExport::report(const QString &name) const
{
    return QJsonDocument::fromJson(read(name)).object();
}

void tst_PanelExport::showsHelpAndVersion()
{
    const SResult help = run({QStringLiteral("--help")});
    QCOMPARE(help.exitCode, 0);
    for (const char *option : {"--dl", "--bin", "--png", "--screen", "--report", "--strict"})
        QVERIFY2(help.out.contains(QLatin1String(option)), option);
    const SResult version = run({QStringLiteral("--version")});
    QCOMPARE(version.exitCode, 0);
    QVERIFY(version.out.startsWith(QLatin1String("panel-export ")));
}

void tst_PanelExport::wrongCommandLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("told");
    const auto row = [](const char *line, const char *told) {
        QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(told);
    };
    row("", "project");
    row("p.nyx q.nyx", "q.nyx");
    row("p.nyx --colour", "colour");
    row("p.nyx --dl", "dl");
    row("p.nyx --dl=", "dl");
    row("p.nyx --strict=yes", "strict");
    row("p.nyx --bin a --bin b", "bin");
    row("p.nyx --dl out --bin ./x/../out", "out");
    row("p.nyx --bin p.nyx", "p.nyx");
    row("p.nyx --screen A --screen D", "There is no screen \"D\". The screens are: \"A\", \"B\", "
                                       "\"C\".");
    row("p.nyx --screen a", "There is no screen \"a\"");
}

void tst_PanelExport::wrongCommandLines()
{
    QFETCH(QString, line);
    QFETCH(QString, told);
    const QByteArray project = read(QStringLiteral("p.nyx"));
    const SResult result = run(line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains(told), qPrintable(result.errors));
    QCOMPARE(read(QStringLiteral("p.nyx")), project);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("p.nyx")));
}

void tst_PanelExport::exportsAnExample()
{
    const SResult result =
        run({m_example, QStringLiteral("--dl"), QStringLiteral("e.dl"), QStringLiteral("--bin"),
             QStringLiteral("e.bin"), QStringLiteral("--png"), QStringLiteral("made/png"),
             QStringLiteral("--report"), QStringLiteral("e.json"), QStringLiteral("--strict")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(result.errors, QString());
    const QJsonArray screens =
        report(QStringLiteral("e.json"))[QStringLiteral("screens")].toArray();
    QVERIFY(screens.size() >= 3);
    QByteArrayList headers;
    for (const QByteArray &line : read(QStringLiteral("e.dl")).split('\n'))
        if (line.startsWith("==="))
            headers.append(line);
    int bytes = 0;
    for (int i = 0; i < screens.size(); ++i) {
        const QJsonObject screen = screens[i].toObject();
        const QString name = screen[QStringLiteral("name")].toString();
        QCOMPARE(headers.value(i), "===" + name.toUtf8() + "===");
        QVERIFY(screen[QStringLiteral("widgets")].toInt() > 0);
        QCOMPARE(screen[QStringLiteral("ram_g_budget")].toInt(), 1048576);
        QCOMPARE(screen[QStringLiteral("errors")].toArray().size(), 0);
        bytes += screen[QStringLiteral("ram_dl_bytes")].toInt();
        const QImage picture(path(QStringLiteral("made/png/%1.png").arg(name)));
        QCOMPARE(picture.size(), QSize(480, 272));
    }
    QCOMPARE(read(QStringLiteral("e.bin")).size(), bytes);
    QCOMPARE(result.out.count(QLatin1Char('\n')), 3 + screens.size()); // a line for each output
}

void tst_PanelExport::twoRunsGiveTheSameBytes()
{
    const QStringList arguments = {m_example,
                                   QStringLiteral("--dl"),
                                   QStringLiteral("out.dl"),
                                   QStringLiteral("--bin"),
                                   QStringLiteral("out.bin"),
                                   QStringLiteral("--png"),
                                   QStringLiteral("png"),
                                   QStringLiteral("--report"),
                                   QStringLiteral("out.json")};
    const auto outputs = [this] {
        QMap<QString, QByteArray> files;
        for (const QString &folder : {QString(), QStringLiteral("png/")})
            for (const QString &name : QDir(path(folder)).entryList(QDir::Files))
                files[folder + name] = read(folder + name);
        return files;
    };
    QCOMPARE(run(arguments).exitCode, 0);
    const QMap<QString, QByteArray> first = outputs();
    QVERIFY(first.size() >= 7);
    QCOMPARE(run(arguments).exitCode, 0); // replaces the files of the first run
    QCOMPARE(outputs(), first);
}

void tst_PanelExport::picksScreens()
{
    QCOMPARE(run({QStringLiteral("p.nyx"), QStringLiteral("--screen"), QStringLiteral("C"),
                  QStringLiteral("--screen"), QStringLiteral("A"), QStringLiteral("--png"),
                  QStringLiteral("."), QStringLiteral("--dl"), QStringLiteral("p.dl")})
                 .exitCode,
             0);
    QCOMPARE(QImage(path(QStringLiteral("A.png"))).pixel(63, 47), 0xFFFF0000u);
    QCOMPARE(QImage(path(QStringLiteral("C.png"))).pixel(0, 0), 0xFF00FF00u);
    QVERIFY(!QFile::exists(path(QStringLiteral("B.png"))));
    const QByteArray text = read(QStringLiteral("p.dl")); // in the order of the project
    QVERIFY(text.startsWith("===A===\n"));
    QVERIFY(text.contains("\n\n===C===\n"));
    QVERIFY(!text.contains("===B==="));
}

void tst_PanelExport::namesOfScreensStayInTheFolder()
{
    write(QStringLiteral("p.nyx"), projectOf(screenOf("../x", "#ff0000") + screenOf("../x") +
                                             screenOf("") + screenOf("/tmp/kiv_export_test")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("png")));
    const SResult result =
        run({QStringLiteral("p.nyx"), QStringLiteral("--png"), QStringLiteral("png")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(QDir(path(QStringLiteral("png"))).entryList(QDir::Files | QDir::Hidden).size(), 4);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("p.nyx")));
    QVERIFY(!QFile::exists(QStringLiteral("/tmp/kiv_export_test.png")));
}

void tst_PanelExport::reportsToStandardOutput()
{
    const SResult result =
        run({QStringLiteral("p.nyx"), QStringLiteral("--bin"), QStringLiteral("p.bin"),
             QStringLiteral("--report"), QStringLiteral("-")});
    QCOMPARE(result.exitCode, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.out.toUtf8()).object();
    QCOMPARE(json[QStringLiteral("project")].toString(), QStringLiteral("p.nyx"));
    QCOMPARE(json[QStringLiteral("platform")].toString(), QStringLiteral("QX110"));
    QCOMPARE(json[QStringLiteral("screens")].toArray().size(), 3);
    QVERIFY(result.errors.contains(QLatin1String("p.bin"))); // not mixed with the report
}

void tst_PanelExport::projectsThatCannotBeOpened_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray deep = "<Widget_Group_T>";
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE b [<!ENTITY a \"" + QByteArray(60000, 'a') +
                      "\">]><Kiv_Project_T name=\"";
    bomb += QByteArray("&a;").repeated(10000) + "\"/>";
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("not XML") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    QTest::newRow("empty") << QByteArray(" ");
    QTest::newRow("cut off") << projectOf(screenOf("A")).chopped(5);
    QTest::newRow("other root") << QByteArray("<ScreenSave><Screen/></ScreenSave>");
    QTest::newRow("100,000 levels")
        << projectOf("<Kiv_Screen_T name=\"A\">" + deep.repeated(100000) +
                     QByteArray("</Widget_Group_T>").repeated(100000) + "</Kiv_Screen_T>");
    QTest::newRow("entity bomb") << bomb;
}

void tst_PanelExport::projectsThatCannotBeOpened()
{
    QFETCH(QByteArray, content);
    if (!content.isEmpty())
        write(QStringLiteral("bad.nyx"), content);
    const SResult result =
        run({QStringLiteral("bad.nyx"), QStringLiteral("--bin"), QStringLiteral("bad.bin"),
             QStringLiteral("--report"), QStringLiteral("bad.json")});
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.errors.contains(QLatin1String("bad.nyx")), qPrintable(result.errors));
    QCOMPARE(result.errors.count(QLatin1Char('\n')), 1);
    QVERIFY(!QFile::exists(path(QStringLiteral("bad.bin"))));
    QVERIFY(!QFile::exists(path(QStringLiteral("bad.json"))));
}

void tst_PanelExport::outputsThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("target");
    QTest::newRow("text below a file") << QStringLiteral("--dl") << QStringLiteral("file/p.dl");
    QTest::newRow("bytes over a folder") << QStringLiteral("--bin") << QStringLiteral("folder");
    QTest::newRow("missing folder") << QStringLiteral("--bin") << QStringLiteral("no/p.bin");
    QTest::newRow("pictures below a file") << QStringLiteral("--png") << QStringLiteral("file/p");
    QTest::newRow("pictures over a file") << QStringLiteral("--png") << QStringLiteral("file");
    QTest::newRow("report over a folder") << QStringLiteral("--report") << QStringLiteral("folder");
    QTest::newRow("a picture's name is a folder")
        << QStringLiteral("--png") << QStringLiteral("taken");
}

void tst_PanelExport::outputsThatCannotBeWritten()
{
    QFETCH(QString, option);
    QFETCH(QString, target);
    write(QStringLiteral("file"), "kept");
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("folder")));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("taken/A.png")));
    const SResult result = run(
        {QStringLiteral("p.nyx"), QStringLiteral("--screen"), QStringLiteral("A"), option, target});
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.errors.contains(target), qPrintable(result.errors));
    QCOMPARE(read(QStringLiteral("file")), QByteArray("kept"));
    QCOMPARE(
        QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
        QStringList({QStringLiteral("file"), QStringLiteral("folder"), QStringLiteral("p.nyx"),
                     QStringLiteral("taken")}));
    QCOMPARE(QDir(path(QStringLiteral("folder"))).count(), 2u); // "." and ".."
}

void tst_PanelExport::screensWithoutPixelsHaveNoPicture()
{
    write(QStringLiteral("p.nyx"), "<Kiv_Project_T platform=\"QX110\" width=\"0\" height=\"-4\">" +
                                       screenOf("A") + "</Kiv_Project_T>");
    const SResult result =
        run({QStringLiteral("p.nyx"), QStringLiteral("--png"), QStringLiteral("."),
             QStringLiteral("--bin"), QStringLiteral("p.bin")});
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.errors.contains(QLatin1String("\"A\"")), qPrintable(result.errors));
    QVERIFY(!QFile::exists(path(QStringLiteral("A.png"))));
    QCOMPARE(read(QStringLiteral("p.bin")).size(), 8); // CLEAR and END
}

void tst_PanelExport::findings_data()
{
    QTest::addColumn<QByteArray>("project");
    QTest::addColumn<QString>("told"); // empty: nothing to find
    QTest::newRow("nothing") << projectOf(screenOf("A")) << QString();
    QTest::newRow("commands that fail")
        << projectOf("<Kiv_Screen_T name=\"A\"><Broken_T id=\"7\"/></Kiv_Screen_T>")
        << QStringLiteral("Broken_T 7: ");
    QTest::newRow("more than RAM_G holds")
        << projectOf("<Kiv_Screen_T name=\"A\"><Big_T id=\"8\"/></Kiv_Screen_T>", "QX100")
        << QStringLiteral("Big_T 8: ");
    QTest::newRow("the same on a larger chip")
        << projectOf("<Kiv_Screen_T name=\"A\"><Big_T id=\"8\"/></Kiv_Screen_T>", "QX110")
        << QString();
    QTest::newRow("kind that the library lacks")
        << projectOf("<Kiv_Screen_T name=\"A\"><Alien_T id=\"9\"/></Kiv_Screen_T>")
        << QStringLiteral("Alien_T 9: ");
    QTest::newRow("unknown platform")
        << projectOf(screenOf("A"), "ABC") << QStringLiteral("\"ABC\" is not known");
    QTest::newRow("platform without a chip")
        << projectOf(screenOf("A"), "QX1ZZ") << QStringLiteral("\"QX1ZZ\" is not known");
}

void tst_PanelExport::findings()
{
    QFETCH(QByteArray, project);
    QFETCH(QString, told);
    const QString program = copyProgram();
    write(QStringLiteral("program/widget-library.xml"), testLibrary);
    write(QStringLiteral("big.raw"), QByteArray(400 * 400 * 2, 'x'));
    write(QStringLiteral("p.nyx"), project);
    const QStringList arguments = {QStringLiteral("p.nyx"), QStringLiteral("--report"),
                                   QStringLiteral("p.json"), QStringLiteral("--png"),
                                   QStringLiteral(".")};
    const SResult result = run(program, arguments);
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY2(result.errors.contains(told), qPrintable(result.errors));
    QCOMPARE(result.errors.isEmpty(), told.isEmpty());
    QVERIFY(!QImage(path(QStringLiteral("A.png"))).isNull()); // what can be drawn is
    const QJsonObject json = report(QStringLiteral("p.json"));
    const QJsonObject screen = json[QStringLiteral("screens")].toArray().at(0).toObject();
    const int errors = json[QStringLiteral("errors")].toArray().size() +
                       screen[QStringLiteral("errors")].toArray().size();
    QCOMPARE(errors > 0, !told.isEmpty());

    const SResult strict = run(program, arguments + QStringList(QStringLiteral("--strict")));
    QCOMPARE(strict.exitCode, told.isEmpty() ? 0 : 1);
}

void tst_PanelExport::programDataThatIsMissing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content"); // empty: missing
    QTest::addColumn<int>("exitCode");
    const QString library = QStringLiteral("widget-library.xml");
    const QString script = QStringLiteral("kiv_render.lua");
    QTest::newRow("no library") << library << QByteArray() << 3;
    QTest::newRow("malformed library")
        << library << QByteArray("<widgetlibrary><toolboxgroup>") << 3;
    QTest::newRow("no script") << script << QByteArray() << 3;
    QTest::newRow("script with a syntax error") << script << QByteArray("function render(") << 1;
    QTest::newRow("script that raises an error")
        << script << QByteArray("function render() error('it broke') end") << 1;
    QTest::newRow("script without end")
        << script << QByteArray("function render() while true do end end") << 1;
}

void tst_PanelExport::programDataThatIsMissing()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(int, exitCode);
    const QString program = copyProgram();
    QVERIFY(QFile::remove(path(QStringLiteral("program/") + file)));
    if (!content.isEmpty())
        write(QStringLiteral("program/") + file, content);
    const SResult result = run(program, {QStringLiteral("p.nyx"), QStringLiteral("--bin"),
                                         QStringLiteral("p.bin"), QStringLiteral("--strict")});
    QVERIFY2(result.exitCode == exitCode, qPrintable(result.errors));
    QVERIFY2(result.errors.contains(file), qPrintable(result.errors));
    QCOMPARE(QFile::exists(path(QStringLiteral("p.bin"))), exitCode == 1);
}

QTEST_GUILESS_MAIN(tst_PanelExport)
#include "tst_panelexport.moc"
