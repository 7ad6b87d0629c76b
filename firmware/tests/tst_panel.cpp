#include "fuzz/PanelCheck.h"
#include "support/Corpus.h"
#include "support/OpenPanel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Bytes = STestPackage::Bytes;

enum EKind { Screens = 1, Loads, Blocks, Assets, Items, Names, Lists, Data };
constexpr size_t entry(uint32_t kind, size_t field) ///< offset of a directory field
{
    return 32 + 12 * (kind - 1) + 4 * field;
}

int openError(const Bytes &blob)
{
    return SOpenPanel(players().front(), blob).error;
}

/// Sets one number of the example's blob and its check sum.
struct SFault
{
    const char *what;
    uint32_t section; ///< 0: of the whole blob
    size_t offset;    ///< in the section
    uint32_t value;
    int error;
};

const SFault Faults[] = {
    {"another file", 0, 0, 0x5056494C, KIV_ERROR_MAGIC},
    {"a later version", 0, 12, 2, KIV_ERROR_VERSION},
    {"no version", 0, 12, 0, KIV_ERROR_VERSION},
    {"reserved field", 0, 28, 1, KIV_ERROR_VERSION},
    {"more bytes than there are", 0, 8, 0x10000, KIV_ERROR_SIZE},
    {"nearly all bytes that a number can say", 0, 8, 0xFFFFFFFC, KIV_ERROR_SIZE},
    {"bytes without a header", 0, 8, 28, KIV_ERROR_SIZE},
    {"the header alone", 0, 8, 32, KIV_ERROR_SECTION},
    {"odd bytes", 0, 8, 130, KIV_ERROR_SIZE},
    {"no width", 0, 20, 48 << 16 | 0, KIV_ERROR_CHIP},
    {"no height", 0, 20, 0 << 16 | 64, KIV_ERROR_CHIP},
    {"wider than the chip", 0, 20, 48U << 16 | 513, KIV_ERROR_CHIP},
    {"seven sections", 0, 24, 7, KIV_ERROR_SECTION},
    {"sections beyond the end", 0, 24, 0x15555556, KIV_ERROR_SECTION},
    {"sections in another order", 0, entry(Loads, 0), Blocks, KIV_ERROR_SECTION},
    {"section within the directory", 0, entry(Screens, 1), 32, KIV_ERROR_SECTION},
    {"section at an odd place", 0, entry(Screens, 1), 130, KIV_ERROR_SECTION},
    {"section within the one before", 0, entry(Loads, 1), 128, KIV_ERROR_SECTION},
    {"section that wraps round", 0, entry(Data, 2), 0xFFFFFF00, KIV_ERROR_SECTION},
    {"section behind the end", 0, entry(Data, 1), 0x7FFFFFF0, KIV_ERROR_SECTION},
    {"half a record", 0, entry(Screens, 2), 27, KIV_ERROR_SECTION},
    {"no names", 0, entry(Names, 2), 0, KIV_ERROR_SECTION},
    {"names that do not end", 0, entry(Names, 2), 4, KIV_ERROR_SECTION},
    {"names without the empty one", Names, 0, 0x41414141, KIV_ERROR_SECTION},
    {"no screens", 0, entry(Screens, 2), 0, KIV_ERROR_SCREEN},
    {"screen's name", Screens, 0, 0x10000, KIV_ERROR_SCREEN},
    {"list at an odd place", Screens, 4, 2, KIV_ERROR_SCREEN},
    {"list outside", Screens, 4, 0xFFFFFFF0, KIV_ERROR_SCREEN},
    {"no list", Screens, 8, 0, KIV_ERROR_SCREEN},
    {"list of odd bytes", Screens, 8, 6, KIV_ERROR_SCREEN},
    {"list over RAM_DL", Screens, 8, 0x2004, KIV_ERROR_SCREEN},
    {"list without an end", Screens, 8, 8, KIV_ERROR_SCREEN},
    {"loads outside", Screens, 12, 5, KIV_ERROR_SCREEN},
    {"loads that wrap round", Screens, 16, 0xFFFFFFFF, KIV_ERROR_SCREEN},
    {"loads out of order", Screens, 12, 1, KIV_ERROR_SCREEN},
    {"loads over each other", Loads, 0, 3U << 16 | 1, KIV_ERROR_SCREEN},
    {"load of no block", Loads, 0, 4, KIV_ERROR_SCREEN},
    {"items outside", Screens, 20, 7, KIV_ERROR_SCREEN},
    {"items that wrap round", Screens, 24, 0xFFFFFFFF, KIV_ERROR_SCREEN},
    {"block at an odd place", Blocks, 0, 1, KIV_ERROR_BLOCK},
    {"block across the end of RAM_G", Blocks, 0, 0x3FFF4, KIV_ERROR_BLOCK},
    {"block outside of RAM_G", Blocks, 0, 0xFFFFFFFC, KIV_ERROR_BLOCK},
    {"empty block", Blocks, 4, 0, KIV_ERROR_BLOCK},
    {"block of odd bytes", Blocks, 4, 13, KIV_ERROR_BLOCK},
    {"block that wraps round", Blocks, 4, 0xFFFFFFFC, KIV_ERROR_BLOCK},
    {"block's data at an odd place", Blocks, 8, 2, KIV_ERROR_BLOCK},
    {"block's data outside", Blocks, 8, 52, KIV_ERROR_BLOCK},
    {"asset of no block", Assets, 0, 4, KIV_ERROR_ASSET},
    {"asset before its block", Assets, 12 + 4, 12, KIV_ERROR_ASSET},
    {"asset beyond its block", Assets, 8, 17, KIV_ERROR_ASSET},
    {"asset that wraps round", Assets, 8, 0xFFFFFFFF, KIV_ERROR_ASSET},
    {"asset at an odd place", Assets, 4, 1, KIV_ERROR_ASSET},
    {"item's name", Items, 4, 0x10000, KIV_ERROR_ITEM},
};

} // namespace

