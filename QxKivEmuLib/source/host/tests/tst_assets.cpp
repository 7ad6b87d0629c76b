#include "CTestFolder.h"
#include "SHostRun.h"
#include "displaylist/FontBlock.h"
#include "executor/BitmapFormats.h"
#include "host/assets/CAssetLoader.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

using kivemu::CAssetLoader;

namespace {

constexpr uint32_t L8 = static_cast<uint32_t>(kivemu::EBitmapFormat::L8);
constexpr uint32_t Paletted565 = static_cast<uint32_t>(kivemu::EBitmapFormat::Paletted565);

using Bytes = std::vector<uint8_t>;

class Assets : public testing::Test
{
protected:
    Assets() : m_loader(256 * 1024) { m_loader.beginFrame(m_folder.path()); }

    /// Address of a bitmap of `format`; -1 when it could not be loaded.
    int64_t load(const std::string &file, uint32_t format, int width, int height)
    {
        kivemu::SLoadedBitmap bitmap{};
        return m_loader.loadBitmap(file, format, width, height, bitmap)
                   ? static_cast<int64_t>(bitmap.source.address)
                   : -1;
    }
    Bytes memory() const
    {
        return {m_loader.memory().data(), m_loader.memory().data() + m_loader.memory().used()};
    }
    void nextFrame()
    {
        m_loader.endFrame();
        m_loader.beginFrame(m_folder.path());
    }
    /// A frame of items with these commands, in the folder; "b.raw" has 64 bytes.
    SHostRun run(kivemu::CLuaHost &host, const std::vector<std::string> &commands)
    {
        m_folder.write("b.raw", Bytes(64, 1));
        CTestModel model;
        model.screen().set("working_directory", m_folder.path());
        for (const std::string &each : commands)
            model.add(each);
        return {host, model};
    }

    CTestFolder m_folder;
    CAssetLoader m_loader;
};

} // namespace

TEST_F(Assets, paletteLiesBesideAndBehind)
{
    m_folder.write("p.raw", Bytes{0, 1, 1, 0});
    m_folder.write("p.lut", Bytes(512, 7));
    kivemu::SLoadedBitmap bitmap{};
    ASSERT_TRUE(m_loader.loadBitmap("p.raw", Paletted565, 2, 2, bitmap)) << m_loader.error();
    EXPECT_EQ(bitmap.source.palette, 4U);
    EXPECT_EQ(m_loader.memory().used(), 4U + 512U);
    m_folder.write("p.lut", Bytes(511, 7));
    EXPECT_EQ(load("p.raw", Paletted565, 2, 2), -1);
    EXPECT_NE(m_loader.error().find("p.lut"), std::string::npos);
}

TEST_F(Assets, equalAssetsAreLoadedOnceHoweverTheyAreSpelled)
{
    m_folder.write("a.raw", Bytes(10, 1));
    m_folder.write("b.raw", Bytes(10, 2));
    EXPECT_EQ(load("a.raw", L8, 5, 2), 0);
    EXPECT_EQ(load("b.raw", L8, 5, 2), 12);
    EXPECT_EQ(load("a.raw", L8, 5, 2), 0);
    EXPECT_EQ(load("./a.raw", L8, 5, 2), 0);
    EXPECT_EQ(load(m_folder.path() + "/a.raw", L8, 5, 2), 0);
    EXPECT_EQ(m_loader.memory().used(), 22U);
    EXPECT_EQ(load("a.raw", L8, 2, 5), 24) << "another shape is another bitmap";
}

TEST_F(Assets, memoryDependsOnlyOnWhatTheFrameAskedFor)
{
    for (int i = 0; i < 5; ++i)
        m_folder.write(std::string(1, static_cast<char>('a' + i)), Bytes(5, uint8_t(i + 1)));
    const auto frame = [&](const std::string &names) {
        for (const char name : names)
            EXPECT_GE(load(std::string(1, name), L8, 5, 1), 0);
        m_loader.endFrame();
        Bytes bytes = memory();
        m_loader.beginFrame(m_folder.path());
        return bytes;
    };
    const char *const frames[] = {"abc", "ab", "", "cba", "abc", "abc", "aebd", "b", "abcde"};
    std::string before;
    for (const char *names : frames) {
        const uint64_t generation = m_loader.memory().generation();
        const Bytes bytes = frame(names);
        EXPECT_TRUE(names != before || generation == m_loader.memory().generation())
            << "memory is left alone while frames ask for the same";
        before = names;
        CAssetLoader fresh(256 * 1024);
        fresh.beginFrame(m_folder.path());
        kivemu::SLoadedBitmap bitmap{};
        for (const char *name = names; *name; ++name)
            EXPECT_TRUE(fresh.loadBitmap(std::string(1, *name), L8, 5, 1, bitmap));
        fresh.endFrame();
        EXPECT_EQ(bytes,
                  Bytes(fresh.memory().data(), fresh.memory().data() + fresh.memory().used()))
            << names;
    }
}

