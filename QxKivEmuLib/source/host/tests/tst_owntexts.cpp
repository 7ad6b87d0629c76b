#include "SHostRun.h"
#include "executor/CExecutor.h"
#include "support/Replay.h"

#include <cmath>
#include <cstdio>
#include <ft2build.h>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H

// Texts in own fonts against two peers: glyphs and places by the program hb-shape, masks by
// FreeType from the file itself.

namespace {

constexpr double Pi = 3.14159265358979323846;
const std::string Noto = "/usr/share/fonts/truetype/noto/Noto";
const std::string DejaVu = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
const std::string Wqy = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";
const std::string Made = KIV_TEST_FONTS "/";

/// What one font draws in one direction, in the order in which it is seen.
struct SPiece
{
    int file;
    const char *script;
    bool isRightToLeft;
    std::u32string text;
};

struct SRow
{
    const char *name;
    std::vector<std::string> files; ///< the font and its fallbacks
    const char *text;
    std::vector<SPiece> pieces;
    std::string size = "24";
    int bits = 8;
    double degrees = 0;
    std::string axes{};
    std::string peerFile{}; ///< of a file that hb-shape cannot read
    std::string errors{};
};

struct SPeerGlyph
{
    int file;
    unsigned glyph;
    double x; ///< 1/64 pixels
    double y;
};

std::string peerFile(const SRow &row, int file)
{
    return row.peerFile.empty() ? row.files[static_cast<size_t>(file)] : row.peerFile;
}

/// What hb-shape makes of a row.
std::vector<SPeerGlyph> shapedByPeer(const SRow &row)
{
    std::vector<SPeerGlyph> glyphs;
    double pen = 0;
    for (const SPiece &piece : row.pieces) {
        std::ostringstream command;
        command << "hb-shape --no-glyph-names --no-clusters --language=und --font-size="
                << std::lround(std::stod(row.size) * 64) << " --script=" << piece.script
                << " --direction=" << (piece.isRightToLeft ? "rtl" : "ltr");
        if (!row.axes.empty())
            command << " --variations=" << row.axes;
        command << " --unicodes=" << std::hex;
        for (const char32_t c : piece.text)
            command << static_cast<uint32_t>(c) << ',';
        command << " '" << peerFile(row, piece.file) << "'";
        const std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen(command.str().c_str(), "r"),
                                                          pclose);
        char output[16384] = {};
        EXPECT_GT(std::fread(output, 1, sizeof output - 1, pipe.get()), 0U) << command.str();
        for (const char *at = output; *at == '[' || *at == '|';) {
            SPeerGlyph glyph{piece.file, 0, pen, 0};
            int length = 0;
            int x = 0;
            int y = 0;
            int advance = 0;
            EXPECT_EQ(std::sscanf(++at, "%u%n", &glyph.glyph, &length), 1) << output;
            at += length;
            if (std::sscanf(at, "@%d,%d%n", &x, &y, &length) == 2)
                at += length;
            EXPECT_EQ(std::sscanf(at, "+%d%n", &advance, &length), 1) << output;
            at += length;
            glyph.x += x;
            glyph.y += y;
            pen += advance;
            glyphs.push_back(glyph);
        }
    }
    return glyphs;
}

/// FreeType's own masks of these glyphs, white on black.
class CPeerFrame
{
public:
    CPeerFrame(int width, int height) : m_width(width), m_height(height)
    {
        m_pixels.assign(static_cast<size_t>(width * height), 0);
        FT_Init_FreeType(&m_library);
    }
    ~CPeerFrame() { FT_Done_FreeType(m_library); }