TEST(Panel, SaysWhatIsWrong)
{
    const Bytes good = STestPackage::example().toBytes();
    EXPECT_EQ(openError(good), 0);
    EXPECT_EQ(STestPackage::fromBytes(good).toBytes(), good);
    for (const SFault &fault : Faults) {
        Bytes blob = good;
        const size_t begin = fault.section ? STestPackage::sectionBegin(blob, fault.section) : 0;
        setNumber(blob, begin + fault.offset, fault.value);
        seal(blob);
        EXPECT_EQ(openError(blob), fault.error) << fault.what;
    }
    for (const std::ptrdiff_t bytes : {0, 31, 32, 127})
        EXPECT_EQ(openError(Bytes(good.begin(), good.begin() + bytes)), KIV_ERROR_SIZE);
    STestPackage many = STestPackage::example();
    many.blocks.resize(513, many.blocks[0]);
    EXPECT_EQ(openError(many.toBytes()), KIV_ERROR_BLOCK);

    kiv_panel panel;
    kiv_bus bus{};
    const auto size = static_cast<uint32_t>(good.size());
    EXPECT_EQ(kiv_panel_open(&panel, good.data(), size, &bus), KIV_ERROR_ARGUMENT);
    EXPECT_EQ(kiv_panel_open(&panel, nullptr, size, nullptr), KIV_ERROR_ARGUMENT);
    EXPECT_EQ(kiv_panel_open(nullptr, good.data(), size, &bus), KIV_ERROR_ARGUMENT);
}

TEST(Panel, KeepsTheLimitsOfEachChip)
{
    for (const uint32_t chip : {0x100U, 0x101U, 0x10FU, 0x110U, 0x113U, 0x114U, 0U}) {
        const bool isSecond = chip >= 0x110 && chip <= 0x113;
        STestPackage package = STestPackage::example();
        package.chip = chip;
        package.width = package.height = isSecond ? 2048 : 512;
        package.blocks[2].address = (isSecond ? 0x100000 : 0x40000) - 16;
        package.assets[2].address = package.blocks[2].address;
        package.screens[3].list.assign(isSecond ? 0x2000 : 0x800, 0);
        EXPECT_EQ(openError(package.toBytes()), 0) << chip;
        ++package.height;
        EXPECT_EQ(openError(package.toBytes()), KIV_ERROR_CHIP) << chip;
        --package.height;
        package.screens[3].list.push_back(0);
        EXPECT_EQ(openError(package.toBytes()), KIV_ERROR_SCREEN) << chip;
        package.blocks[2].address += 4;
        EXPECT_EQ(openError(package.toBytes()), KIV_ERROR_BLOCK) << chip;
    }
}

