#include "TextBox.h"

#include "CDrawContext.h"
#include "RomFonts.h"
#include "RomText.h"
#include "host/items/CItemRunner.h"
#include "host/lua/SLuaContext.h"
#include "text/CTexts.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

class CMeter final : public IWorkMeter
{
public:
    explicit CMeter(CWatchdog &watchdog) : m_watchdog(watchdog) {}
    bool add(uint64_t work) override { return m_watchdog.add(work); }

private:
    CWatchdog &m_watchdog;
};

size_t linesWithin(const STextBox &box, int lineHeight)
{
    const double room = box.pitch > 0 ? (box.height - lineHeight) / box.pitch + 1 : 1;
    const double most = box.mostLines >= 1 ? std::min(room, box.mostLines) : room;
    return static_cast<size_t>(std::clamp(most, 1.0, double{CTextFont::MaxLines}));
}

/// The first line's baseline. In the middle stand the capitals, not the lines with the space below
/// them; in a tight box they move inwards, and what is too high for it stands out on both sides.
double firstBaseline(const STextBox &box, const SFontChoice &font, size_t lines)
{
    const double more = (static_cast<double>(lines) - 1) * box.pitch;
    const double highest = box.y + font.ascent();
    const double lowest = std::floor(box.y + box.height) - (font.height() - font.ascent()) - more;
    const double middle = std::floor(box.y + (box.height - more + font.capHeight()) / 2 + 0.5);
    if (box.valign == ETextValign::Middle || font.height() + more > box.height)
        return lowest < highest ? middle : std::clamp(middle, highest, lowest);
    return box.valign == ETextValign::Top ? highest : lowest;
}

STextBoxResult drawRom(SLuaContext &context, const STextBox &box, const SFontChoice &font,
                       std::string_view utf8)
{
    constexpr double OverhangOfJ = 0.09; // the only letter that reaches to the left of its pen
    const SRomLines wrapped = romWrap(font.rom, utf8, box.width, linesWithin(box, font.height()));
    double y = firstBaseline(box, font, wrapped.lines.size());
    for (const std::string &line : wrapped.lines) {
        const std::string latin1 = romfonts::toLatin1(line, &context.items->missingCharacters());
        double x = box.x;
        if (box.align == ETextAlign::Centre)
            x += box.width / 2 - romMiddle(font.rom, latin1);
        else if (box.align == ETextAlign::Right)
            x += box.width - romfonts::textWidth16(font.rom, latin1) / 16.0;
        else if (!line.empty() && line.front() == 'j')
            x += font.capHeight() * OverhangOfJ;
        context.drawing->text(x, y, font.rom, latin1);
        y += box.pitch;
    }
    return {wrapped.lines.size(), wrapped.isWhole};
}

} // namespace

int SFontChoice::height() const
{
    return own ? own->height() : romfonts::height(rom);
}

int SFontChoice::ascent() const
{
    return own ? own->ascent() : romfonts::ascent(rom);
}

int SFontChoice::capHeight() const
{
    return own ? own->capHeight() : romfonts::capHeight(rom);
}

void drawShaped(SLuaContext &context, CTextFont &font, const SShapedLine &line, double x, double y)
{
    CMeter meter(context.watchdog);
    if (!line.missing.empty())
        context.items->noteMissing(font.line().name, line.missing);
    context.drawing->glyphs(x, y, *context.texts, font, line, meter);
}

STextBoxResult drawTextBox(SLuaContext &context, const STextBox &box, const SFontChoice &font,
                           std::string_view utf8)
{
    if (!font.own)
        return drawRom(context, box, font, utf8);
    const SWrappedText &wrapped = font.own->wrap(utf8, box.width, linesWithin(box, font.height()));
    double y = firstBaseline(box, font, wrapped.lines.size());
    for (const SShapedLine &line : wrapped.lines) {
        const double width = line.width / 64.0;
        const bool isRight = box.align == ETextAlign::Right ||
                             (box.align == ETextAlign::Start && line.isRightToLeft);
        double x = box.x;
        if (box.align == ETextAlign::Centre)
            x += box.width / 2 - line.middle / 64.0;
        else if (isRight)
            x += box.width - width;
        drawShaped(context, *font.own, line, x, y);
        if (context.watchdog.isExpired())
            break;
        y += box.pitch;
    }
    return {wrapped.lines.size(), wrapped.isWhole};
}

} // namespace kivemu
