#include "fontfiles/CFontFile.h"
#include "fontfiles/FontInfo.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

using namespace kivemu;

namespace {

const std::string Made = KIV_TEST_FONTS "/";

std::string bytesOf(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A file in the test's own folder.
std::string written(const std::string &name, const std::string &bytes)
{
    std::string path = std::string(std::getenv("TEST_TMPDIR")) + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

} // namespace

TEST(FontInfo, SaysWhatTheFontSays)
{
    for (const char *name : {"variable.ttf", "variable.woff2"}) {
        const SFontInfo info = readFontInfo(Made + name);
        EXPECT_EQ(info.error, "") << name;
        EXPECT_EQ(info.family, "Test Variable");
        EXPECT_EQ(info.style, "Regular");
        EXPECT_EQ(info.licence, "Free\nfor tests");
        EXPECT_EQ(info.licenceUrl, "https://example.org/licence");
        EXPECT_EQ(info.copyright, "\u00A9 The testers");
        EXPECT_EQ(info.embedding, EFontEmbedding::Editable);
        EXPECT_FALSE(info.noSubsetting || info.bitmapOnly);
        EXPECT_EQ(info.glyphCount, 4);
        ASSERT_EQ(info.axes.size(), 2U) << name;
        EXPECT_EQ(info.axes[0].tag + info.axes[0].name, "wghtWeight");
        EXPECT_EQ(info.axes[1].tag + info.axes[1].name, "wdthWidth");
        EXPECT_EQ(info.axes[1].minimum, 75);
        EXPECT_EQ(info.axes[1].standard, 100);
        EXPECT_EQ(info.axes[1].maximum, 125);
    }
    const SFontInfo denied = readFontInfo(Made + "restricted.ttf");
    EXPECT_EQ(denied.error, "");
    EXPECT_EQ(denied.embedding, EFontEmbedding::Restricted);
    EXPECT_TRUE(denied.noSubsetting && denied.bitmapOnly && denied.axes.empty());
    const SFontInfo dejavu = readFontInfo("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    EXPECT_EQ(dejavu.error, "");
    EXPECT_EQ(dejavu.family + '|' + dejavu.style, "DejaVu Sans|Bold");
    EXPECT_GT(dejavu.glyphCount, 5000);
}

TEST(FontInfo, RefusesWhatIsNoUsableFont)
{
    const std::string font = bytesOf(Made + "variable.ttf");
    const std::string packed = bytesOf(Made + "variable.woff2");
    ASSERT_GT(font.size(), 1000U);
    ASSERT_GT(packed.size(), 300U);
    std::string flat = font;
    const size_t head = font.find("head", 12);
    const size_t em =
        (static_cast<uint8_t>(font[head + 10]) << 8 | static_cast<uint8_t>(font[head + 11])) + 18U;
    flat.replace(em, 2, std::string("\0\x01", 2));
    const std::string large = written("large.ttf", font);
    ASSERT_EQ(truncate(large.c_str(), off_t{CFontFile::MaxBytes} + 1), 0);
    const std::string pipe = std::string(std::getenv("TEST_TMPDIR")) + "/pipe.ttf";
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const struct
    {
        std::string path;
        const char *reason;
    } rows[] = {
        {written("empty.ttf", ""), "is no TrueType, OpenType or WOFF2 font"},
        {written("text.ttf", "no font, but a text"), "is no TrueType, OpenType or WOFF2 font"},
        {written("old.woff", "wOFF" + packed.substr(4)), "is no TrueType, OpenType or WOFF2 font"},
        {written("start.ttf", font.substr(0, 100)), "is damaged"},
        {written("start.woff2", packed.substr(0, packed.size() / 2)), "is damaged"},
        {written("flat.ttf", flat), "is damaged"},
        {large, "is larger than 16777216 bytes"},
        {pipe, "is not a regular file"},
        {std::getenv("TEST_TMPDIR"), "is not a regular file"},
        {"/nowhere/font.ttf", "No such file or directory"},
    };
    for (const auto &row : rows) {
        const SFontInfo info = readFontInfo(row.path);
        EXPECT_EQ(info.error, row.reason) << row.path;
        EXPECT_TRUE(info.family.empty() && info.axes.empty() && info.glyphCount == 0);
    }
}