// What a later writer adds does not keep this player from showing the rest.
TEST(Panel, PassesOverSectionsThatItDoesNotKnow)
{
    const Bytes good = STestPackage::example().toBytes();
    for (const bool isNew : {true, false}) {
        Bytes blob = good;
        const uint32_t at = entry(Data + 1, 0);
        blob.insert(blob.begin() + at, 12, 0);
        setNumber(blob, 24, 9);
        for (uint32_t kind = Screens; kind <= Data; ++kind)
            setNumber(blob, entry(kind, 1), numberAt(blob, entry(kind, 1)) + 12);
        setNumber(blob, at, isNew ? 77 : Data);
        setNumber(blob, at + 4, static_cast<uint32_t>(blob.size()));
        setNumber(blob, at + 8, 5);
        blob.resize(blob.size() + 8, 0x55);
        setNumber(blob, 8, static_cast<uint32_t>(blob.size()));
        seal(blob);
        const int expected = isNew ? 0 : int{KIV_ERROR_SECTION};
        EXPECT_EQ(openError(blob), expected);
        blob.resize(blob.size() + 100, 0xEE); // the rest of the flash
        EXPECT_EQ(openError(blob), expected);
    }
}

TEST(Panel, AFlippedBitIsSeen)
{
    const Bytes good = STestPackage::example().toBytes();
    const size_t tables = STestPackage::sectionBegin(good, Lists);
    for (size_t bit = 0; bit < 8 * good.size(); ++bit) {
        Bytes blob = good;
        blob[bit / 8] ^= static_cast<uint8_t>(1U << bit % 8);
        ASSERT_LT(openError(blob), 0) << "bit " << bit;
        if (bit / 8 >= tables)
            continue;
        // The same with a check sum that fits.
        ASSERT_EQ(checkPanel(blob.data(), blob.size()), "") << "bit " << bit;
    }
}

TEST(Panel, InputsOfTheCorpusPass)
{
    const auto inputs = kivemu::corpus("firmware/fuzz/corpus");
    for (const auto &[name, bytes] : inputs)
        EXPECT_EQ(checkPanel(bytes.data(), bytes.size()), "") << name;
    EXPECT_GT(inputs.size(), 5U);
}

// Packages of random blocks, shown in any order. Whether a block is still there is worked out byte
// by byte here: it is, as long as nobody else has written to any of its bytes.
TEST(Panel, LoadsWhatIsMissingAndNothingElse)
{
    std::mt19937 random(11);
    for (int round = 0; round < 60; ++round) {
        STestPackage package = STestPackage::example();
        const size_t blocks = round == 0 ? size_t{KIV_PANEL_MOST_BLOCKS} : 1 + random() % 40;
        const uint32_t room = round % 2 ? 256 : 4096; // crowded or not
        package.blocks.clear();
        package.assets.clear();
        for (size_t i = 0; i < blocks; ++i) {
            package.blocks.push_back({4 * static_cast<uint32_t>(random() % room),
                                      Bytes(4 + 4 * (random() % 32), static_cast<uint8_t>(i))});
        }
        for (auto &screen : package.screens) {
            std::vector<uint16_t> wanted(random() % 10);
            for (uint16_t &block : wanted)
                block = static_cast<uint16_t>(random() % blocks);
            std::sort(wanted.begin(), wanted.end(), [&](uint16_t a, uint16_t b) {
                return package.blocks[a].address < package.blocks[b].address;
            });
            screen.loads.clear();
            uint32_t end = 0;
            for (const uint16_t block : wanted) {
                const auto &candidate = package.blocks[block];
                if (candidate.address < end)
                    continue;
                screen.loads.push_back(block);
                end = candidate.address + static_cast<uint32_t>(candidate.bytes.size());
            }
            screen.list = {0};
        }
        const std::vector<player> builds = players();
        SOpenPanel open(builds[static_cast<size_t>(round) % builds.size()], package.toBytes());
        ASSERT_EQ(open.error, 0);
        COwners owners(open.chip.ramG().size());
        uint64_t expected = 0;
        for (int change = 0; change < 20; ++change) {
            const size_t screen = random() % package.screens.size();
            ASSERT_EQ(open.play.show(&open.panel, static_cast<int>(screen)), 0);
            expected += owners.show(package, screen);
            ASSERT_EQ(open.chip.loadedBytes(), expected) << open.play.compiler;
            ASSERT_EQ(open.chip.errors(), std::vector<std::string>());
            for (const uint16_t index : package.screens[screen].loads) {
                const auto &block = package.blocks[index];
                ASSERT_TRUE(std::equal(block.bytes.begin(), block.bytes.end(),
                                       open.chip.ramG().begin() + block.address));
            }
        }
    }
}

