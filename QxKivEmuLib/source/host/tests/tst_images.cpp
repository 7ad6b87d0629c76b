#include "CTestFolder.h"
#include "host/assets/ImageFile.h"
#include "pictures/CAviReader.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<uint8_t>;

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

TEST(Images, signatureAndSuffixMustAgree)
{
    const CTestFolder folder;
    auto files = kivemu::corpus("QxKivEmuLib/fuzz/corpus/images");
    for (auto &[name, bytes] : files)
        bytes.erase(bytes.begin()); // the choice of what is tried
    const Bytes &png = files["plain.png"];
    const Bytes &jpeg = files["plain.jpg"];
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
    Bytes header(56, 0x11);
    std::fill_n(header.begin() + 32, 8, uint8_t{0});
    header[33] = 1; // 256 x 7
    header[36] = 7;
    const auto file = [](const Bytes &contents, int64_t claimed = -1) {
        return chunk("RIFF", textBytes("AVI ") + contents, claimed);
    };
    const auto list = [](const char *type, const Bytes &contents, int64_t claimed = -1) {
        return chunk("LIST", textBytes(type) + contents, claimed);
    };
    const int64_t huge = 0xFFFFFFFF;
    const Bytes avih = chunk("avih", header);
    const Bytes hdrl = list("hdrl", avih + chunk("strl", Bytes(3)));
    const std::tuple<const char *, Bytes, bool> files[] = {
        {"plain", file(hdrl), true},
        {"among others", file(chunk("JUNK", Bytes(3)) + list("INFO", avih) + hdrl), true},
        {"that says 39 bytes", file(list("hdrl", chunk("avih", header, 39))), false},
        {"that says 4 GB", file(list("hdrl", chunk("avih", header, huge))), true},
        {"list of 3 bytes", file(list("hdrl", avih, 3)), false},
        {"all say 4 GB", file(list("hdrl", chunk("avih", header, huge), huge), huge), true},
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
