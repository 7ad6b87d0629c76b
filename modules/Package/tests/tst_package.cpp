#include "CFolderGuard.h"
#include "CFontMerge.h"
#include "CPackageBuilder.h"
#include "CRamGPlan.h"
#include "Identifiers.h"
#include "PackageFiles.h"
#include "PackagePaths.h"
#include "QxKivEmuLib.h"
#include "TestFiles.h"
#include "displaylist/DisplayListText.h"
#include "displaylist/FontBlock.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "support/Replay.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <random>
#include <set>

/// The rules of the package that need no emulator: names, the plan of RAM_G, files. That packages
/// show the emulator's pictures is tested by playing them, in firmware/.
class tst_Package : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void identifiers_data();
    void identifiers();
    void pathsOfTheMachineStayOut();
    void planKeepsItsPromises();
    void planOfSharedAssetsReloadsLittle();
    void filesAreWrittenTogetherOrNotAtAll_data();
    void filesAreWrittenTogetherOrNotAtAll();
    void screensThatDoNotFitAreRefused();
    void fontsOfScreensAreMerged_data();
    void fontsOfScreensAreMerged();
    void mergedFontsShowTheSamePictures();
};

void tst_Package::identifiers_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *title, const QString &names, const QString &expected) {
        QTest::newRow(title) << names << expected;
    };
    row("plain", "Start|Main menu|0.55 EUR", "P_START|P_MAIN_MENU|P_0_55_EUR");
    row("clashes are numbered", "Main menu|main_menu|MAIN-MENU!",
        "P_MAIN_MENU|P_MAIN_MENU_2|P_MAIN_MENU_3");
    row("a clash takes no one else's name", "a|A|a 2", "P_A|P_A_3|P_A_2");
    row("what counts them keeps its name", "Count|count 2", "P_COUNT_3|P_COUNT_2");
    row("nothing left", "|***|_", "P_NONE|P_NONE_2|P_NONE_3");
    row("letters of other scripts", QString::fromUtf8("Größe|é|é|主|菜"),
        "P_GROSSE|P_E|P_E_2|P_U4E3B|P_U83DC");
    row("ends of lines and comments", "a\nb|*/ c /*|d\\", "P_A_B|P_C|P_D");
    const QString many(80, 'x');
    row("long ones stay apart in 63 characters", many + '|' + many + 'y',
        "P_" + QString(61, 'X') + "|P_" + QString(59, 'X') + "_2");
}

void tst_Package::identifiers()
{
    QFETCH(QString, names);
    QFETCH(QString, expected);
    QCOMPARE(Identifiers::unique("P_", names.split('|'), "NONE"), expected.split('|'));
}

void tst_Package::pathsOfTheMachineStayOut()
{
    const std::pair<const char *, const char *> cases[] = {{"/data/p/img/a.raw", "img/a.raw"},
                                                           {"/data/p/x/../img/a.raw", "img/a.raw"},
                                                           {"/data/q/a.raw", "a.raw"},
                                                           {"/data/p2/a.raw", "a.raw"}};
    for (const auto &[path, expected] : cases)
        QCOMPARE(fileInPackage(path, "/data/p"), QString(expected));
}

namespace {

struct SPlanCase
{
    std::vector<uint32_t> assets;
    std::vector<std::vector<size_t>> screens;
    uint32_t capacity;
};

uint32_t rounded(uint32_t bytes)
{
    return (bytes + 3) / 4 * 4;
}

/// Screens that fit, some of them to the last byte.
SPlanCase randomCase(uint32_t seed)
{
    std::mt19937 engine(seed);
    const auto random = [&engine] { return static_cast<uint32_t>(engine()); };
    const bool isCrowded = seed == 99; // more kinds of use than a package has blocks
    SPlanCase result{{}, {}, isCrowded ? 10000 : 4096 + 4 * (random() % 1000)};
    const uint32_t largest = isCrowded       ? 8
                             : seed % 3 == 0 ? 64
                                             : result.capacity / (1 + random() % 8);
    for (uint32_t count = isCrowded ? 2000 : random() % 60; count > 0; --count)
        result.assets.push_back(1 + random() % largest);
    for (uint32_t count = isCrowded ? 12 : 1 + random() % 12; count > 0; --count) {
        std::vector<size_t> screen;
        uint32_t used = 0;
        for (size_t asset = 0; asset < result.assets.size(); ++asset) {
            const uint32_t bytes = rounded(result.assets[asset]);
            if (random() % 3 == 0 || used + bytes > result.capacity)
                continue;
            used += bytes;
            screen.push_back(asset);
        }
        if (used < result.capacity && seed % 2 == 0) { // an asset of its own takes the rest
            screen.push_back(result.assets.size());
            result.assets.push_back(result.capacity - used);
        }
        result.screens.push_back(screen);
    }
    return result;
}

} // namespace

