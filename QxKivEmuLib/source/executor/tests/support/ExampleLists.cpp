#include "ExampleLists.h"

#include "Corpus.h"
#include "displaylist/DisplayListText.h"
#include "displaylist/FontBlock.h"

namespace kivemu {

namespace {

/// Six glyphs from 5 x 4 to 20 x 12 texels, their masks from the noise.
std::vector<uint8_t> fontBlock(int bits, const std::vector<uint8_t> &noise)
{
    std::vector<SFontGlyph> glyphs;
    for (int i = 0; i < 6; ++i)
        glyphs.push_back({5 + 3 * i, 4 + 4 * i % 19, i - 2, 3 + 4 * i % 17, 16 * (5 + 3 * i) + i,
                          noise.data() + 100 * i});
    return writeFontBlock(bits, glyphs);
}

} // namespace

std::vector<SExample> exampleLists()
{
    constexpr size_t MemoryBytes = 16384;
    constexpr size_t NoiseBytes = 8192; ///< what the bitmaps need
    CRamG memory(MemoryBytes);
    std::vector<uint8_t> noise(NoiseBytes);
    for (size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<uint8_t>(i * i / 7 + i * 37);
    memory.append(noise.data(), noise.size());
    for (const int bits : {1, 2, 4, 8}) {
        const std::vector<uint8_t> block = fontBlock(bits, noise);
        memory.append(block.data(), block.size());
    }

    auto texts = corpus("QxKivEmuLib/fuzz/corpus/assembler");
    std::vector<SExample> examples;
    for (const char *name : {"bitmaps", "glyphs", "paths", "shapes", "states", "texts"}) {
        const std::string text(texts[name].begin(), texts[name].end());
        examples.push_back({name, assemble(text, nullptr).value(), memory});
    }
    return examples;
}

} // namespace kivemu
