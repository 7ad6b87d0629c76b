#include "support/OpenPanel.h"

#include "ProjectGenerator.h"
#include "TestFiles.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "support/Replay.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPolygonF>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTransform>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <random>

/// What the files of panel-export --package say agrees and compilers take them, and they are enough
/// by themselves: from these files alone the player shows
/// on a chip, pixel by pixel, the pictures that panel-export drew, and loads what the manifest
/// says.
class tst_PackageProof : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyScreenIsItsPictureInAnyOrder_data() { projects(); }
    void everyScreenIsItsPictureInAnyOrder();
    void theSingleExportsAreTheSame_data() { projects(); }
    void theSingleExportsAreTheSame();
    void aChangeLoadsWhatTheManifestSays_data() { projects(); }
    void aChangeLoadsWhatTheManifestSays();
    void itemsLieWhereTheManifestSays_data() { projects(); }
    void itemsLieWhereTheManifestSays();
    void theGuidesProgramGivesThePicture();
    void manifestFollowsItsSchema_data() { projects(); }
    void manifestFollowsItsSchema();
    void memoryIsWhatTheReportSays_data() { projects(); }
    void memoryIsWhatTheReportSays();
    void equalProjectsGiveEqualBytes();
    void renamingAScreenChangesItsLinesOnly();
    void failureLeavesTheOldPackage();

private:
    void projects();
    /// Packed and exported in all forms; what panel-export told.
    QByteArray exportTo(const QString &folder, const QString &project, int expected = 0) const;
    int validate(const QByteArray &manifest) const;
    QDir exported() const; ///< of the row's project
    STestPackage::Bytes blob() const;
    QJsonArray screensOfManifest() const;
    QImage picture(int screen) const;

    const QDir m_sources{qEnvironmentVariable("KIV_SOURCE_DIR")};
    const QDir m_programs{qEnvironmentVariable("KIV_BIN_DIR")};
    QTemporaryDir m_folder;
    QStringList m_names;
    QMap<QString, QStringList> m_pictures; ///< of each project, in the order of its screens
    QMap<QString, QStringList> m_memories; ///< likewise
    const std::vector<player> m_players = players();
};

namespace {

constexpr int GeneratedProjects = 30;

QJsonObject jsonOf(const QString &path)
{
    return QJsonDocument::fromJson(TestFiles::read(path)).object();
}

/// A section of a blob, by its kind.
QByteArray section(const STestPackage::Bytes &blob, uint32_t kind)
{
    return {reinterpret_cast<const char *>(&blob[STestPackage::sectionBegin(blob, kind)]),
            static_cast<int>(STestPackage::sectionBytes(blob, kind))};
}

/// How many pixels are not those of a picture; -1 for another size.
int differentPixels(const std::vector<uint32_t> &shown, int width, int height, const QImage &wanted)
{
    if (wanted.size() != QSize(width, height))
        return -1;
    int different = 0;
    auto pixel = shown.begin();
    for (int y = 0; y < height; ++y) {
        const auto *row = reinterpret_cast<const uint32_t *>(wanted.constScanLine(y));
        for (int x = 0; x < width; ++x)
            different += row[x] != *pixel++;
    }
    return different;
}

/// The corners of an item of the manifest, turned about its middle.
QPolygonF outline(const QJsonObject &item)
{
    const QRectF box(item["x"].toDouble(), item["y"].toDouble(), item["width"].toDouble(),
                     item["height"].toDouble());
    QTransform turn;
    turn.translate(box.center().x(), box.center().y());
    turn.rotate(item["angle"].toDouble());
    turn.translate(-box.center().x(), -box.center().y());
    return turn.map(QPolygonF(
        QVector<QPointF>{box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()}));
}

} // namespace