TEST_F(Assets, changedFileIsReadAgain)
{
    m_folder.write("a.raw", Bytes(4, 1));
    load("a.raw", L8, 4, 1);
    nextFrame();
    m_folder.write("a.raw", Bytes(4, 9));
    m_folder.touch("a.raw", 12345);
    load("a.raw", L8, 4, 1);
    EXPECT_EQ(memory(), Bytes(4, 9));
}

TEST_F(Assets, whatCannotBeLoadedIsRefused)
{
    m_folder.write("a.raw", Bytes(10, 1));
    mkdir((m_folder.path() + "/folder").c_str(), 0700);
    mkfifo((m_folder.path() + "/pipe").c_str(), 0600);
    const std::tuple<std::string, int, const char *> cases[] = {
        {"missing.raw", 10, "No such file"},
        {"folder", 10, "not a regular file"},
        {"pipe", 10, "not a regular file"},
        {"/dev/zero", 10, "not a regular file"},
        {"a.raw", 9, "has 10 bytes"},
        {"a.raw", 11, "has 10 bytes"},
        {"", 10, "no file"},
        {std::string("a.raw\0.png", 10), 10, "zero bytes"},
        {"a.raw/x", 10, "Not a directory"},
    };
    for (const auto &[path, width, error] : cases) {
        EXPECT_EQ(load(path, L8, width, 1), -1) << path;
        EXPECT_NE(m_loader.error().find(error), std::string::npos) << path << m_loader.error();
    }
    EXPECT_EQ(load("a.raw", 77, 10, 1), -1);
    // As a photo that the tools take, but no chip draws: the error must tell its true size.
    for (const int width : {0, -5, 2049, 2147483647}) {
        EXPECT_EQ(load("a.raw", L8, width, 1), -1);
        EXPECT_NE(
            m_loader.error().find("2048 pixels a side, not " + std::to_string(width) + " x 1"),
            std::string::npos)
            << m_loader.error();
    }
    EXPECT_EQ(m_loader.memory().used(), 0U);
    m_loader.beginFrame("");
    EXPECT_EQ(load("a.raw", L8, 10, 1), -1);
    EXPECT_NE(m_loader.error().find("working directory"), std::string::npos);
}

TEST_F(Assets, fullMemoryGivesBothNumbersAndKeepsWhatFits)
{
    m_folder.write("large.raw", Bytes(200 * 1024, 1));
    m_folder.write("small.raw", Bytes(1024, 2));
    EXPECT_EQ(load("large.raw", L8, 1024, 200), 0);
    EXPECT_EQ(load("large.raw", L8, 200, 1024), -1);
    EXPECT_EQ(m_loader.error(),
              "RAM_G is full: the screen needs 409600 bytes, the chip has 262144");
    const std::string error = m_loader.error();
    EXPECT_EQ(load("./large.raw", L8, 200, 1024), -1);
    EXPECT_EQ(m_loader.error(), error) << "what is left out counts once too";
    EXPECT_EQ(load("small.raw", L8, 1024, 1), 200 * 1024);
    EXPECT_EQ(load("large.raw", L8, 2048, 2048), -1);
    EXPECT_NE(m_loader.error().find("4604928"), std::string::npos) << m_loader.error();
    EXPECT_EQ(m_loader.bytesNeeded(), 4604928U);
    nextFrame();
    EXPECT_EQ(load("small.raw", L8, 1024, 1), 0);
    EXPECT_EQ(m_loader.bytesNeeded(), 1024U);
}

