#include "CTestFolder.h"
#include "host/assets/ImageFile.h"
#include "pictures/CAviReader.h"
#include "pictures/PictureReading.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <jpeglib.h>
#include <malloc.h>
#include <png.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

using kivemu::EImageFile;

namespace {

using Bytes = std::vector<uint8_t>;

Bytes rgbRow(uint32_t width, uint32_t colour)
{
    Bytes row;
    for (uint32_t x = 0; x < width; ++x) {
        for (const int shift : {16, 8, 0})
            row.push_back(static_cast<uint8_t>(colour >> shift));
    }
    return row;
}

/// A picture of a single colour, as a file.
Bytes makePng(uint32_t width, uint32_t height, uint32_t colour)
{
    const Bytes row = rgbRow(width, colour);
    Bytes pixels;
    for (uint32_t y = 0; y < height; ++y)
        pixels.insert(pixels.end(), row.begin(), row.end());
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, pixels.data(), 0, nullptr);
    Bytes bytes(size);
    png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
    bytes.resize(size);
    return bytes;
}

Bytes makeJpeg(uint32_t width, uint32_t height, uint32_t colour, bool progressive = false)
{
    jpeg_compress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = width;
    jpeg.image_height = height;
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 95, TRUE);
    if (progressive) {
        jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;
        jpeg_simple_progression(&jpeg);
    }
    jpeg_start_compress(&jpeg, TRUE);
    Bytes row = rgbRow(width, colour);
    for (uint32_t y = 0; y < height; ++y) {
        JSAMPROW rows[1] = {row.data()};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    Bytes result(bytes, bytes + size);
    jpeg_destroy_compress(&jpeg);
    std::free(bytes);
    return result;
}

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

/// Takes a place in a PNG file, behind the head.
void insertChunk(Bytes &png, const std::string &name, const Bytes &contents)
{
    constexpr int64_t BehindHead = 33;
    const Bytes body = textBytes(name) + contents;
    Bytes all;
    const auto add = [&all](uint32_t number) {
        for (const int shift : {24, 16, 8, 0})
            all.push_back(static_cast<uint8_t>(number >> shift));
    };
    add(static_cast<uint32_t>(contents.size()));
    all = all + body;
    add(static_cast<uint32_t>(crc32(0, body.data(), static_cast<uInt>(body.size()))));
    png.insert(png.begin() + BehindHead, all.begin(), all.end());
}

/// Chunks of some kilobytes, of which each unpacks to nearly as much as libpng lets a chunk hold.
Bytes pngWithBombs(const std::string &name, const Bytes &start, int times)
{
    const Bytes same(7'900'000, 'a');
    uLongf size = compressBound(same.size());
    Bytes packed(size);
    compress(packed.data(), &size, same.data(), same.size());
    packed.resize(size);
    Bytes png = makePng(8, 8, 0xFF0000);
    for (int i = 0; i < times; ++i)
        insertChunk(png, name, start + packed);
    return png;
}

/// Bytes of address space: "VmSize" now, "VmPeak" the most so far.
uint64_t memoryInUse(const std::string &kind)
{
    std::ifstream status("/proc/self/status");
    uint64_t kilobytes = 0;
    for (std::string word; status >> word;) {
        if (word == kind + ':')
            status >> kilobytes;
    }
    return kilobytes * 1024;
}