void tst_PackageProof::initTestCase()
{
    QStringList files;
    const QDir examples(m_sources.filePath("examples"));
    for (const QString &name : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        files += examples.filePath(name + '/' + name + ".nyx");
    QVERIFY(files.size() >= 3);
    for (int seed = 1; seed <= GeneratedProjects; ++seed) {
        const QString folder = m_folder.filePath(QString("generated-%1").arg(seed));
        QVERIFY(QDir().mkpath(folder));
        files += generateProject(static_cast<uint32_t>(seed), folder);
    }
    for (const QString &file : qAsConst(files)) {
        const QString name = QFileInfo(file).dir().dirName();
        const QString into = m_folder.filePath("exported/" + name);
        const QByteArray output = exportTo(into, file);
        // Each file is told when it is written; its name follows from the screen's.
        QRegularExpressionMatchIterator told =
            QRegularExpression("^(.*\\.(png|ramg)): ", QRegularExpression::MultilineOption)
                .globalMatch(QString::fromUtf8(output));
        while (told.hasNext())
            if (const auto match = told.next(); match.captured(2) == "png")
                m_pictures[name] += match.captured(1);
            else
                m_memories[name] += match.captured(1);
        m_names += name;
    }
}

QByteArray tst_PackageProof::exportTo(const QString &folder, const QString &project,
                                      int expected) const
{
    QDir().mkpath(folder);
    QProcess process;
    process.start(m_programs.filePath("panel-export"),
                  {project, "--package", folder, "--png", folder + "/png", "--ramg",
                   folder + "/ramg", "--bin", folder + "/screens.bin", "--dl",
                   folder + "/screens.dl", "--report", folder + "/report.json"});
    process.waitForFinished(120000);
    const QByteArray errors = process.readAllStandardError();
    if (process.exitCode() != expected || errors.isEmpty() != (expected == 0))
        QTest::qFail(errors, __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

void tst_PackageProof::projects()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : qAsConst(m_names))
        QTest::newRow(qPrintable(name)) << name;
}

QDir tst_PackageProof::exported() const
{
    QFETCH(QString, name);
    return QDir(m_folder.filePath("exported/" + name));
}

STestPackage::Bytes tst_PackageProof::blob() const
{
    const QByteArray bytes = TestFiles::read(exported().filePath("panel.bin"));
    return {bytes.begin(), bytes.end()};
}

QJsonArray tst_PackageProof::screensOfManifest() const
{
    return jsonOf(exported().filePath("manifest.json"))["screens"].toArray();
}

QImage tst_PackageProof::picture(int screen) const
{
    return QImage(m_pictures[exported().dirName()].value(screen))
        .convertToFormat(QImage::Format_RGB32);
}

void tst_PackageProof::everyScreenIsItsPictureInAnyOrder()
{
    const STestPackage::Bytes bytes = blob();
    const STestPackage package = STestPackage::fromBytes(bytes);
    const int row = m_names.indexOf(exported().dirName()); // another build of the player for each
    std::mt19937 random(static_cast<uint32_t>(row));
    std::vector<int> order;
    for (size_t i = 0; i < 3 * package.screens.size(); ++i)
        order.push_back(static_cast<int>(i % package.screens.size()));
    std::shuffle(order.begin(), order.end(), random);

    SOpenPanel open(m_players[static_cast<size_t>(row) % m_players.size()], bytes);
    QCOMPARE(open.error, 0);
    COwners owners(open.chip.ramG().size());
    for (const int screen : order) {
        const uint64_t before = open.chip.loadedBytes();
        QCOMPARE(open.play.show(&open.panel, screen), 0);
        QCOMPARE(open.chip.loadedBytes() - before,
                 owners.show(package, static_cast<size_t>(screen)));
        QCOMPARE(open.chip.errors(), std::vector<std::string>());

        std::vector<std::string> errors;
        const auto shown = open.chip.draw(package.width, package.height, &errors);
        QCOMPARE(errors, std::vector<std::string>());
        QCOMPARE(differentPixels(shown, package.width, package.height, picture(screen)), 0);
    }
}

// What the other options write for each screen gives the same pictures, the text says the same as
// the bytes, and the package's lists are these lists but for the addresses.
void tst_PackageProof::theSingleExportsAreTheSame()
{
    const STestPackage package = STestPackage::fromBytes(blob());
    const QByteArray bytes = TestFiles::read(exported().filePath("screens.bin"));
    std::vector<uint32_t> words = kivemu::fromBytes(
        reinterpret_cast<const uint8_t *>(bytes.constData()), static_cast<size_t>(bytes.size()));
    const QStringList texts =
        QString::fromUtf8(TestFiles::read(exported().filePath("screens.dl")))
            .split(QRegularExpression("^===.*===$", QRegularExpression::MultilineOption));
    QCOMPARE(texts.size(), static_cast<int>(package.screens.size()) + 1);
    for (size_t i = 0; i < package.screens.size(); ++i) {
        const auto screen = static_cast<int>(i);
        const auto end = words.begin() + static_cast<std::ptrdiff_t>(
                                             kivemu::listLength(words.data(), words.size()));
        std::vector<uint32_t> single(words.begin(), end);
        words.erase(words.begin(), end);
        QString text = QString::fromStdString(kivemu::disassemble(single.data(), single.size()));
        QCOMPARE(texts[screen + 1].trimmed(), text.replace(";", ";\n").trimmed());
        std::string error;
        QVERIFY(kivemu::assemble(texts[screen + 1].toStdString(), &error) == single);

        const QByteArray assets = TestFiles::read(m_memories[exported().dirName()].value(screen));
        kivemu::CRamG memory(static_cast<size_t>(assets.size()));
        memory.append(reinterpret_cast<const uint8_t *>(assets.constData()), memory.capacity());
        kivemu::CExecutor executor(kivemu::EKernelSet::Plain);
        const kivemu::SFrame frame =
            kivemu::execute(executor, single, memory, package.width, package.height, 0xFF000000);
        QCOMPARE(frame.errors, std::vector<std::string>());
        QCOMPARE(differentPixels(frame.pixels, package.width, package.height, picture(screen)), 0);

        std::vector<uint32_t> packed = package.screens[i].list;
        for (std::vector<uint32_t> *list : {&single, &packed}) {
            kivemu::replaceAddresses(list->data(), list->size(),
                                     [](kivemu::EOpcode, uint32_t) { return 0U; });
            // A font's glyphs have other numbers where all screens share its block.
            kivemu::walkCommands(list->data(), list->size(),
                                 [&](const kivemu::SCommand &command, size_t header) {
                                     if (command.opcode == kivemu::EOpcode::Glyph)
                                         (*list)[header] &= 0xFFFF0000U;
                                 });
        }
        QVERIFY(single == packed);
    }
    QVERIFY(words.empty());
}

void tst_PackageProof::aChangeLoadsWhatTheManifestSays()
{
    const STestPackage::Bytes bytes = blob();
    const QJsonArray screens = screensOfManifest();
    const auto number = [](const QJsonValue &value) {
        return static_cast<uint64_t>(value.toDouble());
    };
    const QJsonValue plan = jsonOf(exported().filePath("manifest.json"))["ram_g_plan"];
    const QJsonArray blocks = plan["blocks"].toArray();
    const auto loadsOf = [&screens](int screen) {
        return QJsonValue(screens[screen])["loads"].toArray();
    };
    const auto loadedAfter = [&](int from, int to) {
        uint64_t all = 0;
        for (const QJsonValue block : loadsOf(to))
            if (!loadsOf(from).contains(block))
                all += number(QJsonValue(blocks[block.toInt()])["bytes"]);
        return all;
    };
    for (int from = 0; from < screens.size(); ++from) {
        for (int to = 0; to < screens.size(); ++to) {
            SOpenPanel open(m_players.front(), bytes);
            QCOMPARE(kiv_panel_screen_count(&open.panel), screens.size());
            open.play.show(&open.panel, from);
            const uint64_t first = open.chip.loadedBytes();
            QCOMPARE(first, number(screens[from].toObject()["bytes_loaded_first"]));
            open.play.show(&open.panel, to);
            QCOMPARE(open.chip.loadedBytes() - first, loadedAfter(from, to));
        }
    }
}

void tst_PackageProof::itemsLieWhereTheManifestSays()
{
    const STestPackage package = STestPackage::fromBytes(blob());
    const QJsonArray screens = screensOfManifest();
    for (int screen = 0; screen < screens.size(); ++screen) {
        const QJsonArray items = screens[screen].toObject()["items"].toArray(); // front-most first
        const auto &packed = package.screens[static_cast<size_t>(screen)].items;
        QCOMPARE(items.size(), static_cast<int>(packed.size()));
        for (int i = 0; i < items.size(); ++i) {
            const QJsonObject item = items[i].toObject();
            const STestPackage::SItem &touched = packed[static_cast<size_t>(i)];
            QVERIFY2(item["words"].toArray().isEmpty() ||
                         (item["width"].toDouble() > 0 && item["height"].toDouble() > 0),
                     qPrintable("what is seen can be touched: " + item["name"].toString()));
            QCOMPARE(item["index"].toInt(), items[0].toObject()["index"].toInt() + i);
            QCOMPARE(QString::fromStdString(touched.name), item["name"].toString());
            const QPolygonF corners = outline(item);
            for (size_t corner = 0; corner < 4; ++corner) {
                const QPointF wanted = 16 * corners[static_cast<int>(corner)];
                QVERIFY(std::abs(touched.outline[2 * corner] - wanted.x()) <= 1);
                QVERIFY(std::abs(touched.outline[2 * corner + 1] - wanted.y()) <= 1);
            }
        }
    }
}

// The commands of docs/firmware.md, in a folder that holds the package, the player and nothing
// else, also for other compilers and as C++.
void tst_PackageProof::theGuidesProgramGivesThePicture()
{
    const QString guide =
        QString::fromUtf8(TestFiles::read(m_sources.filePath("docs/firmware.md")));
    const QString program = guide.section("```c\n", 1, 1).section("```", 0, 0);
    QVERIFY(program.contains("int main("));
    QVERIFY2(program.count(QLatin1Char('\n')) < 60, "the program is as short as it is said to be");
    const std::pair<QString, QString> examples[] = {{"coffee-machine", "gcc -std=c99"},
                                                    {"ev-charger", "g++ -x c++ -std=c++17"},
                                                    {"thermostat", "clang-14 -std=c99"},
                                                    {"thermostat", "clang-14 -x c++ -std=c++17"}};
    for (const auto &[name, compiler] : examples) {
        const QDir package(m_folder.filePath("exported/" + name));
        const QDir folder(m_folder.filePath("stranger/" + name + compiler));
        QVERIFY(QDir().mkpath(folder.path()));
        for (const QString file : {"panel.h", "panel.c"})
            QVERIFY(QFile::copy(package.filePath(file), folder.filePath(file)));
        for (const QString file : {"kiv_panel.h", "kiv_panel.c"})
            QVERIFY(QFile::copy(m_sources.filePath("firmware/" + file), folder.filePath(file)));
        TestFiles::write(folder.filePath("main.c"),
                         program.toUtf8() + "int screens[PANEL_SCREEN_COUNT == 3 ? 1 : -1];\n");

        QProcess process;
        process.setWorkingDirectory(folder.path());
        const auto run = [&](const QString &command, const QStringList &arguments) {
            process.start(command, arguments);
            process.waitForFinished(120000);
            return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        };
        const QStringList words = (compiler + " -Wall -Wextra -Wpedantic -Wconversion -Werror "
                                              "main.c panel.c kiv_panel.c -o shown")
                                      .split(' ');
        QCOMPARE(run(words[0], words.mid(1)), 0);
        // A number past what an int holds is no size, also when its lower bits are one.
        QCOMPARE(run(m_programs.filePath("panel-chip"),
                     {"ram_g.bin", "ram_dl.bin", "4294967776x272", "shown.png"}),
                 2);
        const QDir pictures(package.filePath("png"));
        for (const QString &file : pictures.entryList(QDir::Files)) {
            const QString screen = QFileInfo(file).completeBaseName();
            const QImage wanted(pictures.filePath(file));
            QCOMPARE(run(folder.filePath("shown"), {screen}), 0);
            QVERIFY(
                process.readAllStandardOutput().contains("in the middle of " + screen.toUtf8()));
            QCOMPARE(run(m_programs.filePath("panel-chip"),
                         {"ram_g.bin", "ram_dl.bin",
                          QString("%1x%2").arg(wanted.width()).arg(wanted.height()), "shown.png"}),
                     0);
            const QImage shown(folder.filePath("shown.png"));
            QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
                     wanted.convertToFormat(QImage::Format_RGB32));
        }
    }
}

