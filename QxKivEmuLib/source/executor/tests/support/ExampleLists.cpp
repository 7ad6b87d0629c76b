#include "ExampleLists.h"

#include "displaylist/CDisplayListWriter.h"
#include "displaylist/DisplayListText.h"
#include "executor/BitmapFormats.h"

#include <cmath>

namespace kivemu {

namespace {

constexpr size_t DisplayListBytes = 32768;
constexpr size_t MemoryBytes = 262144;

SExample finished(const char *name, CDisplayListWriter &writer, CRamG memory)
{
    writer.finish();
    return {name, writer.words(), std::move(memory)};
}

// Shapes; texts, one of them clipped at both sides; and states within states.
const std::pair<const char *, const char *> Texts[] = {
    {"shapes", R"(
    CLEAR(0x203040); ITEM(1); GRADIENT(0, 0, 2560, 960, 0, 5760, 0xff24476b, 0xff0b1622);
    GRADIENT(1600, 1120, 645, 489, 100, 1920, 0x80ff0000, 0xff00ff00); ITEM(2);
    COLOR(0xff8000); DISC(323, 327, 150); COLOR(0xffffff); ALPHA(96); DISC(480, 400, 200);
    ITEM(3); LINE_WIDTH(40); LINE(80, 1600, 1124, 969); BLEND(0);
    FILL_RECT(965, 163, 800, 480, 90); BLEND(1); LINE_WIDTH(24); COLOR(0x9fc3e6); ALPHA(255);
    STROKE_RECT(965, 163, 800, 480, 90); ITEM(4); ARC(2080, 480, 320, 8960, 16640, 0);
    ARC(2080, 480, 192, 0, -6400, 1); END();)"},
    {"texts", R"(
    ITEM(21); COLOR(0xd0e4ff); ALPHA(144); TEXT(80, 224, 16); CHARS("Tan"); CHARS("k 4");
    CHARS("2 \xb0"); CHARS("C\x3b "); CHARS("\x22\x5c"); TEXT(84, 640, 20); CHARS("Tan");
    CHARS("k 4"); CHARS("2 \xb0"); CHARS("C\x3b "); CHARS("\x22\x5c"); COLOR(0xffffff);
    ALPHA(255); TEXT(90, 1056, 26); CHARS("Tan"); CHARS("k 4"); CHARS("2 \xb0");
    CHARS("C\x3b "); CHARS("\x22\x5c"); COLOR(0xd0e4ff); ALPHA(144); TEXT(92, 1472, 28);
    CHARS("Tan"); CHARS("k 4"); CHARS("2 \xb0"); CHARS("C\x3b "); CHARS("\x22\x5c");
    TEXT(-100, 1760, 34); CHARS("cli"); CHARS("ppe"); CHARS("d a"); CHARS("t b");
    CHARS("oth"); CHARS(" si"); CHARS("des"); END();)"},
    {"states", R"(
    CLEAR(0x102030); SAVE(); SCISSOR(20, 10, 90, 70); COLOR(0xff0000);
    FILL_RECT(0, 0, 2560, 1920, 0); SAVE(); SCISSOR(40, 30, 200, 20); COLOR(0x00ff00);
    ALPHA(128); BLEND(0); DISC(960, 640, 480); TEXT(480, 768, 30); CHARS("cli"); CHARS("p");
    RESTORE(); DISC(1440, 1280, 480); CLEAR(0x0000ff); RESTORE(); SCISSOR(-5, 100, 50, 1000);
    DISC(320, 1600, 480); END();)"},
};

SExample paths()
{
    CDisplayListWriter writer(DisplayListBytes);
    std::vector<SPoint> star;
    std::vector<SPoint> plot;
    for (int i = 0; i < 10; ++i) {
        const double angle = i * 0.6283185307179586;
        const double radius = (i % 2 ? 20 : 45) * 16;
        star.push_back({static_cast<Sub16>(80 * 16 + radius * std::cos(angle)),
                        static_cast<Sub16>(60 * 16 + radius * std::sin(angle))});
    }
    for (int i = 0; i < 40; ++i)
        plot.push_back({i * 64, static_cast<Sub16>(900 + 500 * std::sin(i * 0.5))});
    writer.clear(0xFF000000);
    writer.item(11);
    writer.setColour(0xC02E8B57);
    writer.polygon(star.data(), star.size());
    writer.setColour(0x80FFD75F);
    writer.setLineWidth(32);
    writer.polyline(plot.data(), plot.size(), false);
    writer.setLineWidth(9);
    writer.polyline(star.data(), star.size(), true);
    // A self-crossing shape that reaches far outside.
    const SPoint far[] = {{-30000, -20000}, {30000, 20000}, {30000, -20000}, {-30000, 20000}};
    writer.setColour(0x40FF00FF);
    writer.polygon(far, 4);
    return finished("paths", writer, CRamG(MemoryBytes));
}

SExample bitmaps()
{
    CDisplayListWriter writer(DisplayListBytes);
    CRamG memory(MemoryBytes);
    writer.clear(0xFF404040);
    int index = 0;
    for (const char *name :
         {"ARGB1555", "L1", "L2", "L4", "L8", "RGB332", "ARGB2", "ARGB4", "RGB565", "PALETTED",
          "PALETTED8", "PALETTED565", "PALETTED4444", "DXT1"}) {
        constexpr int Side = 18;
        const auto format = static_cast<uint32_t>(bitmapFormatCode(name));
        std::vector<uint8_t> bytes(bitmapSize(format, Side, Side) + paletteSize(format));
        for (size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<uint8_t>(i * i / 7 + i * 37);
        const uint32_t address = memory.append(bytes.data(), bytes.size()).value_or(0);
        SBitmapPlacement place;
        place.topLeft = {(index % 5 * 32 + 2) * 16, (index / 5 * 40 + 2) * 16};
        place.size = {28 * 16, 36 * 16};
        place.filter = index % 2 ? EBitmapFilter::Bilinear : EBitmapFilter::Nearest;
        place.wrapX = index % 3 ? EBitmapWrap::Repeat : EBitmapWrap::Border;
        place.wrapY = index % 4 ? EBitmapWrap::Repeat : EBitmapWrap::Border;
        if (index % 5 > 1) {
            place.a = 50000 - 4000 * index;
            place.b = 3000 * index;
            place.d = -2000 * index;
            place.f = 65536 * 5;
        }
        ++index;
        writer.item(static_cast<uint32_t>(30 + index));
        writer.setColour(index % 3 ? 0xFFFFFFFF : 0xA0FF8040);
        writer.bitmap({address, format, bitmapStride(format, Side), Side, Side,
                       address + static_cast<uint32_t>(bitmapSize(format, Side, Side))},
                      place);
    }
    return finished("bitmaps", writer, std::move(memory));
}

} // namespace

std::vector<SExample> exampleLists()
{
    std::vector<SExample> examples = {paths(), bitmaps()};
    for (const auto &[name, text] : Texts)
        examples.push_back({name, assemble(text, nullptr).value(), CRamG(MemoryBytes)});
    return examples;
}

} // namespace kivemu
