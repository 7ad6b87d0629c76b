#include "displaylist/CommandTable.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <set>

using namespace kivemu;

/// The packages of the examples: what their files say agrees, and compilers take them.
class tst_PackageExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.isValid()); }
    void manifestFollowsItsSchema_data() { examples(); }
    void manifestFollowsItsSchema();
    void equalProjectsGiveEqualBytes_data() { examples(); }
    void equalProjectsGiveEqualBytes();
    void memoryIsWhatTheReportSays_data() { examples(); }
    void memoryIsWhatTheReportSays();
    void codeCompilesAndHoldsTheBlob_data();
    void codeCompilesAndHoldsTheBlob();
    void renamingAScreenChangesItsLinesOnly();
    void failureLeavesTheOldPackage();

private:
    void examples();
    /// The project packed and exported in all forms into a folder of this name.
    QString pack(const QString &project, const QString &name, int expected = 0);
    int validate(const QByteArray &manifest) const;
    static QByteArray read(const QString &path);
    static QJsonObject json(const QString &path)
    {
        return QJsonDocument::fromJson(read(path)).object();
    }

    const QString m_source = qEnvironmentVariable("KIV_SOURCE_DIR");
    QTemporaryDir m_folder;
};

namespace {

const QStringList Files{"panel.bin", "panel.h", "panel.c", "manifest.json"};

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    for (QDirIterator each(folder, QDir::Files, QDirIterator::Subdirectories); each.hasNext();)
        files.append(each.next().mid(folder.size()));
    files.sort();
    return files;
}

/// A section of a blob, by its kind.
QByteArray section(const QByteArray &blob, int kind)
{
    const char *entry = blob.constData() + 32 + (kind - 1) * 12;
    return blob.mid(static_cast<int>(qFromLittleEndian<quint32>(entry + 4)),
                    static_cast<int>(qFromLittleEndian<quint32>(entry + 8)));
}

} // namespace

void tst_PackageExport::examples()
{
    QTest::addColumn<QString>("project");
    const QDir folder(m_source + "/examples");
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        QTest::newRow(qPrintable(name)) << folder.filePath(name + '/' + name + ".nyx");
}

QString tst_PackageExport::pack(const QString &project, const QString &name, int expected)
{
    const QDir target(m_folder.filePath(name));
    if (QFile::exists(target.filePath("panel.bin")) && expected == 0)
        return target.path();
    target.mkpath(".");
    const int result = QProcess::execute(
        qEnvironmentVariable("KIV_BIN_DIR") + "/panel-export",
        {project, "--package", target.path(), "--ramg", target.filePath("ramg"), "--bin",
         target.filePath("lists"), "--dl", target.filePath("text"), "--png", target.filePath("png"),
         "--report", target.filePath("report.json")});
    if (result != expected)
        qWarning("panel-export ends with %d", result);
    return result == expected ? target.path() : QString();
}

QByteArray tst_PackageExport::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

int tst_PackageExport::validate(const QByteArray &manifest) const
{
    QFile file(m_folder.filePath("manifest-to-check.json"));
    if (!file.open(QIODevice::WriteOnly) || file.write(manifest) != manifest.size())
        return -1;
    file.close();
    return QProcess::execute("/usr/bin/python3",
                             {"-c",
                              "import json, jsonschema, sys\n"
                              "schema, manifest = (json.load(open(f)) for f in sys.argv[1:])\n"
                              "v = jsonschema.Draft7Validator(schema)\n"
                              "v.check_schema(schema)\n"
                              "sys.exit(0 if v.is_valid(manifest) else 9)",
                              m_source + "/docs/package-manifest.schema.json", file.fileName()});
}

void tst_PackageExport::manifestFollowsItsSchema()
{
    QFETCH(QString, project);
    const QString folder = pack(project, QTest::currentDataTag());
    QCOMPARE(validate(read(folder + "/manifest.json")), 0);
    QJsonObject manifest = json(folder + "/manifest.json");
    QVERIFY(!QJsonDocument(manifest).toJson().contains(QFileInfo(project).path().toUtf8()));
    manifest["more"] = 1; // the schema refuses what it does not know
    QCOMPARE(validate(QJsonDocument(manifest).toJson()), 9);
    // What it says about items and words is what the list says.
    const QByteArray lists = section(read(folder + "/panel.bin"), 7);
    for (const QJsonValue screen : manifest["screens"].toArray())
        for (const QJsonValue item : screen["items"].toArray())
            for (const QJsonValue piece : item["words"].toArray()) {
                const int at =
                    screen["ram_dl_offset_in_lists"].toInt() + piece["first"].toInt() * 4;
                QCOMPARE(qFromLittleEndian<quint32>(lists.constData() + at),
                         headerWord(EOpcode::Item, 0));
                QCOMPARE(qFromLittleEndian<quint32>(lists.constData() + at + 4),
                         item["id"].toString().toUInt());
            }
}

void tst_PackageExport::equalProjectsGiveEqualBytes()
{
    QFETCH(QString, project);
    const QString name = QTest::currentDataTag();
    const QString copy = m_folder.filePath("copy of " + name);
    QCOMPARE(QProcess::execute("cp", {"-r", QFileInfo(project).path(), copy}), 0);
    const QString first = pack(project, name);
    const QString second = pack(copy + '/' + name + ".nyx", name + " again");
    const QStringList files = filesBelow(first);
    QVERIFY(files.size() > 10);
    QCOMPARE(filesBelow(second), files);
    for (const QString &file : files)
        QVERIFY2(read(first + file) == read(second + file), qPrintable(file));
}