int tst_PackageProof::validate(const QByteArray &manifest) const
{
    const QString file = m_folder.filePath("manifest-to-check.json");
    TestFiles::write(file, manifest);
    return QProcess::execute("/usr/bin/python3",
                             {"-c",
                              "import json, jsonschema, sys\n"
                              "schema, manifest = (json.load(open(f)) for f in sys.argv[1:])\n"
                              "v = jsonschema.Draft7Validator(schema)\n"
                              "v.check_schema(schema)\n"
                              "sys.exit(0 if v.is_valid(manifest) else 9)",
                              m_sources.filePath("docs/package-manifest.schema.json"), file});
}

void tst_PackageProof::manifestFollowsItsSchema()
{
    QJsonObject manifest = jsonOf(exported().filePath("manifest.json"));
    QCOMPARE(validate(QJsonDocument(manifest).toJson()), 0);
    QVERIFY(!QJsonDocument(manifest).toJson().contains(m_sources.path().toUtf8()));
    QVERIFY(!QJsonDocument(manifest).toJson().contains(m_folder.path().toUtf8()));
    manifest["more"] = 1; // the schema refuses what it does not know
    QCOMPARE(validate(QJsonDocument(manifest).toJson()), 9);
    // What it says about items and words is what the list says.
    const QByteArray lists = section(blob(), 7);
    for (const QJsonValue screen : manifest["screens"].toArray())
        for (const QJsonValue item : screen["items"].toArray())
            for (const QJsonValue piece : item["words"].toArray()) {
                const int at =
                    screen["ram_dl_offset_in_lists"].toInt() + piece["first"].toInt() * 4;
                QCOMPARE(qFromLittleEndian<quint32>(lists.constData() + at),
                         kivemu::headerWord(kivemu::EOpcode::Item, 0));
                QCOMPARE(qFromLittleEndian<quint32>(lists.constData() + at + 4),
                         item["id"].toString().toUInt());
            }
}

