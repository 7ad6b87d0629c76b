#include "support/CChip.h"
#include "support/Player.h"
#include "support/TestPackage.h"

#include "ProjectGenerator.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "support/Replay.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineF>
#include <QPolygonF>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTransform>
#include <QtTest>

#include <algorithm>
#include <random>

/// What panel-export --package writes is enough by itself: from these files alone the player shows
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
    void aTouchHitsTheItemThatIsThere_data() { projects(); }
    void aTouchHitsTheItemThatIsThere();
    void theGuidesProgramGivesThePicture();

private:
    void projects();
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

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Which block each byte of RAM_G is of; -1: none. A block that has to be loaded again is one of
/// which anything has been written over.
class COwners
{
public:
    explicit COwners(size_t bytes) : m_owners(bytes, -1) {}

    /// Bytes that showing a screen loads.
    uint64_t show(const STestPackage &package, size_t screen)
    {
        uint64_t loaded = 0;
        for (const uint16_t index : package.screens[screen].loads) {
            const STestPackage::SBlock &block = package.blocks[index];
            const auto begin = m_owners.begin() + block.address;
            const auto end = begin + static_cast<std::ptrdiff_t>(block.bytes.size());
            if (std::count(begin, end, index) == end - begin)
                continue;
            std::fill(begin, end, index);
            loaded += block.bytes.size();
        }
        return loaded;
    }

private:
    std::vector<int> m_owners;
};

/// A blob at an odd address, a chip and an open panel.
struct SPlay
{
    SPlay(const player &functions, const STestPackage::Bytes &blob)
        : play(functions), chip(numberAt(blob, 16)), memory(1, 0xFF), bus(chip.bus())
    {
        memory.insert(memory.end(), blob.begin(), blob.end()); // as much as needed, no more
        error = play.open(&panel, memory.data() + 1, static_cast<uint32_t>(blob.size()), &bus);
    }
    SPlay(const SPlay &) = delete;

    const player play;
    CChip chip;
    STestPackage::Bytes memory;
    kiv_bus bus;
    kiv_panel panel;
    int error;
};

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

/// Whether a point is so near to the edge of an outline that rounding may decide.
bool isOnEdge(const QPolygonF &outline, const QPointF &point)
{
    for (int i = 0; i < outline.size(); ++i) {
        const QLineF edge(outline[i], outline[(i + 1) % outline.size()]);
        const QPointF along = edge.p2() - edge.p1();
        const double share = QPointF::dotProduct(point - edge.p1(), along) /
                             std::max(1e-9, QPointF::dotProduct(along, along));
        if (QLineF(edge.pointAt(std::clamp(share, 0.0, 1.0)), point).length() < 0.2)
            return true;
    }
    return false;
}

} // namespace