void tst_Package::planKeepsItsPromises()
{
    int whole = 0;
    int moved = 0;
    for (uint32_t seed = 0; seed < 400; ++seed) {
        const SPlanCase one = randomCase(seed);
        const CRamGPlan plan(one.assets, one.screens, one.capacity);
        const CRamGPlan again(one.assets, one.screens, one.capacity);
        QVERIFY(plan.blocks().size() <= CRamGPlan::MaxBlocks);
        whole += plan.fitsAsAWhole() ? 1 : 0;
        moved += plan.blocks().size() > plan.groups().size() ? 1 : 0;
        uint64_t total = 0;
        for (size_t asset = 0; asset < one.assets.size(); ++asset) {
            const bool isUsed =
                std::any_of(one.screens.begin(), one.screens.end(), [&](const auto &screen) {
                    return std::find(screen.begin(), screen.end(), asset) != screen.end();
                });
            total += isUsed ? rounded(one.assets[asset]) : 0;
        }
        QCOMPARE(plan.fitsAsAWhole(), total <= one.capacity);
        for (size_t screen = 0; screen < one.screens.size(); ++screen) {
            QVERIFY(plan.loads()[screen] == again.loads()[screen]);
            uint32_t end = 0;
            for (const size_t block : plan.loads()[screen]) {
                const CRamGPlan::SBlock &place = plan.blocks()[block];
                QVERIFY(place.address >= end && place.address % 4 == 0 && place.bytes % 4 == 0);
                end = place.address + place.bytes;
            }
            QVERIFY(end <= one.capacity);
            for (const size_t asset : one.screens[screen]) {
                const uint32_t from = plan.address(screen, asset);
                QVERIFY(std::any_of(
                    plan.loads()[screen].begin(), plan.loads()[screen].end(), [&](size_t block) {
                        const auto &place = plan.blocks()[block];
                        return place.address <= from &&
                               from + one.assets[asset] <= place.address + place.bytes;
                    }));
            }
        }
        if (plan.fitsAsAWhole())
            QCOMPARE(plan.bytesOfAllChanges(), uint64_t{0});
    }
    QVERIFY(whole > 20 && whole < 380);
    QVERIFY2(moved > 5, "no screen was too scattered, so nothing was packed anew");
}

void tst_Package::planOfSharedAssetsReloadsLittle()
{
    // One large picture a screen (0 to 3), and symbols (4, 5) that most screens show.
    const std::vector<uint32_t> assets{600, 600, 600, 600, 200, 100};
    const std::vector<std::vector<size_t>> screens{{0, 4, 5}, {1, 4}, {2, 4, 5}, {3, 5}};
    const CRamGPlan plan(assets, screens, 1000);
    QCOMPARE(plan.bytesOfAllChanges(), uint64_t{4 * 3 * 600});
    QCOMPARE(plan.bytesOfFirst(3), uint64_t{900}); // the symbol that only others show is there too

    const CRamGPlan wide(assets, screens, 2100); // room for three of four pictures
    QVERIFY(!wide.fitsAsAWhole());
    std::set<uint32_t> places;
    for (size_t screen = 0; screen < 4; ++screen)
        places.insert(wide.address(screen, screen));
    QCOMPARE(places.size(), size_t{3});
}

void tst_Package::filesAreWrittenTogetherOrNotAtAll_data()
{
    QTest::addColumn<QString>("obstacle"); // what stands in the place of the third file
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("nothing") << "" << true;
    QTest::newRow("a folder") << "folder" << false;
    QTest::newRow("a link is replaced") << "link" << true;
    QTest::newRow("a link to a folder") << "link to folder" << false;
    QTest::newRow("left over by a killed program") << "left over" << true;
    QTest::newRow("held by another program") << "held" << true;
}

