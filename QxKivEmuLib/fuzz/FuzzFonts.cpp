#include "FuzzFonts.h"

#include "displaylist/FontBlock.h"
#include "fontfiles/FontInfo.h"
#include "text/CTextFont.h"

namespace kivemu {

namespace {

/// An item's share of a frame's work.
class CMeter final : public IWorkMeter
{
public:
    bool add(uint64_t work) override
    {
        m_work += work;
        return m_work > MostWork;
    }

private:
    static constexpr uint64_t MostWork = 20'000'000;
    uint64_t m_work = 0;
};

constexpr const char *Texts[] = {
    "Aa fi\xCC\x81 123 \xE2\x80\xA6",                                        // Latin, a mark
    "\xD9\x85\xD9\x8F\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7 1 \xD7\xA9\xD7\x81 b", // both directions
    "\xE0\xA4\x95\xE0\xA5\x8D\xE0\xA4\xB7\xE0\xA4\xA4\xE0\xA5\x8D\xE0\xA4\xB0\xE0\xA4\xBF", // Hindi
    "\xE0\xB8\x81\xE0\xB8\xB3\xE0\xB8\xA5\xE0\xB8\xB1\xE0\xB8\x87 \xE4\xB8\xAD\xE6\x96\x87" // Thai,
                                                                                            // Chinese
};

struct SResult
{
    std::vector<uint8_t> block;
    std::string wrong;
};

SResult drawTexts(const std::vector<uint8_t> &bytes, const uint8_t *choice)
{
    CFontFile file;
    const std::string problem = file.openBytes(bytes);
    if (!problem.empty())
        return {};
    const SFontInfo info = fontInfoOf(file);
    if (info.glyphCount < 1 || info.family.find('\0') != std::string::npos)
        return {{}, "a font says what it cannot"};
    SFontLine line;
    constexpr int Bits[] = {8, 4, 2, 1};
    line.size = 4 + choice[0] % 253 + choice[1] % 4 * 0.25;
    line.bits = Bits[choice[2] % 4];
    for (const SFontAxis &axis : info.axes)
        line.axes.emplace_back(axis.tag,
                               axis.minimum + (axis.maximum - axis.minimum) * choice[3] / 255);
    line.extra = U"A\u00C4";
    static STextTools tools; // takes longer to set up than all else
    CTextFont font(line, "font.ttf", {std::make_shared<CTypeface>(std::move(file), line.axes)},
                   tools);
    const std::string text = Texts[choice[4] % 4];
    font.fit(text, line.size * 2);
    font.wrap(text + '\n' + text, line.size * 3, 4);
    const SShapedLine shaped = font.shape(text);
    CMeter meter;
    CGlyphBlock &block = font.block(choice[1] % 3 * 31.5, 1);
    for (const SShapedGlyph &glyph : shaped.glyphs)
        block.use(glyph.slot, meter);
    if (block.glyphCount() == 0)
        return {};
    SResult result{block.bytes(), {}};
    std::string fault;
    const auto written = CFontBlock::find(result.block.data(), result.block.size(), 0, fault);
    for (uint32_t at = 0; written && at < written->glyphCount(); ++at) {
        if (!written->glyph(at, fault))
            break;
    }
    result.wrong = fault;
    return result;
}

} // namespace

std::string checkFonts(const uint8_t *data, size_t size)
{
    constexpr size_t Choices = 5;
    if (size < Choices)
        return {};
    const std::vector<uint8_t> font(data + Choices, data + size);
    const SResult first = drawTexts(font, data);
    if (!first.wrong.empty())
        return first.wrong;
    return drawTexts(font, data).block == first.block ? "" : "the glyphs are others each time";
}

} // namespace kivemu