/// The images of RAM_G hold at each address of the report's map what the package has as the asset.
void tst_PackageProof::memoryIsWhatTheReportSays()
{
    const QByteArray data = section(blob(), 8);
    const QJsonArray assets = jsonOf(exported().filePath("manifest.json"))["assets"].toArray();
    const QJsonArray screens = jsonOf(exported().filePath("report.json"))["screens"].toArray();
    for (int i = 0; i < screens.size(); ++i) {
        const QByteArray image = TestFiles::read(m_memories[exported().dirName()].value(i));
        QCOMPARE(image.size(), screens[i]["ram_g_bytes"].toInt());
        for (const QJsonValue place : screens[i]["ram_g_map"].toArray()) {
            const auto asset =
                std::find_if(assets.begin(), assets.end(), [&](const QJsonValue &each) {
                    return each["files"].toArray().contains(place["file"]) &&
                           each["stride"] == place["stride"];
                });
            QVERIFY2(asset != assets.end(), qPrintable(place["file"].toString()));
            if (place["format"] == "FONT") { // the package has the glyphs of all screens
                QVERIFY((*asset)["width"].toInt() >= place["width"].toInt());
                continue;
            }
            const int bytes = place["bytes"].toInt();
            QVERIFY(image.mid(place["address"].toInt(), bytes) ==
                    data.mid((*asset)["data_offset"].toInt(), bytes));
        }
    }
}