    void draw(const SRow &row, const SPeerGlyph &glyph, double x, double y)
    {
        FT_Face face = nullptr;
        const std::string path = peerFile(row, glyph.file);
        ASSERT_EQ(FT_New_Face(m_library, path.c_str(), 0, &face), 0);
        FT_Set_Char_Size(face, std::lround(std::stod(row.size) * 64), 0, 72, 72);
        if (!row.axes.empty()) {
            FT_Fixed places[] = {900 << 16, 125 << 16};
            ASSERT_EQ(FT_Set_Var_Design_Coordinates(face, 2, places), 0);
        }
        const double turn = row.degrees * Pi / 180;
        const auto fixed = [](double v) { return std::lround(v * 65536); };
        FT_Matrix matrix{fixed(std::cos(turn)), fixed(std::sin(turn)), fixed(-std::sin(turn)),
                         fixed(std::cos(turn))};
        FT_Set_Transform(face, &matrix, nullptr);
        ASSERT_EQ(FT_Load_Glyph(face, glyph.glyph, FT_LOAD_NO_HINTING | FT_LOAD_RENDER), 0);
        const double across = glyph.x / 64;
        const double up = -glyph.y / 64;
        const auto pixel = [](double v) {
            return (static_cast<int>(std::lround(v * 16)) + 8) >> 4;
        };
        blend(face->glyph->bitmap, row.bits,
              pixel(x + std::cos(turn) * across - std::sin(turn) * up) + face->glyph->bitmap_left,
              pixel(y + std::sin(turn) * across + std::cos(turn) * up) - face->glyph->bitmap_top);
        FT_Done_Face(face);
    }
    std::vector<uint32_t> pixels() const
    {
        std::vector<uint32_t> pixels;
        for (const unsigned level : m_pixels)
            pixels.push_back(0xFF000000U | level * 0x10101U);
        return pixels;
    }

private:
    void blend(const FT_Bitmap &mask, int bits, int left, int top)
    {
        const unsigned most = (1U << bits) - 1;
        for (int y = 0; y < static_cast<int>(mask.rows); ++y) {
            for (int x = 0; x < static_cast<int>(mask.width); ++x) {
                if (left + x < 0 || top + y < 0 || left + x >= m_width || top + y >= m_height)
                    continue;
                unsigned share = mask.buffer[y * mask.pitch + x];
                share = (share * most + 127) / 255 * 255 / most;
                unsigned &pixel = m_pixels[static_cast<size_t>((top + y) * m_width + left + x)];
                pixel = (pixel * (255 - share) + 255 * share + 127) / 255;
            }
        }
    }

    FT_Library m_library = nullptr;
    int m_width;
    int m_height;
    std::vector<unsigned> m_pixels;
};

/// A project's fonts: the row's files at handles 0 and up, the first with all others as fallbacks.
std::string tableOf(const SRow &row)
{
    std::string table;
    std::string fallbacks;
    for (size_t handle = 1; handle < row.files.size(); ++handle)
        fallbacks += (handle > 1 ? "," : "") + std::to_string(handle);
    for (size_t handle = 0; handle < row.files.size(); ++handle) {
        table += std::to_string(handle) + "\tF" + std::to_string(handle) + '\t' +
                 row.files[handle] + '\t' + row.size + '\t' + std::to_string(row.bits) + '\t' +
                 row.axes + '\t';
        table += (handle == 0 ? fallbacks : std::string()) + "\t\n";
    }
    return table;
}

/// One item's commands in a frame with these fonts.
class OwnTexts : public testing::Test
{
protected:
    static constexpr int Width = 400;
    static constexpr int Height = 300;

    SHostRun run(const std::string &fonts, const std::string &commands,
                 const std::string &text = "")
    {
        CTestModel model;
        model.screen().set("fonts", fonts).set("working_directory", "/nowhere");
        model.add(commands).set("caption", text);
        return {m_host, model, Width, Height};
    }
    void SetUp() override { ASSERT_TRUE(m_host.loadText(PlainScript, "render.lua")); }

    kivemu::CLuaHost m_host{kivemu::chipLimits(0x110), PatientLimits};
};

