#include "CTestFolder.h"
#include "SHostRun.h"
#include "executor/BitmapFormats.h"
#include "host/CAssetLoader.h"
#include "host/CAviReader.h"
#include "host/ImageFile.h"
#include "host/LuaColour.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <png.h>
#include <sys/stat.h>

using kivemu::CAssetLoader;
using kivemu::EImageFile;

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

    CTestFolder m_folder;
    CAssetLoader m_loader;
};

} // namespace

TEST_F(Assets, bitmapLiesInTheMemoryAsItIsInTheFile)
{
    const Bytes pixels = {1, 2, 3, 4, 5, 6};
    m_folder.write("a.raw", pixels);
    kivemu::SLoadedBitmap bitmap{};
    ASSERT_TRUE(m_loader.loadBitmap("a.raw", L8, 3, 2, bitmap)) << m_loader.error();
    EXPECT_EQ(memory(), pixels);
    EXPECT_EQ(bitmap.source.address, 0U);
    EXPECT_EQ(bitmap.source.stride, 3U);
    EXPECT_EQ(bitmap.source.width, 3);
    EXPECT_EQ(bitmap.source.height, 2);
}

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

TEST_F(Assets, memoryIsLeftAloneWhileAFrameAsksForTheSame)
{
    m_folder.write("a.raw", Bytes(8, 1));
    m_folder.write("b.raw", Bytes(8, 2));
    load("a.raw", L8, 8, 1);
    load("b.raw", L8, 8, 1);
    const Bytes both = memory();
    const uint64_t generation = m_loader.memory().generation();
    nextFrame();
    EXPECT_EQ(load("a.raw", L8, 8, 1), 0);
    EXPECT_EQ(load("b.raw", L8, 8, 1), 8);
    nextFrame();
    EXPECT_EQ(m_loader.memory().generation(), generation);
    EXPECT_EQ(memory(), both);
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
    const char *const frames[] = {"abc", "ab", "", "cba", "abc", "aebd", "b", "abcde", "abc"};
    std::map<std::string, Bytes> seen;
    for (const char *names : frames) {
        const Bytes bytes = frame(names);
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
    const struct
    {
        std::string path;
        int width;
        const char *error;
    } cases[] = {
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
    for (const auto &c : cases) {
        EXPECT_EQ(load(c.path, L8, c.width, 1), -1) << c.path;
        EXPECT_NE(m_loader.error().find(c.error), std::string::npos) << c.path << m_loader.error();
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
}

TEST_F(Assets, scriptGetsTheBitmapAndTheErrorNamesTheItem)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x100), PatientLimits);
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    m_folder.write("a.raw", Bytes(300 * 1024, 1));
    m_folder.write("b.raw", Bytes(64, 1));
    CTestModel model;
    model.screen().set("working_directory", m_folder.path());
    model.add("local b, m = load_bitmap('a.raw', 'L8', 1024, 300) assert(not b and m)");
    model.add("local b = assert(load_bitmap('b.raw', 'RGB565', 8, 4)) "
              "assert(b.width == 8 and b.height == 4 and b.other == nil) bitmap(b, 10, 20)");
    const SHostRun run(host, model);
    EXPECT_EQ(run.errors,
              "Kiv_Test_T 1: RAM_G is full: the screen needs 307200 bytes, the chip has 262144");
    EXPECT_TRUE(run.has("BITMAP(160, 320, 128, 64)")) << run.list;
    EXPECT_EQ(host.memory().used(), 64U);
    model.item(0).commands = "assert(load_bitmap('gone.raw', 'L8', 4, 4))";
    const std::string errors = SHostRun(host, model).errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 0) << "reported once: " << errors;
}

TEST_F(Assets, bitmapOfAnotherFrameIsRefused)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(host.loadText("local kept\nfunction render(screen, items)\n"
                              "  kept = kept or load_bitmap('b.raw', 'L8', 8, 8)\n"
                              "  bitmap(kept, 0, 0)\nend",
                              "kiv_render.lua"));
    m_folder.write("b.raw", Bytes(64, 1));
    CTestModel model;
    model.screen().set("working_directory", m_folder.path());
    EXPECT_EQ(SHostRun(host, model).errors, "");
    EXPECT_NE(SHostRun(host, model).errors.find("another frame"), std::string::npos);
}