/// The images of RAM_G hold at each address of the report's map what the package has as the asset.
void tst_PackageExport::memoryIsWhatTheReportSays()
{
    QFETCH(QString, project);
    const QString folder = pack(project, QTest::currentDataTag());
    const QByteArray data = section(read(folder + "/panel.bin"), 8);
    const QJsonArray assets = json(folder + "/manifest.json")["assets"].toArray();
    for (const QJsonValue screen : json(folder + "/report.json")["screens"].toArray()) {
        const QByteArray image = read(folder + "/ramg/" + screen["name"].toString() + ".ramg");
        QCOMPARE(image.size(), screen["ram_g_bytes"].toInt());
        for (const QJsonValue place : screen["ram_g_map"].toArray()) {
            const auto asset =
                std::find_if(assets.begin(), assets.end(), [&](const QJsonValue &each) {
                    return each["files"].toArray().contains(place["file"]);
                });
            QVERIFY2(asset != assets.end(), qPrintable(place["file"].toString()));
            const int bytes = place["bytes"].toInt();
            QVERIFY(image.mid(place["address"].toInt(), bytes) ==
                    data.mid((*asset)["data_offset"].toInt(), bytes));
        }
    }
}

void tst_PackageExport::codeCompilesAndHoldsTheBlob_data()
{
    QTest::addColumn<QString>("compiler");
    for (const char *compiler : {"gcc -std=c99", "gcc -std=c11", "g++ -x c++ -std=c++17",
                                 "clang-14 -std=c99", "clang-14 -x c++ -std=c++17"})
        QTest::newRow(compiler) << compiler;
}

void tst_PackageExport::codeCompilesAndHoldsTheBlob()
{
    QFETCH(QString, compiler);
    const QString folder = pack(m_source + "/examples/thermostat/thermostat.nyx", "thermostat");
    const QString program = m_folder.filePath("holds");
    QFile main(m_folder.filePath("main.c"));
    QVERIFY(main.open(QIODevice::WriteOnly));
    main.write("#include \"panel.h\"\n#include <stdio.h>\n"
               "int main(void) {\n"
               "    return fwrite(panel_blob, 1, panel_blob_size, stdout) == panel_blob_size\n"
               "        && PANEL_SCREEN_HOME == 0 && PANEL_SCREEN_COUNT == 3 ? 0 : 1;\n}\n");
    main.close();
    const QStringList words = compiler.split(' ');
    QCOMPARE(
        QProcess::execute(words[0], words.mid(1) + QStringList{"-Wall", "-Wextra", "-Wpedantic",
                                                               "-Wconversion", "-Werror", "-I",
                                                               folder, main.fileName(),
                                                               folder + "/panel.c", "-o", program}),
        0);
    QProcess run;
    run.start(program, QStringList());
    QVERIFY(run.waitForFinished());
    QCOMPARE(run.exitCode(), 0);
    QVERIFY(run.readAllStandardOutput() == read(folder + "/panel.bin"));
}

void tst_PackageExport::renamingAScreenChangesItsLinesOnly()
{
    const QString example = m_source + "/examples/thermostat/thermostat.nyx";
    const auto lines = [](const QString &folder) {
        return QString::fromUtf8(read(folder + "/panel.h")).split('\n');
    };
    QFile renamed(m_folder.filePath("renamed.nyx"));
    QVERIFY(renamed.open(QIODevice::WriteOnly));
    renamed.write(read(example).replace("name=\"Schedule\"", "name=\"*/ The \\ week\""));
    renamed.close();
    const QStringList before = lines(pack(example, "thermostat"));
    const QStringList after = lines(pack(renamed.fileName(), "renamed"));
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < before.size(); ++i)
        if (before[i].contains("_SCHEDULE"))
            QVERIFY2(after[i].contains("_THE_WEEK"), qPrintable(after[i]));
        else
            QCOMPARE(after[i], before[i]);
}

/// A screen whose bitmaps do not fit into RAM_G.
void tst_PackageExport::failureLeavesTheOldPackage()
{
    const QString folder = pack(m_source + "/examples/thermostat/thermostat.nyx", "old");
    const QByteArray before = read(folder + "/panel.bin");
    QFile bitmap(m_folder.filePath("big_RGB565.raw"));
    QVERIFY(bitmap.open(QIODevice::WriteOnly) && bitmap.resize(2 * 512 * 300));
    QFile project(m_folder.filePath("big.nyx"));
    QVERIFY(project.open(QIODevice::WriteOnly));
    project.write("<Kiv_Project_T platform=\"QX100\" width=\"64\" height=\"48\"><Kiv_Screen_T "
                  "name=\"A\"><Kiv_Bitmap_T id=\"7\" basename=\"big\" suffix=\"png\" bfolder=\"\" "
                  "format=\"RGB565\" bwidth=\"512\" bheight=\"300\"/></Kiv_Screen_T>"
                  "</Kiv_Project_T>");
    project.close();
    QCOMPARE(pack(project.fileName(), "old", 3), folder);
    for (const QString &file : Files)
        QVERIFY(QFile::exists(folder + '/' + file));
    QVERIFY(read(folder + "/panel.bin") == before);
}

QTEST_GUILESS_MAIN(tst_PackageExport)

#include "tst_packageexport.moc"