std::vector<SRow> rows()
{
    const std::string sans = Noto + "Sans-Regular.ttf";
    const auto noto = [](const char *script) { return Noto + script + "-Regular.ttf"; };
    std::vector<SRow> all = {
        {"Arabic", {noto("SansArabic")}, u8"مُرحبا لا", {{0, "arab", true, U"مُرحبا لا"}}},
        {"Urdu", {noto("NastaliqUrdu")}, u8"پاکستان میں", {{0, "arab", true, U"پاکستان میں"}}},
        {"Hebrew", {noto("SansHebrew")}, u8"שָׁלוֹם", {{0, "hebr", true, U"שָׁלוֹם"}}},
        {"Hindi",
         {noto("SansDevanagari")},
         u8"क्षत्रिय हिन्दी",
         {{0, "deva", false, U"क्षत्रिय हिन्दी"}}},
        {"Thai", {noto("SansThai")}, u8"กำลังทำน้ำปู่", {{0, "thai", false, U"กำลังทำน้ำปู่"}}},
        {"Chinese", {Wqy}, u8"中文字体", {{0, "hani", false, U"中文字体"}}},
        {"Japanese",
         {Wqy},
         u8"かな漢字",
         {{0, "hira", false, U"かな"}, {0, "hani", false, U"漢字"}}},
        {"Korean", {Wqy}, u8"한글", {{0, "hang", false, U"한글"}}},
        {"Greek", {sans}, u8"Ελλάδα ΆΈ", {{0, "grek", false, U"Ελλάδα ΆΈ"}}},
        {"Cyrillic", {sans}, u8"Привет, ё", {{0, "cyrl", false, U"Привет, ё"}}},
        {"Vietnamese", {sans}, u8"Tiếng Việt", {{0, "latn", false, U"Tiếng Việt"}}},
        {"emoji", {DejaVu}, u8"😀☺", {{0, "zyyy", false, U"😀☺"}}},
        {"combining marks",
         {sans},
         u8"e\u0301\u0323 x\u0307\u0308",
         {{0, "latn", false, U"e\u0301\u0323 x\u0307\u0308"}}},
        {"brackets turn round", {DejaVu}, u8"(שלום)", {{0, "hebr", true, U"(שלום)"}}},
        {"mixed directions",
         {sans, noto("SansHebrew")},
         u8"abc שלום 123 def",
         {{0, "latn", false, U"abc "},
          {0, "hebr", false, U"123"},
          {0, "hebr", true, U" "},
          {1, "hebr", true, U"שלום"},
          {0, "hebr", false, U" "},
          {0, "latn", false, U"def"}}},
        {"another script from a fallback",
         {sans, noto("SansDevanagari")},
         u8"xकिy",
         {{0, "latn", false, U"x"}, {1, "deva", false, U"कि"}, {0, "latn", false, U"y"}}},
        {"a cluster goes whole to one font",
         {sans, DejaVu},
         u8"ax\u20D7b",
         {{0, "latn", false, U"a"}, {1, "latn", false, U"x\u20D7"}, {0, "latn", false, U"b"}}},
        {"what no font has",
         {noto("SansHebrew")},
         u8"ש中",
         {{0, "hani", false, U"中"}, {0, "hebr", true, U"ש"}},
         "24",
         8,
         0,
         "",
         "",
         "Kiv_Test_T 1: font \"F0\" and its fallbacks lack U+4E2D '中'; the font's box is drawn "
         "instead"},
        {"variable",
         {Made + "variable.ttf"},
         "Aa A",
         {{0, "latn", false, U"Aa A"}},
         "40",
         8,
         0,
         "wght=900,wdth=125"},
        {"WOFF2",
         {Made + "variable.woff2"},
         "Aa A",
         {{0, "latn", false, U"Aa A"}},
         "40",
         8,
         33,
         "wght=900,wdth=125",
         Made + "variable.ttf"},
    };
    for (const auto &[size, bits, degrees] : {std::tuple("13.5", 8, 0.0),
                                              {"24", 4, 0.0},
                                              {"24", 2, 0.0},
                                              {"24", 1, 0.0},
                                              {"24", 8, 30.0},
                                              {"24", 4, 90.0},
                                              {"30", 8, 180.0},
                                              {"120", 8, 7.25}})
        all.push_back({"sizes, bits and turns",
                       {sans},
                       u8"Aẫg",
                       {{0, "latn", false, U"Aẫg"}},
                       size,
                       bits,
                       degrees});
    return all;
}

} // namespace

TEST_F(OwnTexts, areWhatThePeersShapeAndDraw)
{
    constexpr double X = 200.25;
    constexpr double Y = 150;
    int inked = 0;
    for (const SRow &row : rows()) {
        const std::string commands =
            "rotate(" + std::to_string(row.degrees) +
            ", 200.25, 150) color('#ffffff') text(200.25, 150, 0, caption)";
        const SHostRun drawn =
            run(tableOf(row), "color('#000000') fill_rect(0, 0, 400, 300) " + commands, row.text);
        EXPECT_EQ(drawn.errors, row.errors) << row.name;
        kivemu::CExecutor executor;
        const kivemu::SFrame frame =
            kivemu::execute(executor, drawn.words, m_host.memory(), Width, Height, 0);
        EXPECT_EQ(frame.errors, std::vector<std::string>()) << row.name;
        CPeerFrame peer(Width, Height);
        for (const SPeerGlyph &glyph : shapedByPeer(row))
            peer.draw(row, glyph, X, Y);
        const kivemu::SFrame expected{peer.pixels(), {}};
        EXPECT_EQ(kivemu::difference(frame, expected, Width), "")
            << row.name << ' ' << row.size << ' ' << row.bits << ' ' << row.degrees;
        inked += expected.pixels != std::vector<uint32_t>(expected.pixels.size(), 0xFF000000U);
    }
    EXPECT_EQ(inked, static_cast<int>(rows().size()));
}