void tst_Package::filesAreWrittenTogetherOrNotAtAll()
{
    QFETCH(QString, obstacle);
    QFETCH(bool, isWritten);
    QTemporaryDir base;
    const QDir folder(base.filePath("new/package"));
    const auto files = [](const QByteArray &content) {
        return QVector<QPair<QString, QByteArray>>{
            {"a", content + "a"}, {"b", content + "b"}, {"c", content + "c"}};
    };
    QCOMPARE(writeTogether(folder.path(), files("old")), QString());
    if (!obstacle.isEmpty())
        QVERIFY(QFile::remove(folder.filePath("c")));
    if (obstacle == "folder")
        QVERIFY(folder.mkdir("c"));
    if (obstacle == "link")
        QVERIFY(QFile::link("a", folder.filePath("c")));
    if (obstacle == "link to folder")
        QVERIFY(QFile::link(".", folder.filePath("c")));
    const QString aside = folder.filePath(".package-abcDEF");
    if (obstacle == "left over" || obstacle == "held") {
        QVERIFY(folder.mkdir(aside));
        TestFiles::write(aside + "/a.new", "a");
    }
    const CFolderGuard held(obstacle == "held" ? aside : QString());
    QCOMPARE(writeTogether(folder.path(), files("new")).isEmpty(), isWritten);
    if (!isWritten) // a folder that was made for them goes again
        QVERIFY(!writeTogether(base.filePath("other"), {{"a", "a"}, {"none/b", "b"}}).isEmpty() &&
                !QFile::exists(base.filePath("other")));
    const QByteArray expected = isWritten ? "new" : "old";
    QCOMPARE(TestFiles::read(folder.filePath("a")), expected + "a");
    QCOMPARE(TestFiles::read(folder.filePath("b")), expected + "b");
    QCOMPARE(QFileInfo(folder.filePath("c")).isSymLink(), obstacle == "link to folder");
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
             obstacle == "held" ? 4 : 3);
}

void tst_Package::screensThatDoNotFitAreRefused()
{
    const auto problems = [](const QList<SScreenExport> &screens) {
        CPackageBuilder builder({"P", "QX100", 0x100, "/p", QSize(320, 240)});
        for (const SScreenExport &screen : screens)
            builder.add(screen);
        return builder.finish() ? QStringList() : builder.problems();
    };
    SScreenExport screen;
    screen.name = "Full";
    screen.bytes = QByteArray(4, '\0');
    screen.memory.isKnown = true;
    const SScreenExport good = screen;
    QCOMPARE(problems({good}), QStringList());
    QCOMPARE(problems({}).size(), 1);
    screen.ramG = 300000;
    screen.errors = QStringList{
        "Kiv_Bitmap_T 7: RAM_G is full: the screen needs 300000 bytes, the chip has 262144"};
    QCOMPARE(problems({good, screen, good}).size(), 1);
    for (const char *part : {"Full", "Kiv_Bitmap_T 7", "300000", "262144"})
        QVERIFY2(problems({screen})[0].contains(part), part);
    screen.memory.isKnown = false;
    QCOMPARE(problems({screen}).size(), 2);
}

namespace {

/// A block with a glyph for each letter: 8 texels of its code, which is its advance too.
QByteArray fontBlock(const QByteArray &letters)
{
    std::vector<QByteArray> masks;
    std::vector<kivemu::SFontGlyph> glyphs;
    for (const char letter : letters)
        masks.emplace_back(8, letter);
    for (const QByteArray &mask : masks)
        glyphs.push_back({4, 2, 0, 2, mask[0], reinterpret_cast<const uint8_t *>(mask.data())});
    const auto bytes = kivemu::writeFontBlock(8, glyphs);
    return {reinterpret_cast<const char *>(bytes.data()), static_cast<int>(bytes.size())};
}

QByteArray lettersOf(const QByteArray &block)
{
    std::string fault;
    const auto font = kivemu::CFontBlock::find(reinterpret_cast<const uint8_t *>(block.data()),
                                               static_cast<size_t>(block.size()), 0, fault);
    QByteArray letters;
    for (uint32_t i = 0; font && i < font->glyphCount(); ++i)
        letters += static_cast<char>(font->glyph(i, fault)->advance16);
    return letters;
}

} // namespace

void tst_Package::fontsOfScreensAreMerged_data()
{
    QTest::addColumn<QString>("blocks");
    QTest::addColumn<QString>("uses"); // screen, block, font
    QTest::addColumn<QString>("merged");
    QTest::addColumn<int>("capacity"); // a block of n letters takes 8 + 24 n bytes
    const auto row = [](const char *title, const char *blocks, const char *uses, const char *merged,
                        int capacity = 10000) {
        QTest::newRow(title) << blocks << uses << merged << capacity;
    };
    row("one screen", "abc", "00F", "abc");
    row("the second has one more", "abc cdb", "00F 11F", "abcd");
    row("equal glyphs of the first keep their numbers", "aba bac", "00F 11F", "abac");
    row("two fonts", "abc cdb", "00F 11G", "abc cdb");
    row("two fonts with a block in common", "ab bc cd", "00F 00G 11F 22G", "abcd");
    row("fonts between each other", "ab cd bc de", "00F 11G 22F 03G", "abc cde");
    row("one does not fit", "ab cd bc", "00F 11G 12G 02F", "ab cd bc", 10);
    row("just fits", "ab cd", "00F 11F", "abcd", 104);
    row("fits into one of two screens", "ab cd", "00F 11F 21F", "ab cd", 103);
    row("two of a screen need less than before", "ab bc", "00F 01F", "abc", 112);
    row("one is no font", "ab ?", "00F 11F", "ab ?");
}