TEST_F(Assets, fontsLieBehindTheBitmapsAndEqualOnesOnce)
{
    const auto block = [](int advance) {
        return kivemu::writeFontBlock(8, {{0, 0, 0, 0, advance}, {0, 0, 0, 0, 2}});
    };
    m_folder.write("b.raw", Bytes(6, 2));
    uint64_t generation = 0;
    for (int frame = 0; frame < 3; ++frame, nextFrame()) {
        EXPECT_EQ(load("b.raw", L8, 6, 1), 0);
        EXPECT_EQ(m_loader.placeFont("f.ttf", 7, block(frame / 2)), 8U);
        EXPECT_EQ(m_loader.placeFont("g.ttf", 0, block(5)), 48U);
        EXPECT_EQ(m_loader.placeFont("h.ttf", 7, block(frame / 2)), 8U);
        EXPECT_EQ(m_loader.placeFont("i.ttf", 0, Bytes(256 * 1024)), std::nullopt);
        EXPECT_EQ(m_loader.error(),
                  "RAM_G is full: the screen needs 262232 bytes, the chip has 262144");
        EXPECT_EQ(m_loader.bytesNeeded(), 262232U);
        EXPECT_EQ(memory()[8 + 8 + 12], frame / 2) << "the first advance";
        EXPECT_EQ(m_loader.memory().generation() == generation, frame == 1);
        generation = m_loader.memory().generation();
    }
    const std::vector<kivemu::SPlacedAsset> placed = m_loader.placed();
    ASSERT_EQ(placed.size(), 3U);
    EXPECT_EQ(placed[1].file, "f.ttf");
    const kivemu::SPlacedAsset &font = placed[1];
    EXPECT_EQ((std::vector<uint32_t>{font.format, font.width, font.height, font.stride,
                                     font.address, font.bytes, font.paletteBytes}),
              (std::vector<uint32_t>{0x10000, 2, 1, 7, 8, 40, 0}));
}

TEST_F(Assets, scriptGetsTheBitmapAndTheErrorNamesTheItem)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x100), PatientLimits);
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    m_folder.write("a.raw", Bytes(300 * 1024, 1));
    const std::string good =
        "local b = assert(load_bitmap('b.raw', 'RGB565', 8, 4)) "
        "assert(b.width == 8 and b.height == 4 and b.other == nil) bitmap(b, 10, 20)";
    const SHostRun full =
        run(host, {"local b, m = load_bitmap('a.raw', 'L8', 1024, 300) assert(not b and m)", good});
    EXPECT_EQ(full.errors,
              "Kiv_Test_T 1: RAM_G is full: the screen needs 307200 bytes, the chip has 262144");
    EXPECT_TRUE(full.has("BITMAP(160, 320, 128, 64)")) << full.list;
    EXPECT_EQ(host.memory().used(), 64U);
    const std::string errors =
        run(host, {"assert(load_bitmap('gone.raw', 'L8', 4, 4))", good}).errors;
    EXPECT_NE(errors, "");
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 0) << "reported once: " << errors;
}

TEST_F(Assets, bitmapOfAnotherFrameIsRefused)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(host.loadText("local kept\nfunction render(screen, items)\n"
                              "  kept = kept or load_bitmap('b.raw', 'L8', 8, 8)\n"
                              "  bitmap(kept, 0, 0)\nend",
                              "kiv_render.lua"));
    EXPECT_EQ(run(host, {}).errors, "");
    EXPECT_NE(run(host, {}).errors.find("another frame"), std::string::npos);
}

TEST_F(Assets, bitmapsAreScaledTurnedAndRepeated)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    const auto drawn = [&](const std::string &call) {
        const SHostRun result = run(host, {"local b = load_bitmap('b.raw', 'L8', 8, 8) " + call});
        EXPECT_EQ(result.errors, "") << call;
        return result.list;
    };
    const auto has = [&](const std::string &call, const std::string &part) {
        const std::string list = drawn(call);
        EXPECT_NE(list.find(part), std::string::npos) << call << ": " << list;
    };
    EXPECT_EQ(drawn("bitmap(b, 1, 2)").find("BITMAP_TRANSFORM"), std::string::npos);
    has("bitmap(b, 1, 2, {width = 16, height = 4})",
        "BITMAP_TRANSFORM(32768, 0, 0, 0, 131072, 0);BITMAP(16, 32, 256, 64);");
    has("bitmap(b, 1, 2, {width = 24, height = 16, wrap = 'repeat'})", "BITMAP(16, 32, 384, 256);");
    // A quarter turn: the right of the frame is the bitmap's top.
    has("bitmap(b, 0, 0, {angle = 90})",
        "BITMAP_TRANSFORM(0, 65536, 0, -65536, 0, 524288);BITMAP(0, 0, 128, 128);");
    has("rotate(90, 0, 0) bitmap(b, 0, -8)",
        "BITMAP_TRANSFORM(0, 65536, 0, -65536, 0, 524288);BITMAP(0, 0, 128, 128);");
    has("bitmap(b, 0, 0, {filter = 'bilinear'})", "BITMAP_MODE(");
}