TEST_F(OwnTexts, breakFitAndAlignAsIfDrawnPieceByPiece)
{
    const std::string made = Made + "variable.ttf"; // every letter is 24 wide, the line 32 + 8 high
    const std::string thai = Noto + "SansThai-Regular.ttf";
    const std::string arabic = Noto + "SansArabic-Regular.ttf";
    const struct
    {
        std::string file;
        const char *commands;
        const char *same;
    } cases[] = {
        {made, "text_box(9, 20, 99, 80, 0, 'AAA aaa AAA')",
         "text(9, 52, 0, 'AAA') text(9, 92, 0, 'a...')"},
        {made, "text_box(9, 20, 60, 120, 0, 'AA aa A')",
         "text(9, 52, 0, 'AA') text(9, 92, 0, 'aa') text(9, 132, 0, 'A')"},
        {made, "text_box(9, 20, 60, 80, 0, 'AA  aa', 'right', 'bottom', 30)",
         "text(21, 62, 0, 'AA') text(21, 92, 0, 'aa')"},
        {made, "text_box(9, 20, 50, 120, 0, 'AAAaa')",
         "text(9, 52, 0, 'AA') text(9, 92, 0, 'Aa') text(9, 132, 0, 'a')"},
        {made, "text_box(9, 20, 99, 90, 0, 'A\\na')", "text(9, 52, 0, 'A') text(9, 92, 0, 'a')"},
        {made, "text_box(9, 20, 99, 90, 0, 'A\\na', 'left', 'top', 0, 1)",
         "text(9, 52, 0, 'A...')"},
        {made, "text_box(9, 20, 96, 30, 0, 'AA', 'center', 'middle')",
         "text(57, 49, 0, 'AA', 'center')"}, // capitals of 28 in 30, the line too high for it
        {made, "text(9, 52, 0, text_fit(0, 'AAAAA', 100))", "text(9, 52, 0, 'A...')"},
        {made, "text(9, 52, 0, text_fit(0, 'AAAA', 96))", "text(9, 52, 0, 'AAAA')"},
        {DejaVu,
         "text(9, 52, 0, text_fit(0, 'e\u0301e\u0301e\u0301', text_width(0, 'e\u0301\u2026') + 1))",
         "text(9, 52, 0, 'e\u0301\u2026')"},
        {thai, "text_box(9, 20, text_width(0, 'ภาษา') + 1, 200, 0, 'ภาษาไทยง่าย')",
         "local a, h = 20 + font_ascent(0), font_height(0) text(9, a, 0, 'ภาษา') text(9, a + h, 0, "
         "'ไทย') "
         "text(9, a + 2 * h, 0, 'ง่าย')"},
        {Wqy, "text_box(9, 20, 49, 200, 0, '中文，字')",
         "local a, h = 20 + font_ascent(0), font_height(0) text(9, a, 0, '中') text(9, a + h, 0, "
         "'文，') "
         "text(9, a + 2 * h, 0, '字')"},
        {arabic, "text_box(9, 20, 200, 100, 0, 'مرحبا')",
         "text(209, 20 + font_ascent(0), 0, 'مرحبا', 'right')"},
        {arabic, "text(209, 60, 0, 'مرحبا', 'start')", "text(209, 60, 0, 'مرحبا', 'right')"},
        {made, "text_box(9, 20, 200, 30, 20, 'ROM font')",
         "text(9, 20 + font_ascent(20), 20, 'ROM font')"},
        {made, "text_box(9, 20, text_width(26, 'one two'), 99, 26, 'one two-three four')",
         "local a, h = 20 + font_ascent(26), font_height(26) text(9, a, 26, 'one') text(9, a + h, "
         "26, "
         "text_fit(26, 'two-three', text_width(26, 'one two'))) text(9, a + 2 * h, 26, 'four')"},
    };
    for (const auto &row : cases) {
        const std::string table =
            "0\tF\t" + row.file + (row.file == made ? "\t40" : "\t24") + "\t8\t\t\t";
        EXPECT_EQ(run(table, row.commands).list, run(table, row.same).list) << row.commands;
    }
}