TEST(Panel, FindsScreensByNameAndRefusesOthers)
{
    for (const player &build : players()) {
        SOpenPanel open(build, STestPackage::example().toBytes());
        EXPECT_EQ(build.find_screen(&open.panel, "Screen 0"), 0) << "the first of that name";
        EXPECT_EQ(build.find_screen(&open.panel, "Screen 2"), 2);
        for (const char *none : {"Screen", "Screen 00", "screen 0", "", "front"})
            EXPECT_EQ(build.find_screen(&open.panel, none), -1) << none;
        EXPECT_EQ(build.find_screen(&open.panel, nullptr), -1);
        EXPECT_EQ(build.hit(&open.panel, 5, 5), -1) << "nothing is shown yet";
        for (const int none : {-1, 4, INT32_MIN, INT32_MAX})
            EXPECT_EQ(build.show(&open.panel, none), KIV_ERROR_ARGUMENT);
        EXPECT_EQ(open.chip.loads(), 0);
    }
    SOpenPanel open(players().front(), STestPackage::example().toBytes());
    EXPECT_STREQ(kiv_panel_screen_name(&open.panel, 1), "Screen 1");
    EXPECT_EQ(kiv_panel_screen_name(&open.panel, 4), nullptr);
    EXPECT_EQ(kiv_panel_item_id(&open.panel, 7), 32U);
    EXPECT_EQ(kiv_panel_item_name(&open.panel, 8), nullptr);
    EXPECT_EQ(kiv_panel_chip(&open.panel), 0x100U);
    EXPECT_LE(sizeof(kiv_panel), 128U);
    open.bus.wait = nullptr; // whose `show` waits
    EXPECT_EQ(kiv_panel_show(&open.panel, 0), 0);
}

TEST(Panel, HitsTheFrontmostItemUnderThePixel)
{
    struct STouch
    {
        const char *what;
        int x, y;
        int item, behind;
    };
    const STouch touches[] = {
        {"top left pixel of the front box", 10, 10, 0, 1},
        {"bottom right pixel of it", 19, 19, 0, 1},
        {"right of it", 20, 19, 4, -1},
        {"above it", 10, 9, 4, -1},
        {"middle of the diamond", 30, 30, 2, 4},
        {"in the diamond's box, not in it", 24, 24, 4, -1},
        {"its upper corner", 30, 21, 2, 4},
        {"last pixel of the frame", 63, 47, 4, -1},
        {"left of the frame", -1, 10, -1, -1},
        {"below the frame", 10, 48, -1, -1},
        {"far away", INT32_MAX, INT32_MIN, -1, -1},
    };
    STestPackage package = STestPackage::example();
    package.screens[0].items = {
        {1, "box", {160, 160, 320, 160, 320, 320, 160, 320}},
        {5, "its shadow", {160, 160, 320, 160, 320, 320, 160, 320}},
        {2, "diamond", {488, 328, 648, 488, 488, 648, 328, 488}},
        {3, "not to be touched", {}},
        {4, "ground", {-32768, -32768, 32767, -32768, 32767, 32767, -32768, 32767}}};
    for (const player &build : players()) {
        SOpenPanel open(build, package.toBytes());
        ASSERT_EQ(build.show(&open.panel, 0), 0);
        for (const STouch &touch : touches) {
            const int hit = build.hit(&open.panel, touch.x, touch.y);
            EXPECT_EQ(hit, touch.item) << touch.what << ", " << build.compiler;
            EXPECT_EQ(build.hit_behind(&open.panel, touch.x, touch.y, hit), touch.behind)
                << touch.what << ", " << build.compiler;
        }
        ASSERT_EQ(build.show(&open.panel, 1), 0);
        EXPECT_EQ(build.hit(&open.panel, 15, 15), 5)
            << "the shown screen's, counted from the first";
        EXPECT_EQ(build.hit_behind(&open.panel, 15, 15, 1), 5) << "behind one of another screen";
    }
}