/// Does the work in a process of its own; true when it says so and never took more than `bytes`.
/// Decoders may live on without memory that they do not get, so the limit lies above.
template<typename Work>
bool isDoneWithin(uint64_t bytes, const Work &work)
{
    mallopt(M_MMAP_THRESHOLD, 1 << 16); // what is taken is seen, and given back
    malloc_trim(0);
    const pid_t child = fork();
    if (child == 0) {
        const uint64_t before = memoryInUse("VmSize");
        const uint64_t spare = uint64_t{1} << 30;
        const rlimit limit = {before + bytes + spare, before + bytes + spare};
        setrlimit(RLIMIT_AS, &limit);
        try {
            const bool isDone = work();
            _exit(isDone && memoryInUse("VmPeak") <= before + bytes ? 0 : 1);
        } catch (const std::bad_alloc &) {
            _exit(2);
        }
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
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
    const std::pair<uint32_t, int> cases[] = {{0xFF0000, 76},  {0x00FF00, 150}, {0x0000FF, 29},
                                              {0xFFFFFF, 255}, {0x000000, 0},   {0x808080, 128},
                                              {0x204060, 58},  {0xFFA000, 170}};
    for (const auto &[colour, grey] : cases) {
        kivemu::SDecodedImage image;
        ASSERT_EQ(decode(EImageFile::Png, makePng(9, 8, colour), true, image), "");
        ASSERT_EQ(image.pixels.size(), 72U);
        EXPECT_NEAR(image.pixels[30], grey, 1) << std::hex << colour;
        ASSERT_EQ(decode(EImageFile::Jpeg, makeJpeg(9, 8, colour), true, image), "");
        EXPECT_NEAR(image.pixels[30], grey, 2) << std::hex << colour;
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

// What a file holds besides its pixels costs nothing, and a picture no more than its size allows.
TEST(Images, memoryIsBoundBySize)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers take terabytes of address space";
#endif
    const auto named = [](std::string start) { return textBytes(start + '\0' + '\0'); };
    const std::tuple<const char *, EImageFile, uint64_t, Bytes> files[] = {
        {"text", EImageFile::Png, 64, pngWithBombs("zTXt", named("Comment"), 40)},
        {"international text", EImageFile::Png, 64,
         pngWithBombs("iTXt", textBytes(std::string("Comment\0\1\0\0\0", 12)), 40)},
        {"profile", EImageFile::Png, 64, pngWithBombs("iCCP", named("Profile"), 1)},
        {"full size", EImageFile::Png, 2048 * 2048, makePng(2048, 2048, 0xFF0000)},
        {"all of it at once", EImageFile::Jpeg, 2048 * 2048, makeJpeg(2048, 2048, 0xFF0000, true)},
    };
    for (const auto &[name, kind, pixels, bytes] : files) {
        EXPECT_TRUE(isDoneWithin(kivemu::memoryOfPicture(pixels), [kind = kind, &bytes = bytes] {
            kivemu::SDecodedImage image;
            return decode(kind, bytes, false, image, 1 << 23).empty() &&
                   pixel565(image, 3, 3) >> 11 == 0x1F;
        })) << name;
    }
}

TEST(AviReader, findsTheFirstJpegAndBelievesNoSize)
{
    const Bytes jpeg = {0xFF, 0xD8, 0xFF, 0xE0, 1, 2, 3};
    const Bytes frame = chunk("00dc", jpeg);
    const std::tuple<const char *, Bytes, int> files[] = {
        // size of the frame; -1: none

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
    for (const auto &[name, bytes, size] : files) {
        kivemu::CAviReader reader(bytes.data(), bytes.size());
        ASSERT_EQ(reader.findFirstFrame(), size >= 0) << name;
        EXPECT_EQ(reader.error().empty(), size >= 0) << name;
        if (size >= 0) {
            EXPECT_EQ(reader.frameSize(), static_cast<size_t>(size)) << name;
            EXPECT_EQ(reader.frame()[1], 0xD8) << name;
        }
    }
    Bytes nested = frame;
    for (int i = 0; i < 1000; ++i)
        nested = chunk("LIST", textBytes("rec ") + nested);
    const Bytes deep = avi(nested);
    kivemu::CAviReader reader(deep.data(), deep.size());
    EXPECT_FALSE(reader.findFirstFrame());
}

TEST(AviReader, readsTheFrameSizeOfTheHeaderAndBelievesNoSize)
{
    const auto header = [](size_t bytes) {
        Bytes all(100, 0x11);
        std::fill_n(all.begin() + 32, 8, uint8_t{0});
        all[33] = 1; // 256 x 7
        all[36] = 7;
        all.resize(bytes);
        return all;
    };
    const auto file = [](const Bytes &contents, int64_t claimed = -1) {
        return chunk("RIFF", textBytes("AVI ") + contents, claimed);
    };
    const auto list = [](const char *type, const Bytes &contents, int64_t claimed = -1) {
        return chunk("LIST", textBytes(type) + contents, claimed);
    };
    const int64_t huge = 0xFFFFFFFF;
    const Bytes avih = chunk("avih", header(56));
    const Bytes hdrl = list("hdrl", avih + chunk("strl", Bytes(3)));
    const std::tuple<const char *, Bytes, bool> files[] = {
        {"plain", file(hdrl), true},
        {"among others", file(chunk("JUNK", Bytes(3)) + list("INFO", avih) + hdrl), true},
        {"of 40 bytes", file(list("hdrl", chunk("avih", header(40)))), true},
        {"of 39 bytes", file(list("hdrl", chunk("avih", header(39)))), false},
        {"that says 39 bytes", file(list("hdrl", chunk("avih", header(56), 39))), false},
        {"that says 4 GB", file(list("hdrl", chunk("avih", header(56), huge))), true},
        {"list of 40 bytes", file(list("hdrl", avih, 40)), false},
        {"list of 3 bytes", file(list("hdrl", avih, 3)), false},
        {"all say 4 GB", file(list("hdrl", chunk("avih", header(56), huge), huge), huge), true},
        {"outside of its list", file(list("hdrl", Bytes()) + avih), false},
        {"in a list within", file(list("hdrl", list("strl", avih))), false},
        {"no list", file(chunk("hdrl", avih)), false},
        {"not AVI", chunk("RIFF", textBytes("avi ") + hdrl), false},
    };
    const auto isRead = [](const Bytes &bytes) {
        uint32_t width = 1;
        uint32_t height = 2;
        const bool isFound =
            kivemu::CAviReader(bytes.data(), bytes.size()).readFrameSize(width, height);
        EXPECT_EQ(width, isFound ? 256U : 1U);
        EXPECT_EQ(height, isFound ? 7U : 2U);
        return isFound;
    };
    for (const auto &[name, bytes, expected] : files)
        EXPECT_EQ(isRead(bytes), expected) << name;
    const Bytes whole = file(hdrl);
    const size_t needed = 8 + 4 + 8 + 4 + 8 + 40; // RIFF, its form, LIST, its type, avih, 40 bytes
    for (size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(isRead(Bytes(whole.begin(), whole.begin() + static_cast<int64_t>(length))),
                  length >= needed);
}
