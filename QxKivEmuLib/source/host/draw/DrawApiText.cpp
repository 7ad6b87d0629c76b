#include "CDrawContext.h"
#include "DrawApi.h"
#include "RomFonts.h"
#include "RomText.h"
#include "TextBox.h"
#include "host/items/CItemRunner.h"
#include "text/CTexts.h"

namespace kivemu {

namespace {

constexpr size_t MaxText = CTextFont::MaxText; ///< of one line; far more than any screen shows
constexpr size_t MaxBoxBytes = 65536;
constexpr uint64_t WorkPerByte = 4;
constexpr uint64_t ShapingPerByte = 400;
constexpr uint64_t FittingPerByte = 3 * ShapingPerByte;
const char *const Horizontal[] = {"left", "center", "right", "start", nullptr};

SFontChoice checkFont(lua_State *state, int argument)
{
    const lua_Integer font = luaL_checkinteger(state, argument);
    if (CTexts::isHandle(font)) {
        CTexts &texts = *contextOf(state).texts;
        const int handle = static_cast<int>(font);
        CTextFont *own = texts.font(handle);
        return {own, own ? 0 : texts.romFont(handle)};
    }
    if (!romfonts::isFont(static_cast<int>(font)) || font != static_cast<int>(font))
        luaL_error(state, "font %I is not one of 0 to 15 or 16 to 34", font);
    return {nullptr, static_cast<int>(font)};
}

/// A text argument, its work counted.
std::string_view checkText(lua_State *state, int argument, uint64_t workPerByte)
{
    size_t length = 0;
    const char *utf8 = luaL_checklstring(state, argument, &length);
    if (length > 4 * MaxText)
        luaL_error(state, "the text is longer than %d characters", int{MaxText});
    contextOf(state).watchdog.charge(state, length * workPerByte);
    return {utf8, length};
}

/// A text as Latin-1 characters in a buffer that needs no destructor.
class CLatin1
{
public:
    /// `missing` gets the characters that no font has.
    CLatin1(lua_State *state, int argument, std::u32string *missing = nullptr)
    {
        m_length = romfonts::toLatin1(checkText(state, argument, WorkPerByte), missing)
                       .copy(m_characters, MaxText);
    }
    std::string_view view() const { return {m_characters, m_length}; }

private:
    char m_characters[MaxText];
    size_t m_length = 0;
};

struct SCorner
{
    double x;
    double y;
};

/// Where the pen stands for a text whose point of alignment is given.
SCorner aligned(const SFontChoice &font, SCorner at, int align, int valign, double width,
                double middle)
{
    if (align == 1)
        at.x -= middle;
    else if (align == 2)
        at.x -= width;
    if (valign == 1)
        at.y += font.capHeight() / 2.0;
    else if (valign == 2)
        at.y += font.ascent();
    else if (valign == 3)
        at.y -= font.height() - font.ascent();
    return at;
}

void noteIfCut(lua_State *state, bool isWhole)
{
    if (CItemRunner *items = isWhole ? nullptr : contextOf(state).items)
        items->noteCutText();
}

const char *const Vertical[] = {"baseline", "middle", "top", "bottom", nullptr};

int textInRom(lua_State *state, SCorner at, const SFontChoice &font)
{
    CItemRunner *items = contextOf(state).items;
    const CLatin1 latin1(state, 4, items ? &items->missingCharacters() : nullptr);
    const int align = luaL_checkoption(state, 5, "left", Horizontal);
    const double width = align == 2 ? romfonts::textWidth16(font.rom, latin1.view()) / 16.0 : 0;
    const double middle = align == 1 ? romMiddle(font.rom, latin1.view()) : 0;
    at = aligned(font, at, align, luaL_checkoption(state, 6, "baseline", Vertical), width, middle);
    drawingOf(state).text(at.x, at.y, font.rom, latin1.view());
    return 0;
}

int text(lua_State *state)
{
    SCorner at{checkNumber(state, 1), checkNumber(state, 2)};
    const SFontChoice font = checkFont(state, 3);
    if (!font.own)
        return textInRom(state, at, font);
    const std::string_view utf8 = checkText(state, 4, ShapingPerByte);
    int align = luaL_checkoption(state, 5, "left", Horizontal);
    const int valign = luaL_checkoption(state, 6, "baseline", Vertical);
    drawingOf(state);
    const SShapedLine &line = font.own->shape(utf8);
    if (align == 3)
        align = line.isRightToLeft ? 2 : 0;
    at = aligned(font, at, align, valign, line.width / 64.0, line.middle / 64.0);
    drawShaped(contextOf(state), *font.own, line, at.x, at.y);
    contextOf(state).watchdog.charge(state, 0);
    return 0;
}

int textWidth(lua_State *state)
{
    const SFontChoice font = checkFont(state, 1);
    if (font.own) {
        lua_pushnumber(state, font.own->shape(checkText(state, 2, ShapingPerByte)).width / 64.0);
        return 1;
    }
    const CLatin1 latin1(state, 2);
    lua_pushnumber(state, romfonts::textWidth16(font.rom, latin1.view()) / 16.0);
    return 1;
}

int textFit(lua_State *state)
{
    const SFontChoice font = checkFont(state, 1);
    const double width = checkNumber(state, 3);
    if (font.own) {
        const std::string_view whole = checkText(state, 2, FittingPerByte);
        const std::string &fitted = font.own->fit(whole, width);
        noteIfCut(state, fitted == whole);
        lua_pushlstring(state, fitted.data(), fitted.size());
        return 1;
    }
    const CLatin1 latin1(state, 2);
    if (romfonts::textWidth16(font.rom, latin1.view()) <= width * 16) {
        lua_settop(state, 2);
        return 1;
    }
    noteIfCut(state, false);
    constexpr uint64_t WorkPerCharacter = 16;
    contextOf(state).watchdog.charge(state, latin1.view().size() * WorkPerCharacter);
    contextOf(state).texts->kept() = romFit(font.rom, lua_tostring(state, 2), width);
    const std::string &fitted = contextOf(state).texts->kept();
    lua_pushlstring(state, fitted.data(), fitted.size());
    return 1;
}

int textBox(lua_State *state)
{
    static const char *const InBox[] = {"top", "middle", "bottom", nullptr};
    STextBox box{};
    box.x = checkNumber(state, 1);
    box.y = checkNumber(state, 2);
    box.width = checkNumber(state, 3);
    box.height = checkNumber(state, 4);
    const SFontChoice font = checkFont(state, 5);
    size_t length = 0;
    const char *utf8 = luaL_checklstring(state, 6, &length);
    if (length > MaxBoxBytes)
        luaL_error(state, "the text is longer than %d bytes", int{MaxBoxBytes});
    box.align = static_cast<ETextAlign>(luaL_checkoption(state, 7, "start", Horizontal));
    box.valign = static_cast<ETextValign>(luaL_checkoption(state, 8, "top", InBox));
    const double lineHeight = optNumber(state, 9, 0);
    box.pitch = lineHeight > 0 ? lineHeight : font.height();
    box.mostLines = optNumber(state, 10, 0);
    drawingOf(state);
    SLuaContext &context = contextOf(state);
    context.watchdog.charge(state, length * (font.own ? FittingPerByte : 4 * WorkPerByte));
    const STextBoxResult result = drawTextBox(context, box, font, {utf8, length});
    context.watchdog.charge(state, 0);
    noteIfCut(state, result.isWhole);
    lua_pushinteger(state, static_cast<lua_Integer>(result.lines));
    lua_pushboolean(state, result.isWhole);
    return 2;
}

int isRightToLeft(lua_State *state)
{
    const SFontChoice font = checkFont(state, 1);
    const std::string_view utf8 = checkText(state, 2, font.own ? ShapingPerByte : WorkPerByte);
    lua_pushboolean(state, font.own && font.own->shape(utf8).isRightToLeft);
    return 1;
}

int fontHeight(lua_State *state)
{
    lua_pushinteger(state, checkFont(state, 1).height());
    return 1;
}

int fontAscent(lua_State *state)
{
    lua_pushinteger(state, checkFont(state, 1).ascent());
    return 1;
}

int fontCapHeight(lua_State *state)
{
    lua_pushinteger(state, checkFont(state, 1).capHeight());
    return 1;
}

} // namespace

const luaL_Reg DrawApiText[] = {
    {"text", text},
    {"text_width", textWidth},
    {"text_fit", textFit},
    {"text_box", textBox},
    {"is_right_to_left", isRightToLeft},
    {"font_height", fontHeight},
    {"font_ascent", fontAscent},
    {"font_cap_height", fontCapHeight},
    {nullptr, nullptr},
};

} // namespace kivemu