void tst_Package::fontsOfScreensAreMerged()
{
    QFETCH(QString, blocks);
    QFETCH(QString, uses);
    QFETCH(QString, merged);
    QFETCH(int, capacity);
    QList<QByteArray> given;
    for (const QString &letters : blocks.split(' '))
        given += letters == "?" ? QByteArray(50, '?') : fontBlock(letters.toLatin1());
    std::vector<CFontMerge::SUse> all;
    for (const QString &use : uses.split(' '))
        all.push_back({static_cast<size_t>(use[0].digitValue()),
                       static_cast<size_t>(use[1].digitValue()), use.mid(2)});
    const CFontMerge merge(given, all, {0, 0, 0}, static_cast<uint32_t>(capacity));
    QStringList result;
    for (const QByteArray &block : merge.blocks())
        result += block[0] == '?' ? "?" : QString::fromLatin1(lettersOf(block));
    QCOMPARE(result.join(' '), merged);
    for (int i = 0; i < given.size(); ++i) {
        const QByteArray letters = lettersOf(given[i]);
        const auto block = static_cast<size_t>(i);
        const QByteArray there = lettersOf(merge.blocks()[static_cast<int>(merge.blockOf(block))]);
        for (int k = 0; k < letters.size(); ++k)
            QCOMPARE(there[merge.numberOf(block, static_cast<uint16_t>(k))], letters[k]);
    }
}

/// Screens with an upright and a turned text in one font, in memory as the emulator has them.
void tst_Package::mergedFontsShowTheSamePictures()
{
    const auto draw = [](const std::vector<uint32_t> &words, const QByteArray &memory) {
        kivemu::CRamG ramG(4096);
        ramG.append(reinterpret_cast<const uint8_t *>(memory.data()),
                    static_cast<size_t>(memory.size()));
        kivemu::CExecutor executor;
        return kivemu::execute(executor, words, ramG, 48, 32, 0);
    };
    CPackageBuilder builder({"P", "QX100", 0x100, "/p", QSize(48, 32)});
    QList<kivemu::SFrame> frames;
    for (const QByteArray letters : {"hello", "world", "low"}) {
        SScreenExport screen;
        screen.memory.isKnown = true;
        for (const uint32_t turn : {9U, 0U}) {
            const QByteArray block = fontBlock(turn > 0 ? "X" + letters.toUpper() : letters);
            screen.memory.assets.append({"/p/font.ttf", EMU_ASSET_FONT, 4, 1, turn,
                                         static_cast<uint32_t>(screen.memory.bytes.size()),
                                         static_cast<uint32_t>(block.size()), 0, 0});
            screen.memory.bytes += block;
        }
        const QString list = QString("FONT(2, 0);FONT(3, %1);TEXT(64, 160, 2);GLYPH(0, 0);"
                                     "GLYPH(2, 3);FONT(2, %1);GLYPH(1, 0);TEXT(32, 320, 2);"
                                     "GLYPH(2, 0);GLYPH(1, 0);TEXT(400, 400, 3);GLYPH(0, 0);END();")
                                 .arg(screen.memory.assets[1].address);
        const auto words = kivemu::assemble(list.toStdString(), nullptr).value();
        const auto bytes = kivemu::toBytes(words);
        screen.bytes = QByteArray(reinterpret_cast<const char *>(bytes.data()),
                                  static_cast<int>(bytes.size()));
        frames += draw(words, screen.memory.bytes);
        QVERIFY(frames.last().errors.empty());
        builder.add(screen);
    }
    QVERIFY2(builder.finish(), qPrintable(builder.problems().join('\n')));
    const SPackageContent &content = builder.content();
    QCOMPARE(content.assets.size(), 2);
    QCOMPARE(lettersOf(content.assets[0].bytes), QByteArray("XHELLOWRD"));
    for (int i = 0; i < frames.size(); ++i) {
        QByteArray planned(4096, '\0');
        for (const size_t asset : content.screens[i].assets) {
            const QByteArray &bytes = content.assets[static_cast<int>(asset)].bytes;
            planned.replace(static_cast<int>(content.plan->address(static_cast<size_t>(i), asset)),
                            bytes.size(), bytes);
        }
        QCOMPARE(kivemu::difference(frames[i], draw(content.screens[i].words, planned), 48),
                 std::string());
    }
}

QTEST_GUILESS_MAIN(tst_Package)

#include "tst_package.moc"
