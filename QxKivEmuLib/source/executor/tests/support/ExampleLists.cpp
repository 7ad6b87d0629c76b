#include "ExampleLists.h"

#include "displaylist/CDisplayListWriter.h"
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

SExample shapes()
{
    CDisplayListWriter writer(DisplayListBytes);
    writer.clear(0xFF203040);
    writer.item(1);
    writer.gradient({0, 0}, {160 * 16, 60 * 16}, 0, 90 * 64, 0xFF24476B, 0xFF0B1622);
    writer.gradient({100 * 16, 70 * 16}, {40 * 16 + 5, 30 * 16 + 9}, 100, 30 * 64, 0x80FF0000,
                    0xFF00FF00);
    writer.item(2);
    writer.setColour(0xFFFF8000);
    writer.disc({20 * 16 + 3, 20 * 16 + 7}, 150);
    writer.setColour(0x60FFFFFF);
    writer.disc({30 * 16, 25 * 16}, 200);
    writer.item(3);
    writer.setLineWidth(40);
    writer.line({5 * 16, 100 * 16}, {70 * 16 + 4, 60 * 16 + 9});
    writer.setBlend(false);
    writer.fillRect({60 * 16 + 5, 10 * 16 + 3}, {50 * 16, 30 * 16}, 90);
    writer.setBlend(true);
    writer.setLineWidth(24);
    writer.setColour(0xFF9FC3E6);
    writer.strokeRect({60 * 16 + 5, 10 * 16 + 3}, {50 * 16, 30 * 16}, 90);
    writer.item(4);
    writer.arc({130 * 16, 30 * 16}, 20 * 16, 140 * 64, 260 * 64, EArcCaps::Round);
    writer.arc({130 * 16, 30 * 16}, 12 * 16, 0, -100 * 64, EArcCaps::Butt);
    return finished("shapes", writer, CRamG(MemoryBytes));
}

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

SExample texts()
{
    CDisplayListWriter writer(DisplayListBytes);
    writer.item(21);
    int y = 14;
    for (const int font : {16, 20, 26, 28}) {
        writer.setColour(font % 4 ? 0xFFFFFFFF : 0x90D0E4FF);
        writer.text(font, {4 * 16 + font, y * 16}, "Tank 42 \xB0\x43; \"\\");
        y += 26;
    }
    writer.text(34, {-100, 110 * 16}, "clipped at both sides");
    return finished("texts", writer, CRamG(MemoryBytes));
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

SExample states()
{
    CDisplayListWriter writer(DisplayListBytes);
    writer.clear(0xFF102030);
    writer.save();
    writer.setScissor(20, 10, 90, 70);
    writer.setColour(0xFFFF0000);
    writer.fillRect({0, 0}, {160 * 16, 120 * 16}, 0);
    writer.save();
    writer.setScissor(40, 30, 200, 20);
    writer.setColour(0x8000FF00);
    writer.setBlend(false);
    writer.disc({60 * 16, 40 * 16}, 30 * 16);
    writer.text(30, {30 * 16, 48 * 16}, "clip");
    writer.restore();
    writer.disc({90 * 16, 80 * 16}, 30 * 16);
    writer.clear(0xFF0000FF);
    writer.restore();
    writer.setScissor(-5, 100, 50, 1000);
    writer.disc({20 * 16, 100 * 16}, 30 * 16);
    return finished("states", writer, CRamG(MemoryBytes));
}

} // namespace

std::vector<SExample> exampleLists()
{
    std::vector<SExample> examples;
    for (const auto make : {shapes, paths, texts, bitmaps, states})
        examples.push_back(make());
    return examples;
}

} // namespace kivemu