void tst_PackageProof::equalProjectsGiveEqualBytes()
{
    for (const QString name : {"coffee-machine", "ev-charger", "thermostat"}) {
        const QString copy = m_folder.filePath("copy of " + name);
        QCOMPARE(QProcess::execute("cp", {"-r", m_sources.filePath("examples/" + name), copy}), 0);
        const QString first = m_folder.filePath("exported/" + name);
        const QString second = m_folder.filePath("again/" + name);
        exportTo(second, copy + '/' + name + ".nyx");
        const auto files = TestFiles::below(first);
        QVERIFY(files.size() > 10);
        QVERIFY(TestFiles::below(second) == files);
    }
}

void tst_PackageProof::renamingAScreenChangesItsLinesOnly()
{
    const auto lines = [this](const QString &folder) {
        return QString::fromUtf8(TestFiles::read(m_folder.filePath(folder + "/panel.h")))
            .split('\n');
    };
    QByteArray project = TestFiles::read(m_sources.filePath("examples/thermostat/thermostat.nyx"));
    const QString renamed = m_folder.filePath("copy of thermostat/renamed.nyx");
    TestFiles::write(renamed, project.replace("name=\"Schedule\"", "name=\"*/ The \\ week\""));
    exportTo(m_folder.filePath("renamed"), renamed);
    const QStringList before = lines("exported/thermostat");
    const QStringList after = lines("renamed");
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < before.size(); ++i)
        if (before[i].contains("_SCHEDULE"))
            QVERIFY2(after[i].contains("_THE_WEEK"), qPrintable(after[i]));
        else
            QCOMPARE(after[i], before[i]);
}

/// A screen whose bitmaps do not fit into RAM_G.
void tst_PackageProof::failureLeavesTheOldPackage()
{
    const QString folder = m_folder.filePath("again/thermostat/");
    const QByteArray before = TestFiles::read(folder + "panel.bin");
    TestFiles::write(m_folder.filePath("big_RGB565.raw"), QByteArray(2 * 512 * 300, 'x'));
    const QString project = m_folder.filePath("big.nyx");
    TestFiles::write(project, "<Kiv_Project_T platform=\"QX100\" width=\"64\" height=\"48\">"
                              "<Kiv_Screen_T name=\"A\"><Kiv_Bitmap_T id=\"7\" basename=\"big\" "
                              "suffix=\"png\" bfolder=\"\" format=\"RGB565\" bwidth=\"512\" "
                              "bheight=\"300\"/></Kiv_Screen_T></Kiv_Project_T>");
    exportTo(folder, project, 3);
    for (const char *file : {"panel.h", "panel.c", "manifest.json"})
        QVERIFY(QFile::exists(folder + file));
    QVERIFY(TestFiles::read(folder + "panel.bin") == before);
}

QTEST_GUILESS_MAIN(tst_PackageProof)
#include "tst_packageproof.moc"