void tst_PackageProof::initTestCase()
{
    QStringList files;
    const QDir examples(m_sources.filePath(QStringLiteral("examples")));
    for (const QString &name : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        files += examples.filePath(name + QLatin1Char('/') + name + QStringLiteral(".nyx"));
    QVERIFY(files.size() >= 3);
    for (int seed = 1; seed <= GeneratedProjects; ++seed) {
        const QString folder = m_folder.filePath(QStringLiteral("generated-%1").arg(seed));
        QVERIFY(QDir().mkpath(folder));
        files += generateProject(static_cast<uint32_t>(seed), folder);
    }
    for (const QString &file : qAsConst(files)) {
        const QString name = QFileInfo(file).dir().dirName();
        const QString into = m_folder.filePath(QStringLiteral("exported/") + name);
        QVERIFY(QDir().mkpath(into));
        QProcess process;
        process.start(m_programs.filePath(QStringLiteral("panel-export")),
                      {file, "--strict", "--package", into, "--png", into + "/png", "--ramg",
                       into + "/ramg", "--bin", into + "/screens.bin", "--dl",
                       into + "/screens.dl"});
        QVERIFY(process.waitForFinished(120000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError());
        // Each file is told when it is written; its name follows from the screen's.
        QRegularExpressionMatchIterator told =
            QRegularExpression(QStringLiteral("^(.*\\.(png|ramg)): "),
                               QRegularExpression::MultilineOption)
                .globalMatch(QString::fromUtf8(process.readAllStandardOutput()));
        while (told.hasNext())
            if (const auto match = told.next(); match.captured(2) == QLatin1String("png"))
                m_pictures[name] += match.captured(1);
            else
                m_memories[name] += match.captured(1);
        m_names += name;
    }
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
    return QDir(m_folder.filePath(QStringLiteral("exported/") + name));
}

STestPackage::Bytes tst_PackageProof::blob() const
{
    const QByteArray bytes = contentOf(exported().filePath(QStringLiteral("panel.bin")));
    return {bytes.begin(), bytes.end()};
}

QJsonArray tst_PackageProof::screensOfManifest() const
{
    const QByteArray text = contentOf(exported().filePath(QStringLiteral("manifest.json")));
    return QJsonDocument::fromJson(text).object()[QStringLiteral("screens")].toArray();
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

    SPlay open(m_players[static_cast<size_t>(row) % m_players.size()], bytes);
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
    const QByteArray bytes = contentOf(exported().filePath(QStringLiteral("screens.bin")));
    std::vector<uint32_t> words = kivemu::fromBytes(
        reinterpret_cast<const uint8_t *>(bytes.constData()), static_cast<size_t>(bytes.size()));
    const QStringList texts =
        QString::fromUtf8(contentOf(exported().filePath(QStringLiteral("screens.dl"))))
            .split(QRegularExpression(QStringLiteral("^===.*===$"),
                                      QRegularExpression::MultilineOption));
    QCOMPARE(texts.size(), static_cast<int>(package.screens.size()) + 1);
    for (size_t i = 0; i < package.screens.size(); ++i) {
        const auto screen = static_cast<int>(i);
        const auto end = words.begin() + static_cast<std::ptrdiff_t>(
                                             kivemu::listLength(words.data(), words.size()));
        std::vector<uint32_t> single(words.begin(), end);
        words.erase(words.begin(), end);
        QString text = QString::fromStdString(kivemu::disassemble(single.data(), single.size()));
        QCOMPARE(texts[screen + 1].trimmed(),
                 text.replace(QLatin1String(";"), QLatin1String(";\n")).trimmed());
        std::string error;
        QVERIFY(kivemu::assemble(texts[screen + 1].toStdString(), &error) == single);

        const QByteArray assets = contentOf(m_memories[exported().dirName()].value(screen));
        kivemu::CRamG memory(static_cast<size_t>(assets.size()));
        memory.append(reinterpret_cast<const uint8_t *>(assets.constData()), memory.capacity());
        kivemu::CExecutor executor(kivemu::EKernelSet::Plain);
        const kivemu::SFrame frame =
            kivemu::execute(executor, single, memory, package.width, package.height, 0xFF000000);
        QCOMPARE(frame.errors, std::vector<std::string>());
        QCOMPARE(differentPixels(frame.pixels, package.width, package.height, picture(screen)), 0);

        std::vector<uint32_t> packed = package.screens[i].list;
        for (std::vector<uint32_t> *list : {&single, &packed})
            kivemu::replaceAddresses(list->data(), list->size(),
                                     [](kivemu::EOpcode, uint32_t) { return 0U; });
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
    for (int from = 0; from < screens.size(); ++from) {
        for (int to = 0; to < screens.size(); ++to) {
            SPlay open(m_players.front(), bytes);
            QCOMPARE(kiv_panel_screen_count(&open.panel), screens.size());
            open.play.show(&open.panel, from);
            const uint64_t first = open.chip.loadedBytes();
            QCOMPARE(first, number(screens[from].toObject()["bytes_loaded_first"]));
            open.play.show(&open.panel, to);
            QCOMPARE(open.chip.loadedBytes() - first,
                     number(screens[to].toObject()["bytes_loaded_after"].toArray()[from]));
        }
    }
}

void tst_PackageProof::aTouchHitsTheItemThatIsThere()
{
    const STestPackage::Bytes bytes = blob();
    const QJsonArray screens = screensOfManifest();
    SPlay open(m_players.front(), bytes);
    std::mt19937 random(3);
    for (int screen = 0; screen < screens.size(); ++screen) {
        open.play.show(&open.panel, screen);
        const QJsonArray items = screens[screen].toObject()["items"].toArray(); // front-most first
        for (const QJsonValue item : items)
            QVERIFY2(item["words"].toArray().isEmpty() ||
                         (item["width"].toDouble() > 0 && item["height"].toDouble() > 0),
                     qPrintable("what is seen can be touched: " + item["name"].toString()));
        for (int touch = 0; touch < 300; ++touch) {
            const int x = static_cast<int>(random() >> 1) % kiv_panel_width(&open.panel);
            const int y = static_cast<int>(random() >> 1) % kiv_panel_height(&open.panel);
            const QPointF centre(x + 0.5, y + 0.5);
            bool isUncertain = false;
            int wanted = -1;
            for (const QJsonValue &value : items) {
                const QJsonObject item = value.toObject();
                const QPolygonF corners = outline(item);
                isUncertain = isUncertain || isOnEdge(corners, centre);
                if (wanted < 0 && corners.containsPoint(centre, Qt::OddEvenFill))
                    wanted = item["index"].toInt();
            }
            const int hit = open.play.hit(&open.panel, x, y);
            if (isUncertain)
                continue;
            QCOMPARE(hit, wanted);
            if (hit >= 0) {
                const QJsonObject item =
                    items[hit - items[0].toObject()["index"].toInt()].toObject();
                QCOMPARE(QString::fromUtf8(kiv_panel_item_name(&open.panel, hit)),
                         item["name"].toString());
            }
        }
    }
}

// The commands of docs/firmware.md, in a folder that holds the package, the player and nothing
// else.
void tst_PackageProof::theGuidesProgramGivesThePicture()
{
    const QString guide =
        QString::fromUtf8(contentOf(m_sources.filePath(QStringLiteral("docs/firmware.md"))));
    const QString program = guide.section(QStringLiteral("```c\n"), 1, 1).section("```", 0, 0);
    QVERIFY(program.contains(QStringLiteral("int main(")));
    QVERIFY2(program.count(QLatin1Char('\n')) < 60, "the program is as short as it is said to be");
    for (const QString &name : {QStringLiteral("coffee-machine"), QStringLiteral("ev-charger"),
                                QStringLiteral("thermostat")}) {
        const QDir package(m_folder.filePath(QStringLiteral("exported/") + name));
        const QDir folder(m_folder.filePath(QStringLiteral("stranger/") + name));
        QVERIFY(QDir().mkpath(folder.path()));
        for (const QString &file : {QStringLiteral("panel.h"), QStringLiteral("panel.c")})
            QVERIFY(QFile::copy(package.filePath(file), folder.filePath(file)));
        for (const QString &file : {QStringLiteral("kiv_panel.h"), QStringLiteral("kiv_panel.c")})
            QVERIFY(QFile::copy(m_sources.filePath(QStringLiteral("firmware/") + file),
                                folder.filePath(file)));
        QFile source(folder.filePath(QStringLiteral("main.c")));
        QVERIFY(source.open(QIODevice::WriteOnly) && source.write(program.toUtf8()) > 0);
        source.close();

        QProcess process;
        process.setWorkingDirectory(folder.path());
        const auto run = [&](const QString &command, const QStringList &arguments) {
            process.start(command, arguments);
            process.waitForFinished(120000);
            return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        };
        QCOMPARE(run(QStringLiteral("cc"),
                     {"-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Werror",
                      "main.c", "panel.c", "kiv_panel.c", "-o", "shown"}),
                 0);
        const QDir pictures(package.filePath(QStringLiteral("png")));
        for (const QString &file : pictures.entryList(QDir::Files)) {
            const QString screen = QFileInfo(file).completeBaseName();
            const QImage wanted(pictures.filePath(file));
            QCOMPARE(run(folder.filePath(QStringLiteral("shown")), {screen}), 0);
            QVERIFY(
                process.readAllStandardOutput().contains("in the middle of " + screen.toUtf8()));
            QCOMPARE(run(m_programs.filePath(QStringLiteral("panel-chip")),
                         {"ram_g.bin", "ram_dl.bin",
                          QStringLiteral("%1x%2").arg(wanted.width()).arg(wanted.height()),
                          "shown.png"}),
                     0);
            const QImage shown(folder.filePath(QStringLiteral("shown.png")));
            QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
                     wanted.convertToFormat(QImage::Format_RGB32));
        }
    }
}

QTEST_GUILESS_MAIN(tst_PackageProof)
#include "tst_packageproof.moc"