TEST_F(Assets, bitmapsAreScaledTurnedAndRepeated)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    m_folder.write("b.raw", Bytes(64, 1));
    const auto drawn = [&](const std::string &call) {
        CTestModel model;
        model.screen().set("working_directory", m_folder.path());
        model.add("local b = load_bitmap('b.raw', 'L8', 8, 8) " + call);
        const SHostRun run(host, model);
        EXPECT_EQ(run.errors, "") << call;
        return run.list;
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

// Pictures

namespace {

std::string decode(EImageFile kind, const Bytes &bytes, bool mono, kivemu::SDecodedImage &image,
                   size_t budget = 1 << 20)
{
    return kivemu::decodeImage(kind, bytes.data(), bytes.size(), mono, budget, image);
}

uint16_t pixel565(const kivemu::SDecodedImage &image, int x, int y)
{
    const auto at = static_cast<size_t>(y * image.width + x) * 2;
    return static_cast<uint16_t>(image.pixels[at] | image.pixels[at + 1] << 8);
}

Bytes chunk(const std::string &id, const Bytes &contents, int64_t claimed = -1)
{
    Bytes bytes(id.begin(), id.end());
    const auto size = static_cast<uint32_t>(claimed < 0 ? int64_t(contents.size()) : claimed);
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<uint8_t>(size >> shift));
    bytes.insert(bytes.end(), contents.begin(), contents.end());
    if (contents.size() % 2)
        bytes.push_back(0);
    return bytes;
}

Bytes operator+(Bytes a, const Bytes &b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Bytes textBytes(const std::string &text)
{
    return {text.begin(), text.end()};
}

Bytes avi(const Bytes &movie, int64_t claimed = -1)
{
    return chunk("RIFF",
                 textBytes("AVI ") + chunk("LIST", textBytes("hdrl") + chunk("avih", Bytes(57))) +
                     chunk("JUNK", Bytes(3)) + chunk("LIST", textBytes("movi") + movie, claimed));
}

} // namespace

TEST(Images, pngAndJpegBecomeRgb565OrGrey)
{
    const Bytes png = makePng(5, 3, 0xFF0000);
    kivemu::SDecodedImage image;
    ASSERT_EQ(decode(EImageFile::Png, png, false, image), "");
    EXPECT_EQ(image.width, 5);
    EXPECT_EQ(image.height, 3);
    ASSERT_EQ(image.pixels.size(), 30U);
    EXPECT_EQ(pixel565(image, 4, 2), 0xF800);
    const Bytes jpeg = makeJpeg(16, 8, 0x0000FF);
    ASSERT_EQ(decode(EImageFile::Jpeg, jpeg, false, image), "");
    ASSERT_EQ(image.pixels.size(), 256U);
    EXPECT_NEAR(pixel565(image, 3, 3) & 0x1F, 0x1F, 1);
    EXPECT_NEAR(pixel565(image, 3, 3) >> 11, 0, 1);
    ASSERT_EQ(decode(EImageFile::Jpeg, makeJpeg(16, 8, 0x808080), true, image), "");
    ASSERT_EQ(image.pixels.size(), 128U);
    EXPECT_NEAR(image.pixels[64], 0x80, 2);
    ASSERT_EQ(
        decode(EImageFile::Avi, avi(chunk("01wb", Bytes(5)) + chunk("00dc", jpeg)), false, image),
        "");
    EXPECT_EQ(image.width, 16);
}

// By the weights of JPEG and of the converted luminance formats: the same photo is as bright in any
// file.
TEST(Images, greyIsTheSameFromEveryKindOfFile)
{
    const struct
    {
        uint32_t colour;
        int grey;
    } cases[] = {{0xFF0000, 76}, {0x00FF00, 150}, {0x0000FF, 29}, {0xFFFFFF, 255},
                 {0x000000, 0},  {0x808080, 128}, {0x204060, 58}, {0xFFA000, 170}};
    for (const auto &c : cases) {
        kivemu::SDecodedImage image;
        ASSERT_EQ(decode(EImageFile::Png, makePng(9, 8, c.colour), true, image), "");
        ASSERT_EQ(image.pixels.size(), 72U);
        EXPECT_NEAR(image.pixels[30], c.grey, 1) << std::hex << c.colour;
        ASSERT_EQ(decode(EImageFile::Jpeg, makeJpeg(9, 8, c.colour), true, image), "");
        EXPECT_NEAR(image.pixels[30], c.grey, 2) << std::hex << c.colour;
    }
}

// As the chip blends: half of white is grey of half the code, not of half the light.
TEST(Images, translucentPixelsLieOverBlack)
{
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    png.width = 3;
    png.height = 1;
    png.format = PNG_FORMAT_RGBA;
    const Bytes pixels = {255, 255, 255, 128, 0, 255, 0, 64, 255, 0, 0, 0};
    Bytes bytes(1000);
    png_alloc_size_t size = bytes.size();
    ASSERT_TRUE(png_image_write_to_memory(&png, bytes.data(), &size, 0, pixels.data(), 0, nullptr));
    kivemu::SDecodedImage image;
    ASSERT_EQ(decode(EImageFile::Png, bytes, false, image), "");
    EXPECT_EQ(pixel565(image, 0, 0), 0x8410);
    EXPECT_EQ(pixel565(image, 1, 0), 0x0200);
    EXPECT_EQ(pixel565(image, 2, 0), 0);
    ASSERT_EQ(decode(EImageFile::Png, bytes, true, image), "");
    EXPECT_EQ(image.pixels, (Bytes{128, 38, 0}));
}

TEST(Images, sizeIsAskedBeforeDecoding)
{
    kivemu::SDecodedImage image;
    EXPECT_NE(decode(EImageFile::Png, makePng(2049, 2, 0), false, image), "");
    EXPECT_TRUE(image.pixels.empty());
    EXPECT_NE(decode(EImageFile::Png, makePng(100, 100, 0), false, image, 19999), "");
    EXPECT_EQ(image.neededBytes, 20000U);
    EXPECT_TRUE(image.pixels.empty());
    EXPECT_EQ(decode(EImageFile::Png, makePng(100, 100, 0), true, image, 19999), "");
    EXPECT_NE(decode(EImageFile::Jpeg, makeJpeg(100, 100, 0), false, image, 19999), "");
    EXPECT_EQ(decode(EImageFile::Jpeg, makeJpeg(100, 100, 0), false, image, 20000), "");
}

TEST(Images, signatureAndSuffixMustAgree)
{
    const CTestFolder folder;
    const Bytes png = makePng(2, 2, 0);
    const Bytes jpeg = makeJpeg(8, 8, 0);
    for (const char *name : {"a.png", "A.PNG"})
        folder.write(name, png);
    for (const char *name : {"a.jpg", "a.gif", "a", "a.avi", "png"})
        folder.write(name, png);
    folder.write("b.jpeg", jpeg);
    folder.write("b.png", jpeg);
    const auto problem = [&](const std::string &name) {
        kivemu::SDecodedImage image;
        return kivemu::decodeImageFile(folder.path() + '/' + name, false, 1 << 20, image);
    };
    for (const char *name : {"a.png", "A.PNG", "b.jpeg"})
        EXPECT_EQ(problem(name), "");
    for (const char *name : {"a.jpg", "a.gif", "a", "a.avi", "png", "b.png", "none.png"})
        EXPECT_NE(problem(name), "") << name;
}

TEST(Images, everyTruncationIsAnErrorOrAPicture)
{
    const Bytes png = makePng(9, 9, 0x123456);
    const Bytes jpeg = makeJpeg(24, 24, 0x123456);
    const struct
    {
        EImageFile kind;
        Bytes bytes;
    } files[] = {{EImageFile::Png, png},
                 {EImageFile::Jpeg, jpeg},
                 {EImageFile::Avi, avi(chunk("00db", jpeg))}};
    for (const auto &file : files) {
        for (size_t length = 0; length < file.bytes.size(); ++length) {
            const Bytes cut(file.bytes.begin(), file.bytes.begin() + static_cast<int64_t>(length));
            kivemu::SDecodedImage image;
            const std::string problem = decode(file.kind, cut, false, image);
            const auto whole = static_cast<size_t>(image.width * image.height * 2);
            EXPECT_TRUE(!problem.empty() || image.pixels.size() == whole) << length;
        }
    }
}

TEST(AviReader, findsTheFirstJpegAndBelievesNoSize)
{
    const Bytes jpeg = {0xFF, 0xD8, 0xFF, 0xE0, 1, 2, 3};
    const Bytes frame = chunk("00dc", jpeg);
    const struct
    {
        const char *name;
        Bytes bytes;
        int size; ///< of the frame; -1: none
    } files[] = {
        {"plain", avi(frame), 7},
        {"odd chunk before", avi(chunk("00wb", Bytes(5)) + frame), 7},
        {"record list", avi(chunk("LIST", textBytes("rec ") + frame)), 7},
        {"other codec first", avi(chunk("00dc", Bytes(8)) + frame), 7},
        {"empty frame first", avi(chunk("00dc", {}) + frame), 7},
        {"frame claims too much", avi(chunk("00dc", jpeg, 0xFFFFFFFF)), 7 + 1},
        {"list claims too much", avi(frame, 0x7FFFFFFF), 7},
        {"list claims nothing", avi(frame, 0), -1},
        {"no movie", chunk("RIFF", textBytes("AVI ")), -1},
        {"no frame", avi(chunk("01wb", jpeg)), -1},
        {"not AVI", chunk("RIFF", textBytes("WAVE") + frame), -1},
        {"empty", {}, -1},
        {"header only", textBytes("RIFF"), -1},
    };
    for (const auto &file : files) {
        kivemu::CAviReader reader(file.bytes.data(), file.bytes.size());
        ASSERT_EQ(reader.findFirstFrame(), file.size >= 0) << file.name;
        EXPECT_EQ(reader.error().empty(), file.size >= 0) << file.name;
        if (file.size >= 0) {
            EXPECT_EQ(reader.frameSize(), static_cast<size_t>(file.size)) << file.name;
            EXPECT_EQ(reader.frame()[1], 0xD8) << file.name;
        }
    }
    Bytes nested = frame;
    for (int i = 0; i < 1000; ++i)
        nested = chunk("LIST", textBytes("rec ") + nested);
    const Bytes deep = avi(nested);
    kivemu::CAviReader reader(deep.data(), deep.size());
    EXPECT_FALSE(reader.findFirstFrame());
}