TEST_F(OwnTexts, textsWithoutRoomAreTold)
{
    const std::string fonts = "0\tF\t" + Made + "variable.ttf\t40\t8\t\t\t";
    const std::vector<std::pair<const char *, bool>> cases = {
        {"text_fit(0, 'AAAA', 96)", false},
        {"text_fit(0, 'AAAA', 95) text_fit(0, 'AAAA', 95)", true},
        {"text_fit(0, 'A…', 96)", false},
        {"text_fit(26, 'one two', text_width(26, 'one two'))", false},
        {"text_fit(26, 'one two', 20)", true},
        {"text_box(0, 0, 60, 80, 0, 'AA A')", false},
        {"text_box(0, 0, 60, 80, 0, 'AA A A')", true},
        {"text_box(0, 0, 200, 20, 26, 'one\\ntwo')", true},
    };
    for (const auto &[commands, isCut] : cases) {
        const std::vector<uint32_t> expected(isCut ? 1 : 0, 1);
        EXPECT_EQ(run(fonts, commands, "").cutTexts, expected) << commands;
    }
}

TEST_F(OwnTexts, measuresAreToldAndWhatIsWrongIsReported)
{
    const std::string font = "0\tF\t" + Made + "variable.ttf\t40\t8\t\t\t";
    const struct
    {
        std::string fonts;
        const char *commands;
        std::string errors;
    } cases[] = {
        {font,
         "report(table.concat({font_height(0), font_ascent(0), font_cap_height(0), text_width(0, "
         "'Aa')}, ' '))",
         "Kiv_Test_T 1: 40 32 28 48.0"},
        {font, "local n, whole = text_box(0, 0, 60, 80, 0, 'AA A A') report(n .. tostring(whole))",
         "Kiv_Test_T 1: 2false"},
        {font, "local n, whole = text_box(0, 0, 60, 80, 16, 'a b') report(n .. tostring(whole))",
         "Kiv_Test_T 1: 1true"},
        {font, "report(tostring(is_right_to_left(0, 'ש')) .. tostring(is_right_to_left(16, 'ש')))",
         "Kiv_Test_T 1: truefalse"},
        {font, "text(0, 0, 3, 'A') text(0, 0, 3, 'A')",
         "font 3 is not in the project; ROM font 27 is drawn instead"},
        {"0\tF\tgone.ttf\t24\t8\t\t\t", "text(0, 0, 0, 'A') text(0, 0, 0, 'A')",
         "font \"F\" (gone.ttf): No such file or directory; ROM font 29 is drawn instead"},
        {"0\tF\t/etc/passwd\t100\t8\t\t\t", "report(font_height(0))",
         "Kiv_Test_T 1: 108\nfont \"F\" (/etc/passwd): is no TrueType, OpenType or WOFF2 font; ROM "
         "font 34 is drawn instead"},
        {"0\tF\tx.ttf\t3\t8\t\t\t\n1\tG\tx.ttf\t24\t5\t\t\t\n", "color(0)",
         "line 1 of the project's fonts cannot be read\nline 2 of the project's fonts cannot be "
         "read"},
        {font.substr(0, font.size() - 1) + "7\t", "text(0, 50, 0, 'A')",
         "font \"F\" (" + Made +
             "variable.ttf): font 7 is not in the project; it is no fallback therefore"},
        {font + "A-Ca .-,中", "text(0, 50, 0, 'A')",
         "font \"F\" (" + Made +
             "variable.ttf): of the extra characters, U+0042 is in no font; a box stands for it "
             "and for others like it"},
        {font + "一-龥", "text(0, 50, 0, 'A')",
         "font \"F\" (" + Made +
             "variable.ttf): there are too many extra characters, and some are left out"},
        {"0\tF\t" + Noto + "SansArabic-Regular.ttf\t256\t8\t\t\t", "text(0, 0, 0, '\uFDFD')",
         "font \"F\" (" + Noto +
             "SansArabic-Regular.ttf): a glyph is larger than 512 pixels and is left out"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(run(row.fonts, row.commands).errors, row.errors) << row.commands;
}

TEST_F(OwnTexts, aMissingCharacterIsSeenAlsoInAFontThatShowsNothingForIt)
{
    run("0\tF\t" + Made + "restricted.ttf\t40\t8\t\t\t", "text(9, 52, 0, '中')");
    ASSERT_EQ(m_host.assets().size(), 1U);
    EXPECT_EQ(m_host.assets()[0].bytes, 8U + 16U + 22U * 28U); // a box within its advance
}

TEST_F(OwnTexts, dependOnNothingThatWasDrawnBefore)
{
    const std::string fonts = "0\tF\t" + DejaVu + "\t24\t8\t\t1\t0-74-9\u20AC\n1\tH\t" + Noto +
                              "SansHebrew-Regular.ttf\t24\t4\t\t\t\n";
    const std::string commands =
        "text(9, 50, 0, 'Abc') text(9, 90, 1, 'של') rotate(45, 50, 50) text(9, 50, 0, 'cA')";
    const SHostRun first = run(fonts, commands);
    EXPECT_EQ(first.errors, "");
    const std::vector<uint8_t> memory(m_host.memory().data(),
                                      m_host.memory().data() + m_host.memory().used());
    const std::vector<kivemu::SPlacedAsset> assets = m_host.assets();
    ASSERT_EQ(assets.size(), 3U);
    EXPECT_EQ(assets[0].width, 14U) << "eleven extra characters, then A, b and c";
    EXPECT_EQ(assets[1].width, 2U);
    EXPECT_EQ(assets[2].width, 2U) << "turned ones have no extra characters";
    EXPECT_TRUE(first.has("GLYPH(11, 0);")) << first.list;
    const uint64_t generation = m_host.memory().generation();
    EXPECT_EQ(run(fonts, commands).words, first.words);
    EXPECT_EQ(m_host.memory().generation(), generation) << "equal memory is left alone";
    run(fonts, "text(9, 50, 0, 'zyxwcbA') rotate(45, 50, 50) text(9, 50, 0, 'zA')");
    EXPECT_EQ(run(fonts, commands).words, first.words);
    EXPECT_EQ(std::vector<uint8_t>(m_host.memory().data(),
                                   m_host.memory().data() + m_host.memory().used()),
              memory);
    // A text that is too much ends at the same place, whether its glyphs are at hand or not.
    const std::string endless =
        "for i = 1, 3000 do text(9, 50, 0, 'A' .. i % 7 .. ('b'):rep(40)) end";
    const SHostRun stopped = run(fonts, endless);
    EXPECT_NE(stopped.errors.find("takes too long"), std::string::npos) << stopped.errors;
    EXPECT_EQ(run(fonts, endless).words, stopped.words);
    // What a stopped item used takes no room from the others.
    const std::string large =
        "0\tF\t" + Wqy + "\t256\t8\t\t\t\n1\tG\t" + DejaVu + "\t40\t8\t\t\t\n";
    CTestModel model;
    model.screen().set("fonts", large);
    model.add("text(9, 250, 0, 'A')");
    model.add("text(9, 50, 1, 'x') for i = 0x4E00, 0x9000 do text(9, 250, 0, utf8.char(i)) end");
    model.add("text(9, 250, 0, 'B') text(9, 50, 1, 'yx')");
    const SHostRun between(m_host, model, Width, Height);
    EXPECT_EQ(between.errors.find("Kiv_Test_T 2: line 1: stopped"), 0U) << between.errors;
    EXPECT_EQ(between.errors.find('\n'), std::string::npos) << between.errors;
    ASSERT_EQ(m_host.assets().size(), 2U);
    EXPECT_EQ(m_host.assets()[0].width, 2U);
    EXPECT_EQ(m_host.assets()[1].width, 2U);
    const SHostRun many =
        run("0\tF\t" + Wqy + "\t40\t1\t\t\t\u4E00-\u5DFF\n", "text(9, 250, 0, 'A')");
    EXPECT_EQ(many.errors, "") << "extra characters are no work of the item's";
    const SHostRun full =
        run("0\tF\t" + Wqy + "\t256\t8\t\t\t\u4E00-\u4E60\n", "text(9, 250, 0, 'A')");
    EXPECT_EQ(full.errors.find("RAM_G is full: the screen needs "), 0U) << full.errors;
}
